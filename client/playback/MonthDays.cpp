#include "MonthDays.h"

#include <axis/DayCalendar.h>

namespace vemo_client {

namespace {

constexpr int restMs = 1500;
constexpr int mostMonths = 500;

} // namespace

MonthDays::MonthDays(vemo_base::DayCalendar* calendar, QObject* parent)
    : QObject(parent)
    , m_calendar(calendar)
{
    m_restTimer.setSingleShot(true);
    m_restTimer.setInterval(restMs);
    connect(&m_restTimer, &QTimer::timeout, this, &MonthDays::ask);
    connect(m_calendar, &QCalendarWidget::currentPageChanged, this, &MonthDays::show);
    connect(&m_search, &DaySearch::signalFound, this,
            [this](int, const QList<vms_sdk::VideoRecording>& recordings) { take(recordings); });
}

QDate MonthDays::shown() const
{
    return QDate(m_calendar->yearShown(), m_calendar->monthShown(), 1);
}

MonthDays::Month& MonthDays::month(const ChannelRef& channel, const QDate& day)
{
    if (m_months.size() > mostMonths)
        m_months.clear();
    return m_months[QStringLiteral("%1 %2 %3").arg(day.toString(QStringLiteral("yyyyMM"))).arg(channel.channelNo) %
                    channel.devId];
}

void MonthDays::setChannel(const std::optional<ChannelRef>& channel)
{
    if (channel == m_channel)
        return;
    m_search.cancel();
    m_channel = channel;
    show();
}

void MonthDays::setAllowed(bool allowed)
{
    if (allowed == m_isAllowed)
        return;
    m_isAllowed = allowed;
    if (!allowed)
        m_search.cancel();
    show();
}

void MonthDays::note(const ChannelRef& channel, const QDate& day)
{
    month(channel, day).days.insert(day.day());
    show();
}

void MonthDays::show()
{
    m_restTimer.stop();
    if (!m_channel) {
        m_calendar->setMarkedDays({});
        return;
    }
    const Month& known = month(*m_channel, shown());
    m_calendar->setMarkedDays(known.days);
    if (m_isAllowed && !known.isWhole && shown() <= QDate::currentDate() && !m_search.isRunning())
        m_restTimer.start();
}

void MonthDays::ask()
{
    m_asked = shown();
    m_search.start({*m_channel},
                   {m_asked.startOfDay().toMSecsSinceEpoch(), m_asked.addMonths(1).startOfDay().toMSecsSinceEpoch()});
}

void MonthDays::take(const QList<vms_sdk::VideoRecording>& recordings)
{
    Month& asked = month(*m_channel, m_asked);
    asked.isWhole = true;
    for (const vms_sdk::VideoRecording& recording : recordings) {
        const QDate last = qMin(recording.end.addMSecs(-1).date(), m_asked.addMonths(1).addDays(-1));
        for (QDate day = qMax(recording.begin.date(), m_asked); day <= last; day = day.addDays(1))
            asked.days.insert(day.day());
    }
    show();
}

} // namespace vemo_client
