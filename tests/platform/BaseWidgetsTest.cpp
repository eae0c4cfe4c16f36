#include "TestWorld.h"

#include <BaseTools.h>
#include <Icons.h>
#include <Notices.h>
#include <PageHeader.h>
#include <Theme.h>
#include <Toasts.h>
#include <VMessageBox.h>

#include <SystemConfig.h>

#include <QApplication>
#include <QDir>
#include <QLabel>
#include <QPushButton>
#include <QSignalSpy>
#include <QStackedWidget>
#include <QTableWidget>
#include <QTest>
#include <QTimer>
#include <QToolButton>

using vemo_base::BaseTools;
using vemo_base::Notice;
using vemo_base::Notices;
using vemo_base::VMessageBox;

namespace {

QDateTime at(const char* text)
{
    return QDateTime::fromString(QString::fromLatin1(text), Qt::ISODateWithMs);
}

/// Presses keys in the box that opens next.
void pressInBox(const QVector<Qt::Key>& keys)
{
    QTimer::singleShot(0, qApp, [keys] {
        QWidget* box = QApplication::activeModalWidget();
        if (!box)
            return pressInBox(keys);
        for (const Qt::Key key : keys)
            QTest::keyClick(box->focusWidget() ? box->focusWidget() : box, key);
    });
}

Notice noticeOf(Notice::Kind kind, const QString& title)
{
    Notice notice;
    notice.kind = kind;
    notice.title = title;
    return notice;
}

} // namespace

Q_DECLARE_METATYPE(QVector<Qt::Key>)

/// The smaller widgets of the pages, and the texts that they share.
class BaseWidgetsTest final : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { vemo_base::Theme::instance().apply(); }
    void cleanup();
    void writesTimesInThePersonsFormat();
    void writesIntervals_data();
    void writesIntervals();
    void knowsTheSameChannel();
    void numbersTheRowsOfPlainTables();
    void answersQuestions_data();
    void answersQuestions();
    void letsProgramsAnswer();
    void everyIconOfTheResourcesIsALineIcon();
    void countsRepeatedNotices();
    void keepsABoundedListOfNotices();
    void showsThreeToastsAndKeepsErrors();
    void keepsToastsAboveThePageAndOffItsBar();
    void runsTheActionOfAToast();
    void wrapsTheButtonsOfANarrowPage();
};

void BaseWidgetsTest::cleanup()
{
    VMessageBox::setAnswerer({});
    Notices::instance().clear();
}

void BaseWidgetsTest::writesTimesInThePersonsFormat()
{
    const TestWorld world;
    const BaseTools& tools = BaseTools::instance();
    const QDateTime time = at("2026-01-10T08:00:00.042");
    QCOMPARE(tools.strDatetime(time, true, false), QStringLiteral("2026-01-10 08:00:00"));
    QCOMPARE(tools.strDatetime(time, false, true), QStringLiteral("2026-01-10 08:00:00.042"));
    QCOMPARE(tools.strTimeRange(time, time.addSecs(60)), QStringLiteral("2026-01-10 08:00:00~08:01:00"));
    QCOMPARE(tools.strTimeRange(time, time.addDays(1)), QStringLiteral("2026-01-10 08:00:00~2026-01-11 08:00:00"));
    vemo_worker::SystemConfig::instance().setDateFormat(QStringLiteral("dd.MM.yyyy"));
    QCOMPARE(tools.strDatetime(time, true, false), QStringLiteral("10.01.2026 08:00:00"));
    QCOMPARE(tools.strDate(time.date(), false), QStringLiteral("10.01.2026"));
    QVERIFY(tools.strDate(time.date(), true).endsWith(QLatin1String(" 10.01.2026")));
    QCOMPARE(tools.strDatetime(QDateTime(), true, false), QString());
}

void BaseWidgetsTest::writesIntervals_data()
{
    QTest::addColumn<QDateTime>("begin");
    QTest::addColumn<QDateTime>("end");
    QTest::addColumn<QString>("text");
    const QDateTime begin = at("2026-01-10T08:00:00");
    QTest::newRow("minutes") << begin << at("2026-01-10T08:31:00") << QStringLiteral("00:31:00");
    QTest::newRow("above a day") << begin << at("2026-01-11T20:00:05") << QStringLiteral("36:00:05");
    QTest::newRow("backwards") << begin << at("2026-01-10T07:00:00") << QStringLiteral("00:00:00");
    QTest::newRow("no end") << begin << QDateTime() << QStringLiteral("00:00:00");
}

void BaseWidgetsTest::writesIntervals()
{
    QFETCH(QDateTime, begin);
    QFETCH(QDateTime, end);
    QTEST(BaseTools::instance().get2DatetimeIntervalTime(begin, end), "text");
}

void BaseWidgetsTest::knowsTheSameChannel()
{
    const BaseTools& tools = BaseTools::instance();
    QVERIFY(tools.isSameChannel(QStringLiteral("dev|1"), QStringLiteral("dev|01")));
    QVERIFY(!tools.isSameChannel(QStringLiteral("dev|1"), QStringLiteral("dev|2")));
    QVERIFY(!tools.isSameChannel(QStringLiteral("dev|1"), QStringLiteral("other|1")));
    QVERIFY2(!tools.isSameChannel(QString(), QString()), "no channel is the same as no channel");
}

void BaseWidgetsTest::numbersTheRowsOfPlainTables()
{
    QTableWidget table(3, 2);
    table.setItem(0, 0, new QTableWidgetItem(QStringLiteral("x")));
    table.setItem(2, 0, new QTableWidgetItem);
    BaseTools::instance().updateTableOrderNum(&table, 1);
    QCOMPARE(table.item(0, 0)->text(), QStringLiteral("1"));
    QCOMPARE(table.item(2, 0)->text(), QStringLiteral("3"));
}

void BaseWidgetsTest::answersQuestions_data()
{
    QTest::addColumn<QVector<Qt::Key>>("keys");
    QTest::addColumn<bool>("yesIsSafe");
    QTest::addColumn<int>("answer");
    using Keys = QVector<Qt::Key>;
    QTest::newRow("the safe answer has the focus") << Keys{Qt::Key_Return} << false << 0;
    QTest::newRow("yes has the focus where it is safe") << Keys{Qt::Key_Return} << true << 1;
    QTest::newRow("yes by hand") << Keys{Qt::Key_Tab, Qt::Key_Space} << false << 1;
    QTest::newRow("escape is no") << Keys{Qt::Key_Escape} << true << 0;
}

void BaseWidgetsTest::answersQuestions()
{
    QFETCH(QVector<Qt::Key>, keys);
    QFETCH(bool, yesIsSafe);
    QFETCH(int, answer);
    QWidget parent;
    pressInBox(keys);
    QCOMPARE(VMessageBox::question(&parent, QStringLiteral("Do you want to clean checked tasks?"), 3, yesIsSafe),
             answer);
}

void BaseWidgetsTest::letsProgramsAnswer()
{
    QStringList asked;
    VMessageBox::setAnswerer([&asked](const QString& text) {
        asked.append(text);
        return 1;
    });
    QCOMPARE(VMessageBox::question(nullptr, QStringLiteral("Really?"), 3, false), 1);
    QCOMPARE(asked, QStringList{QStringLiteral("Really?")});
}

void BaseWidgetsTest::everyIconOfTheResourcesIsALineIcon()
{
    const QStringList files = QDir(QStringLiteral(":/vemo_base/icons")).entryList({QStringLiteral("*.svg")});
    QVERIFY(files.size() > 60);
    for (const QString& file : files) {
        if (file == QLatin1String("mark.svg"))
            continue; // the product's mark has colours of its own
        const QString name = file.chopped(4);
        constexpr int size = 24;
        const QImage image = vemo_base::Icons::pixmap(name, size, Qt::red, 2.0).toImage();
        int inked = 0;
        int onEdge = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                const bool ink = qAlpha(image.pixel(x, y)) > 128;
                const bool edge = qMin(x, y) < 2 || qMax(x, y) >= image.width() - 2;
                inked += ink ? 1 : 0;
                onEdge += ink && edge ? 1 : 0;
            }
        }
        QVERIFY2(inked > size / 2, qPrintable(name + QStringLiteral(" is empty")));
        QVERIFY2(inked < image.width() * image.height() / 2, qPrintable(name + QStringLiteral(" is no line icon")));
        QVERIFY2(onEdge == 0, qPrintable(name + QStringLiteral(" leaves no clear edge")));
    }
}

void BaseWidgetsTest::countsRepeatedNotices()
{
    Notices& notices = Notices::instance();
    notices.add(noticeOf(Notice::Kind::Error, QStringLiteral("The disk is full")));
    notices.add(noticeOf(Notice::Kind::Success, QStringLiteral("Gate South is on this computer")));
    notices.add(noticeOf(Notice::Kind::Error, QStringLiteral("The disk is full")));
    QCOMPARE(notices.all().size(), 2);
    QCOMPARE(notices.all().first().title, QStringLiteral("The disk is full"));
    QCOMPARE(notices.all().first().repeats, 2);
    QCOMPARE(notices.unreadCount(), 2);
    notices.markRead();
    notices.add(noticeOf(Notice::Kind::Error, QStringLiteral("The disk is full")));
    QVERIFY2(notices.unreadCount() == 1, "a repeat after reading is news again");
}

void BaseWidgetsTest::keepsABoundedListOfNotices()
{
    Notices& notices = Notices::instance();
    for (int i = 0; i < Notices::limit + 50; ++i)
        notices.add(noticeOf(Notice::Kind::Information, QString::number(i)));
    QCOMPARE(notices.all().size(), Notices::limit);
    QCOMPARE(notices.all().first().title, QString::number(Notices::limit + 49));
}

void BaseWidgetsTest::showsThreeToastsAndKeepsErrors()
{
    QWidget host;
    host.resize(1000, 700);
    const vemo_base::Toasts toasts(&host);
    host.show();
    const auto titles = [&host] {
        QMap<int, QString> byHeight;
        const QList<QLabel*> labels = host.findChildren<QLabel*>();
        for (const QLabel* label : labels) {
            if (label->isVisibleTo(&host) && !label->text().isEmpty())
                byHeight.insert(label->mapTo(&host, QPoint()).y(), label->text());
        }
        return QStringList(byHeight.values());
    };
    Notices::instance().add(noticeOf(Notice::Kind::Error, QStringLiteral("error")));
    for (int i = 0; i < 5; ++i)
        Notices::instance().add(noticeOf(Notice::Kind::Success, QString::number(i)));
    QCOMPARE(toasts.shownCount(), vemo_base::Toasts::atMost);
    QCOMPARE(titles(), (QStringList{QStringLiteral("error"), QStringLiteral("3"), QStringLiteral("4")}));
    Notices::instance().add(noticeOf(Notice::Kind::Success, QStringLiteral("4")));
    QVERIFY2(titles().last().contains(QLatin1Char('2')), "a repeat counts up in place");
    QCOMPARE(toasts.shownCount(), vemo_base::Toasts::atMost);
    QVERIFY2(!host.focusWidget(), "a toast took the focus");
}

void BaseWidgetsTest::keepsToastsAboveThePageAndOffItsBar()
{
    QStackedWidget host;
    host.resize(1000, 700);
    host.addWidget(new QWidget);
    auto* page = new QWidget;
    host.addWidget(page);
    QWidget bar(page);
    bar.setProperty("bottomBar", true);
    bar.setGeometry(0, 600, 1000, 100);
    bar.hide();
    const vemo_base::Toasts toasts(&host);
    host.show();
    Notices::instance().add(noticeOf(Notice::Kind::Success, QStringLiteral("saved")));
    const auto* toast = qobject_cast<QWidget*>(host.children().last());
    QVERIFY(toast && toast->inherits("vemo_base::ToastWt"));
    QVERIFY(toast->geometry().bottom() > 600);
    host.setCurrentWidget(page);
    QTRY_VERIFY2(host.children().last() == toast, "the page lies above the toast");
    bar.show();
    QTRY_VERIFY2(toast->geometry().bottom() < 600, "the toast lies on the bar that came");
    bar.hide();
    QTRY_VERIFY(toast->geometry().bottom() > 600);
}

void BaseWidgetsTest::runsTheActionOfAToast()
{
    QWidget host;
    host.resize(1000, 700);
    const vemo_base::Toasts toasts(&host);
    host.show();
    int runs = 0;
    Notice notice = noticeOf(Notice::Kind::Success, QStringLiteral("done"));
    notice.actions = {{QStringLiteral("Open folder"), [&runs] { ++runs; }}};
    Notices::instance().add(notice);
    const QList<QToolButton*> buttons = host.findChildren<QToolButton*>();
    for (QToolButton* button : buttons) {
        if (button->text() == QLatin1String("Open folder"))
            button->click();
    }
    QCOMPARE(runs, 1);
    QCOMPARE(toasts.shownCount(), 0);
}

void BaseWidgetsTest::wrapsTheButtonsOfANarrowPage()
{
    vemo_base::PageHeader header(QStringLiteral("Downloading"));
    QPushButton* button = header.addButton(QStringLiteral("batchStartBt"), QStringLiteral("start"),
                                           QStringLiteral("Batch Start"), vemo_base::PageHeader::Weight::Primary);
    header.setSummary(QStringLiteral("5 running"));
    header.resize(1200, 40);
    header.show();
    QCoreApplication::processEvents();
    const int wide = button->mapTo(&header, QPoint()).x();
    QVERIFY2(wide > 900, "the buttons are trailing");
    header.resize(800, 80);
    QCoreApplication::processEvents();
    QCOMPARE(button->mapTo(&header, QPoint()).x(), 0);
    header.resize(1200, 40);
    QCoreApplication::processEvents();
    QCOMPARE(button->mapTo(&header, QPoint()).x(), wide);
}

QTEST_MAIN(BaseWidgetsTest)
#include "BaseWidgetsTest.moc"
