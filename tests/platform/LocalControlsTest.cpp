#include "TestWorld.h"

#include <DatetimeSpanSelWt.h>
#include <DisabledWaitingWt.h>
#include <DisabledWaitingWtManager.h>
#include <PageEditWt.h>
#include <SearchBox.h>
#include <TimeSpaceLineEt.h>

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QTimeEdit>
#include <QToolButton>

using vemo_base::DatetimeSpanSelWt;
using vemo_base::DisabledWaitingWt;
using vemo_base::DisabledWaitingWtManager;
using vemo_base::PageEditWt;
using vemo_base::TimeSpaceLineEt;

namespace {

QDateTime at(const char* text)
{
    return QDateTime::fromString(QString::fromLatin1(text), Qt::ISODateWithMs);
}

QToolButton* step(const PageEditWt& pages, const char* name)
{
    return pages.findChild<QToolButton*>(QString::fromLatin1(name));
}

} // namespace

class LocalControlsTest final : public QObject
{
    Q_OBJECT

private slots:
    void writesASpan_data();
    void writesASpan();
    void refusesSpans_data();
    void refusesSpans();
    void offersTheDaysPeopleAskFor_data();
    void offersTheDaysPeopleAskFor();
    void takesASpanByEnterAndNoWrongOne();
    void showsPagesByNumber_data();
    void showsPagesByNumber();
    void stepsThroughPages();
    void coversAndTakesKeysUntilItIsDestroyed();
};

void LocalControlsTest::writesASpan_data()
{
    QTest::addColumn<QString>("format");
    QTest::addColumn<bool>("usesYear");
    QTest::addColumn<QString>("text");
    QTest::newRow("with year") << "yyyy-MM-dd" << true << "2026-01-03 00:00:00 ~ 2026-01-10 23:59:59";
    QTest::newRow("year first") << "yyyy-MM-dd" << false << "01-03 00:00:00 ~ 01-10 23:59:59";
    QTest::newRow("year last") << "dd.MM.yyyy" << false << "03.01 00:00:00 ~ 10.01 23:59:59";
    QTest::newRow("year in the middle") << "dd/yy/MM" << false << "03/01 00:00:00 ~ 10/01 23:59:59";
    QTest::newRow("no year") << "MM-dd" << false << "01-03 00:00:00 ~ 01-10 23:59:59";
}

void LocalControlsTest::writesASpan()
{
    QFETCH(QString, format);
    QFETCH(bool, usesYear);
    QTEST(TimeSpaceLineEt::description(at("2026-01-03T00:00:00"), at("2026-01-10T23:59:59"), format, usesYear), "text");
}

void LocalControlsTest::refusesSpans_data()
{
    using Fault = DatetimeSpanSelWt::Fault;
    QTest::addColumn<QDateTime>("begin");
    QTest::addColumn<QDateTime>("end");
    QTest::addColumn<int>("fault");
    const QDateTime begin = at("2026-01-01T00:00:00");
    QTest::newRow("longest") << begin << begin.addDays(31) << int(Fault::None);
    QTest::newRow("a second longer") << begin << begin.addDays(31).addSecs(1) << int(Fault::TooLong);
    QTest::newRow("shortest") << begin << begin.addSecs(1) << int(Fault::None);
    QTest::newRow("nothing") << begin << begin << int(Fault::EndNotBehindBegin);
    QTest::newRow("backwards") << begin << begin.addSecs(-1) << int(Fault::EndNotBehindBegin);
    QTest::newRow("no time") << QDateTime() << begin << int(Fault::NoTime);
}

void LocalControlsTest::refusesSpans()
{
    QFETCH(QDateTime, begin);
    QFETCH(QDateTime, end);
    QTEST(int(DatetimeSpanSelWt::faultOf(begin, end, 2678400)), "fault");
}

void LocalControlsTest::offersTheDaysPeopleAskFor_data()
{
    using Span = DatetimeSpanSelWt::QuickSpan;
    QTest::addColumn<int>("span");
    QTest::addColumn<QDateTime>("begin");
    QTest::addColumn<QDateTime>("end");
    QTest::newRow("today") << int(Span::Today) << at("2026-03-01T00:00:00") << at("2026-03-01T23:59:59");
    QTest::newRow("yesterday") << int(Span::Yesterday) << at("2026-02-28T00:00:00") << at("2026-02-28T23:59:59");
    QTest::newRow("a week") << int(Span::Last7Days) << at("2026-02-23T00:00:00") << at("2026-03-01T23:59:59");
    QTest::newRow("a month") << int(Span::Last30Days) << at("2026-01-31T00:00:00") << at("2026-03-01T23:59:59");
}

void LocalControlsTest::offersTheDaysPeopleAskFor()
{
    QFETCH(int, span);
    const auto times = DatetimeSpanSelWt::quickSpan(static_cast<DatetimeSpanSelWt::QuickSpan>(span), {2026, 3, 1});
    QTEST(times.first, "begin");
    QTEST(times.second, "end");
}

void LocalControlsTest::takesASpanByEnterAndNoWrongOne()
{
    DatetimeSpanSelWt selector;
    QSignalSpy selected(&selector, &DatetimeSpanSelWt::signalDatetimeSpanSelected);
    selector.setInitDateTime(at("2026-01-10T00:00:00"), at("2026-01-10T12:00:00"));
    selector.show();
    auto* end = selector.findChildren<QTimeEdit*>().last();
    end->setTime(QTime(0, 0));
    QTest::keyClick(&selector, Qt::Key_Return);
    QVERIFY2(selected.isEmpty() && selector.isVisible(), "a span of nothing was taken");
    QVERIFY(!selector.findChild<QPushButton*>(QStringLiteral("takeBt"))->isEnabled());
    end->setTime(QTime(6, 30));
    QTest::keyClick(&selector, Qt::Key_Return);
    QCOMPARE(selected.size(), 1);
    QCOMPARE(selected.first().last().toDateTime(), at("2026-01-10T06:30:00"));
    QVERIFY(!selector.isVisible());
}

void LocalControlsTest::showsPagesByNumber_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("current");
    QTest::addColumn<QVector<int>>("shown");
    QTest::newRow("one") << 1 << 1 << QVector<int>{1};
    QTest::newRow("all fit") << 7 << 4 << QVector<int>{1, 2, 3, 4, 5, 6, 7};
    QTest::newRow("at the begin") << 14 << 4 << QVector<int>{1, 2, 3, 4, 5, 0, 14};
    QTest::newRow("in the middle") << 14 << 5 << QVector<int>{1, 0, 4, 5, 6, 0, 14};
    QTest::newRow("at the end") << 14 << 11 << QVector<int>{1, 0, 10, 11, 12, 13, 14};
}

void LocalControlsTest::showsPagesByNumber()
{
    QFETCH(int, count);
    QFETCH(int, current);
    QTEST(PageEditWt::shownPages(count, current), "shown");
}

void LocalControlsTest::stepsThroughPages()
{
    PageEditWt pages;
    QSignalSpy goTo(&pages, &PageEditWt::signalGoToPage);
    pages.updateTotalCnt(41, 9);
    QCOMPARE(pages.getCurPageNum(), 3);
    QVERIFY2(!step(pages, "nextPage")->isEnabled(), "there is nothing behind the last page");
    step(pages, "previousPage")->click();
    step(pages, "firstPage")->click();
    auto* field = pages.findChild<QLineEdit*>(QStringLiteral("pageNumber"));
    field->setText(QStringLiteral("99"));
    QTest::keyClick(field, Qt::Key_Return);
    QCOMPARE(field->text(), QStringLiteral("3"));
    QList<int> asked;
    for (const QList<QVariant>& page : goTo)
        asked.append(page.first().toInt());
    QCOMPARE(asked, (QList<int>{2, 1, 3}));

    QSignalSpy sized(&pages, &PageEditWt::signalPageSizeChanged);
    auto* sizes = pages.findChild<QComboBox*>(QStringLiteral("pageSize"));
    sizes->setCurrentIndex(1);
    emit sizes->activated(1);
    QCOMPARE(sized.size(), 1);
    QCOMPARE(pages.getPageSize(), 50);
    QCOMPARE(pages.getCurPageNum(), 1);
    pages.updateTotalCnt(0, 1);
    QCOMPARE(pages.getCurPageNum(), 1);
}

void LocalControlsTest::coversAndTakesKeysUntilItIsDestroyed()
{
    QWidget page;
    page.resize(400, 300);
    auto* filter = new vemo_base::SearchBox(&page);
    page.show();
    QVERIFY(QTest::qWaitForWindowActive(&page));
    filter->setFocus();
    auto* veil = new DisabledWaitingWt(&page, QStringLiteral("working"), QString(), true);
    const QUuid id = veil->getUuid();
    QSignalSpy cancelled(veil, &DisabledWaitingWt::signalCancelled);
    QSignalSpy gone(veil, &QObject::destroyed);
    veil->show();
    QVERIFY2(!veil->isVeiling(), "it flashes up for what takes a moment");
    QCOMPARE(veil->geometry(), page.rect());
    QTest::keyClick(page.focusWidget(), Qt::Key_A);
    QVERIFY2(filter->text().isEmpty(), "what is covered still takes keys");
    QTRY_VERIFY(veil->isVeiling());
    DisabledWaitingWtManager::instance().updateDisabledWaitingWtDescription(id, QStringLiteral("1/2"));
    QCOMPARE(veil->description(), QStringLiteral("1/2"));
    QTest::keyClick(veil, Qt::Key_Escape);
    QTest::keyClick(veil, Qt::Key_Escape);
    QCOMPARE(cancelled.size(), 1);
    DisabledWaitingWtManager::instance().destroyDisabledWaitingWt(id);
    QVERIFY(gone.wait());
    QVERIFY2(filter->hasFocus(), "the focus is not back where it was");
    DisabledWaitingWtManager::instance().destroyDisabledWaitingWt(id);
}

QTEST_MAIN(LocalControlsTest)
#include "LocalControlsTest.moc"
