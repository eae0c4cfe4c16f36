#include <PlainToolTips.h>
#include <Theme.h>

#include <QHelpEvent>
#include <QLabel>
#include <QListWidget>
#include <QTextDocument>
#include <QToolTip>
#include <QtTest>

using vemo_base::PlainToolTips;

/// Whatever a device or a person calls something, it is shown letter by letter.
class PlainTextTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { vemo_base::Theme::instance().apply(); }
    void showsNamesLetterByLetter_data();
    void showsNamesLetterByLetter();
    void keepsTheMarkupOfItsOwn();
};

namespace {

QString readIn(const QString& toolTip)
{
    if (!Qt::mightBeRichText(toolTip))
        return toolTip;
    QTextDocument document;
    document.setHtml(toolTip);
    return document.toPlainText();
}

QString toolTipOf(QWidget* asked, const QPoint& place)
{
    QToolTip::hideText();
    QHelpEvent event(QEvent::ToolTip, place, asked->mapToGlobal(place));
    QCoreApplication::sendEvent(asked, &event);
    return readIn(QToolTip::text());
}

} // namespace

void PlainTextTest::showsNamesLetterByLetter_data()
{
    QTest::addColumn<QString>("name");
    for (const char* name :
         {"Gate North", "<b>Gate</b>", "<img src='file:///etc/hostname'>", "Gate & Yard &lt;1&gt;",
          "<a href='http://192.0.2.1/'>Log in again</a>", "<html>", "a\n<h1>b</h1>", "1 < 2 > 0", "<?xml"})
        QTest::newRow(name) << QString::fromLatin1(name);
}

void PlainTextTest::showsNamesLetterByLetter()
{
    QFETCH(const QString, name);
    QListWidget list;
    list.addItem(name);
    list.item(0)->setToolTip(name);
    QLabel label(name);
    label.setToolTip(name);
    list.show();
    label.show();
    QVERIFY(QTest::qWaitForWindowExposed(&label));
    QCOMPARE(toolTipOf(&label, label.rect().center()), name);
    QCOMPARE(toolTipOf(list.viewport(), list.visualItemRect(list.item(0)).center()), name);
    QCOMPARE(readIn(PlainToolTips::shown(name)), name);
    QCOMPARE(label.textFormat(), Qt::PlainText);
}

void PlainTextTest::keepsTheMarkupOfItsOwn()
{
    QLabel label;
    label.setTextFormat(Qt::RichText);
    label.setText(QStringLiteral("<b>Vemo</b>"));
    label.show();
    QCOMPARE(label.textFormat(), Qt::RichText);
    QToolTip::showText({}, QStringLiteral("<b>Vemo</b>"), &label);
    QCOMPARE(readIn(QToolTip::text()), QStringLiteral("Vemo"));
}

QTEST_MAIN(PlainTextTest)
#include "PlainTextTest.moc"
