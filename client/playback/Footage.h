#pragma once

#include <axis/DayAxis.h>
#include <axis/TimeSpan.h>
#include <VmsTypes.h>

#include <QList>
#include <QVector>

#include <optional>

namespace vemo_client {

/// The stretches of a day in which a channel has pictures: its recordings cut to the day, joined where they touch,
/// overlap or leave a second or less between them. A value; times are ms since 1970 UTC.
class Footage final
{
public:
    Footage() = default;
    Footage(const vemo_base::DayAxis& day, const QList<vms_sdk::VideoRecording>& recordings);
    /// Of a recorder that has no list: there may be pictures at any time of the day.
    static Footage anywhere(const vemo_base::DayAxis& day);

    bool isEmpty() const { return m_spans.isEmpty(); }
    bool covers(qint64 ms) const;
    /// `ms` itself when it is covered, else where the next stretch begins; nothing behind the last one.
    std::optional<qint64> nextFrom(qint64 ms) const;
    /// What lies between the stretches around an uncovered time, within the day.
    vemo_base::TimeSpan gapAt(qint64 ms) const;

private:
    /// The first stretch that ends behind `ms`.
    QVector<vemo_base::TimeSpan>::const_iterator endingBehind(qint64 ms) const;

    vemo_base::TimeSpan m_day;
    QVector<vemo_base::TimeSpan> m_spans; ///< in order, apart from each other
};

} // namespace vemo_client
