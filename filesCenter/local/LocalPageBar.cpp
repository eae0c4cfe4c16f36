#include "LocalPageBar.h"

#include <DatetimeSpanSelWt.h>
#include <EmptyStateWt.h>
#include <Icons.h>
#include <PageHeader.h>
#include <TimeSpaceLineEt.h>

#include <QFrame>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QShortcut>
#include <QStackedWidget>
#include <QVBoxLayout>

namespace vemo_filesCenter {

using vemo_base::EmptyStateWt;

namespace {

constexpr int daysShownAtFirst = 7;
constexpr qint64 longestSpanSeconds = 2678400; // 31 days
constexpr int separatorHeight = 24;

} // namespace

vemo_base::PageHeader* LocalPageBar::setUp(const QString& title) const
{
    auto* header = new vemo_base::PageHeader(title, m_page);
    m_parts.pageLayout->insertWidget(0, header);
    m_parts.searchBt->setIcon(vemo_base::Icons::icon(QStringLiteral("search")));
    m_parts.deleteBt->setIcon(vemo_base::Icons::icon(QStringLiteral("clean")));
    m_parts.saveAsBt->setIcon(vemo_base::Icons::icon(QStringLiteral("save-as")));
    m_parts.timeRangeLabel->setForegroundRole(QPalette::PlaceholderText);
    m_parts.separator->setForegroundRole(QPalette::Mid);
    m_parts.separator->setFixedHeight(separatorHeight);

    using vemo_base::DatetimeSpanSelWt;
    using vemo_base::TimeSpaceLineEt;
    TimeSpaceLineEt* range = m_parts.timeRange;
    const QDate today = QDate::currentDate();
    range->setUsingYearInTimeSpaceDescription(false);
    range->setDateTimeSpace(QDateTime(today.addDays(-daysShownAtFirst), QTime(0, 0, 0)),
                            QDateTime(today, QTime(23, 59, 59)));
    auto* selector = new DatetimeSpanSelWt(m_page);
    selector->setMaxSpanSeconds(longestSpanSeconds);
    QObject::connect(range, &TimeSpaceLineEt::clicked, selector, [range, selector] {
        selector->setInitDateTime(range->getBeginDateTime(), range->getEndDateTime());
        selector->showBelow(range);
    });
    QObject::connect(selector, &DatetimeSpanSelWt::signalDatetimeSpanSelected, range,
                     &TimeSpaceLineEt::setDateTimeSpace);

    QLineEdit* filter = m_parts.filterWt;
    auto* find = new QShortcut(QKeySequence::Find, m_page, nullptr, nullptr, Qt::WidgetWithChildrenShortcut);
    QObject::connect(find, &QShortcut::activated, filter, [filter] {
        filter->setFocus(Qt::ShortcutFocusReason);
        filter->selectAll();
    });
    return header;
}

EmptyStateWt* LocalPageBar::addNothing(const QString& icon, const QString& sentence, const QString& advice,
                                       const QString& button) const
{
    auto* state = new EmptyStateWt(icon, sentence, advice, button, m_parts.content);
    state->setButtonSecondary();
    m_parts.content->addWidget(state);
    return state;
}

void LocalPageBar::addNoHit(const QString& sentence, const QString& advice, const QString& button) const
{
    QObject::connect(addNothing(QStringLiteral("filter"), sentence, advice, button), &EmptyStateWt::signalButtonClicked,
                     m_parts.filterWt, &QLineEdit::clear);
}

} // namespace vemo_filesCenter
