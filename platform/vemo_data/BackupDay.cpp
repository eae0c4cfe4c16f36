#include "BackupDay.h"

namespace vemo_data {

using FileInfo = BackupTaskInfo::FileInfo;

namespace {

constexpr qint64 secondMs = 1000;
constexpr qint64 dayMs = 86'400 * secondMs;

qint64 offsetMs(qint64 utcMs)
{
    return QDateTime::fromMSecsSinceEpoch(utcMs).offsetFromUtc() * secondMs;
}

/// The first and the last moment at which the clock shows that time; the same one on most days.
struct Moments
{
    qint64 first = 0;
    qint64 last = 0;
};

Moments momentsOf(const QDate& date, const QTime& time)
{
    const qint64 wallMs = QDateTime(date, time, Qt::UTC).toMSecsSinceEpoch();
    const qint64 before = wallMs - offsetMs(wallMs - dayMs); // by the clock of the day before
    const qint64 after = wallMs - offsetMs(wallMs + dayMs);
    const bool isBefore = before + offsetMs(before) == wallMs;
    const bool isAfter = after + offsetMs(after) == wallMs;
    if (isBefore && isAfter)
        return {qMin(before, after), qMax(before, after)};
    if (isBefore || isAfter)
        return isBefore ? Moments{before, before} : Moments{after, after};
    // The clock skips that time: the change lies between the two.
    qint64 low = qMin(before, after);
    qint64 high = qMax(before, after);
    const qint64 oldOffset = offsetMs(low);
    while (high - low > 1) {
        const qint64 middle = low + (high - low) / 2;
        (offsetMs(middle) == oldOffset ? low : high) = middle;
    }
    return {high, high};
}

QDateTime moment(qint64 utcMs)
{
    return QDateTime::fromMSecsSinceEpoch(utcMs);
}

QTime wholeSecond(const QTime& time)
{
    return QTime(time.hour(), time.minute(), time.second());
}

} // namespace

QDateTime BackupDay::startOf(const QDate& date, const QTime& time, bool secondPass)
{
    if (!date.isValid() || !time.isValid())
        return {};
    const Moments moments = momentsOf(date, time);
    return moment(secondPass ? moments.last : moments.first);
}

QDateTime BackupDay::endOf(const QDate& date, const QTime& time, bool firstPass)
{
    return startOf(date, time, !firstPass);
}

bool BackupDay::isDoubled(const QDateTime& moment)
{
    if (!moment.isValid())
        return false;
    const QDateTime local = moment.toLocalTime();
    const Moments moments = momentsOf(local.date(), local.time());
    return moments.first != moments.last;
}

QDateTime BackupDay::startOf(const BackupTaskInfo& task, const FileInfo& entry)
{
    return startOf(task.date, entry.startTime, entry.startsInSecondPass);
}

QDateTime BackupDay::endOf(const BackupTaskInfo& task, const FileInfo& entry)
{
    return endOf(task.date, entry.endTime, entry.endsInFirstPass);
}

void BackupDay::setStart(FileInfo* entry, const QDateTime& moment)
{
    const QDateTime local = moment.toLocalTime();
    entry->startTime = wholeSecond(local.time());
    entry->startsInSecondPass = startOf(local.date(), local.time()) < local;
}

void BackupDay::setEnd(FileInfo* entry, const QDateTime& moment)
{
    const QDateTime local = moment.toLocalTime();
    entry->endTime = wholeSecond(local.time());
    entry->endsInFirstPass = endOf(local.date(), local.time()) > local;
}

} // namespace vemo_data
