#pragma once

#include "DaySearch.h"

#include <QDate>
#include <QHash>
#include <QObject>
#include <QSet>
#include <QTimer>

#include <optional>

namespace vemo_base {
class DayCalendar;
}

namespace vemo_client {

/// Marks the days of the shown month on which a channel has recordings. What the searches of days found is known at
/// once; the rest of a month is asked for when nothing else has been for a while, one channel, one request, once a
/// month of it. GUI thread, child of the calendar's owner.
class MonthDays final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(MonthDays)

public:
    explicit MonthDays(vemo_base::DayCalendar* calendar, QObject* parent = nullptr);

    void setChannel(const std::optional<ChannelRef>& channel);
    /// False while the recorder is busy with something that a person waits for, or is not there.
    void setAllowed(bool allowed);
    /// A search of that day found recordings.
    void note(const ChannelRef& channel, const QDate& day);

private:
    struct Month
    {
        QSet<int> days;
        bool isWhole = false; ///< it was asked for
    };

    Month& month(const ChannelRef& channel, const QDate& day);
    QDate shown() const;
    void ask();
    void take(const QList<vms_sdk::VideoRecording>& recordings);
    void show();

    vemo_base::DayCalendar* m_calendar;
    std::optional<ChannelRef> m_channel;
    bool m_isAllowed = false;
    QHash<QString, Month> m_months; ///< by channel and month
    DaySearch m_search;
    QDate m_asked;
    QTimer m_restTimer;
};

} // namespace vemo_client
