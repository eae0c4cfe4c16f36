#include <NavigationWidget.h>

#include <QAbstractButton>
#include <QApplication>
#include <QHBoxLayout>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

#include <memory>

using vemo_base::NavigationWidget;

/// The navigation column as a person uses it, by mouse, by keys, and by what a reader is told.
class tst_NavigationWidget : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void makesTheAskedOrTheFirstEntryCurrent_data();
    void makesTheAskedOrTheFirstEntryCurrent();
    void tellsEachChoice();
    void ignoresGroupsAndUnknownKeys();
    void foldsAGroupAndOpensItForItsEntry();
    void walksByArrowsAndChoosesByEnter();
    void isOneStopOfTheTabKey();
    void tellsNamesAndTheCurrentPageToReaders();
    void showsCutTextsAsATip();

private:
    QAbstractButton* entry(const char* key) const
    {
        return m_column->findChild<QAbstractButton*>(QString::fromLatin1(key));
    }
    QString focused() const
    {
        return QApplication::focusWidget() ? QApplication::focusWidget()->objectName() : QString();
    }

    std::unique_ptr<QWidget> m_window;
    NavigationWidget* m_column = nullptr;
    QWidget* m_after = nullptr;
};

void tst_NavigationWidget::init()
{
    m_window = std::make_unique<QWidget>();
    m_column = new NavigationWidget(m_window.get());
    m_column->setFixedWidth(242);
    m_after = new QPushButton(m_window.get());
    m_after->setObjectName(QStringLiteral("after"));
    auto* layout = new QHBoxLayout(m_window.get());
    layout->addWidget(m_column);
    layout->addWidget(m_after);
    m_column->addNavigationBar(QStringLiteral("group"), QStringLiteral("Download Mgr"), {},
                               {{QStringLiteral("a"), QStringLiteral("Downloading"), {}},
                                {QStringLiteral("b"), QStringLiteral("Success"), {}}});
    m_column->addNavigationBar(QStringLiteral("c"), QStringLiteral("Local Files"), {});
    m_window->resize(600, 400);
    m_window->show();
    m_window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
}

void tst_NavigationWidget::makesTheAskedOrTheFirstEntryCurrent_data()
{
    QTest::addColumn<QString>("asked");
    QTest::addColumn<QString>("current");
    QTest::newRow("an entry") << QStringLiteral("c") << QStringLiteral("c");
    QTest::newRow("a sub-entry") << QStringLiteral("b") << QStringLiteral("b");
    QTest::newRow("a group has no page") << QStringLiteral("group") << QStringLiteral("a");
    QTest::newRow("not offered to this user") << QStringLiteral("downloading") << QStringLiteral("a");
}

void tst_NavigationWidget::makesTheAskedOrTheFirstEntryCurrent()
{
    QFETCH(QString, asked);
    QFETCH(QString, current);
    QCOMPARE(m_column->setDefaultAction(asked), current);
    QCOMPARE(m_column->curAction(), current);
    QCOMPARE(NavigationWidget().setDefaultAction(asked), QString());
}

void tst_NavigationWidget::tellsEachChoice()
{
    m_column->setDefaultAction(QStringLiteral("a"));
    QSignalSpy told(m_column, &NavigationWidget::signalCurAction);
    QTest::mouseClick(entry("c"), Qt::LeftButton);
    m_column->setCurAction(QStringLiteral("b"));
    QCOMPARE(told.size(), 2);
    QCOMPARE(told.at(0).at(0).toString(), QStringLiteral("c"));
    QCOMPARE(told.at(1).at(0).toString(), QStringLiteral("b"));
}

void tst_NavigationWidget::ignoresGroupsAndUnknownKeys()
{
    m_column->setDefaultAction(QStringLiteral("a"));
    QSignalSpy told(m_column, &NavigationWidget::signalCurAction);
    m_column->setCurAction(QStringLiteral("group"));
    m_column->setCurAction(QStringLiteral("nothing"));
    m_column->setActionText(QStringLiteral("nothing"), QStringLiteral("x"));
    m_column->addNavigationBar(QStringLiteral("c"), QStringLiteral("twice"), {});
    QCOMPARE(told.size(), 0);
    QCOMPARE(m_column->curAction(), QStringLiteral("a"));
    QCOMPARE(m_column->actionText(QStringLiteral("c")), QStringLiteral("Local Files"));
}

void tst_NavigationWidget::foldsAGroupAndOpensItForItsEntry()
{
    m_column->setDefaultAction(QStringLiteral("c"));
    QTest::mouseClick(entry("group"), Qt::LeftButton);
    QVERIFY2(!entry("a")->isVisible() && !entry("b")->isVisible(), "a closed group still shows its entries");
    QCOMPARE(m_column->curAction(), QStringLiteral("c"));
    m_column->setCurAction(QStringLiteral("b"));
    QVERIFY2(entry("b")->isVisible(), "the current entry is hidden in a closed group");
}

void tst_NavigationWidget::walksByArrowsAndChoosesByEnter()
{
    m_column->setDefaultAction(QStringLiteral("a"));
    entry("a")->setFocus(Qt::TabFocusReason);
    const auto press = [this](Qt::Key key) { QTest::keyClick(QApplication::focusWidget(), key); };
    press(Qt::Key_Down);
    QCOMPARE(focused(), QStringLiteral("b"));
    QCOMPARE(m_column->curAction(), QStringLiteral("a"));
    press(Qt::Key_Return);
    QCOMPARE(m_column->curAction(), QStringLiteral("b"));
    press(Qt::Key_End);
    press(Qt::Key_Down);
    QCOMPARE(focused(), QStringLiteral("c"));
    press(Qt::Key_Home);
    QCOMPARE(focused(), QStringLiteral("group"));
    press(Qt::Key_Left);
    QVERIFY2(!entry("a")->isVisible(), "the leading arrow does not close the group");
    press(Qt::Key_Down);
    QCOMPARE(focused(), QStringLiteral("c"));
    press(Qt::Key_Up);
    press(Qt::Key_Right);
    QVERIFY2(entry("a")->isVisible(), "the trailing arrow does not open the group");
    press(Qt::Key_Down);
    press(Qt::Key_Left);
    QCOMPARE(focused(), QStringLiteral("group"));
    press(Qt::Key_Return);
    QVERIFY2(!entry("a")->isVisible(), "Enter does not fold a group");
}

void tst_NavigationWidget::isOneStopOfTheTabKey()
{
    m_column->setDefaultAction(QStringLiteral("b"));
    m_after->setFocus(Qt::TabFocusReason);
    QTest::keyClick(m_after, Qt::Key_Tab);
    QCOMPARE(focused(), QStringLiteral("b"));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    QCOMPARE(focused(), QStringLiteral("after"));
}

void tst_NavigationWidget::tellsNamesAndTheCurrentPageToReaders()
{
    m_column->setDefaultAction(QStringLiteral("a"));
    m_column->setActionText(QStringLiteral("a"), QStringLiteral("Downloading(3)"));
    QCOMPARE(entry("a")->accessibleName(), QStringLiteral("Downloading(3)"));
    QVERIFY(!entry("a")->accessibleDescription().isEmpty());
    QVERIFY(entry("b")->accessibleDescription().isEmpty());
    m_column->setCurAction(QStringLiteral("b"));
    QVERIFY(entry("a")->accessibleDescription().isEmpty());
}

void tst_NavigationWidget::showsCutTextsAsATip()
{
    const QString text = QStringLiteral("Laderampe S\u00fcd - Kennzeichenerfassung Ausfahrt 2");
    m_column->setActionText(QStringLiteral("c"), text);
    QCOMPARE(entry("c")->toolTip(), text);
    m_column->setActionText(QStringLiteral("c"), QStringLiteral("Short"));
    QCOMPARE(entry("c")->toolTip(), QString());
}

QTEST_MAIN(tst_NavigationWidget)
#include "tst_NavigationWidget.moc"
