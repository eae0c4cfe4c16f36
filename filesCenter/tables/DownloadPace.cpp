#include "DownloadPace.h"

#include <cmath>

namespace vemo_filesCenter {

namespace {

/// Earlier than this a rate is a guess.
constexpr qint64 leastRunMs = 2000;

} // namespace

double DownloadPace::Run::footageLeft() const
{
    return static_cast<double>(footageMs) * (100 - progress) / 100;
}

double DownloadPace::Run::speed(qint64 nowMs) const
{
    const qint64 elapsedMs = nowMs - beginMs;
    const double footageDone = static_cast<double>(footageMs) * (progress - beginProgress) / 100;
    return elapsedMs < leastRunMs ? 0 : footageDone / static_cast<double>(elapsedMs);
}

void DownloadPace::note(const QString& key, int progress, qint64 footageMs, qint64 nowMs)
{
    auto run = m_runs.find(key);
    if (run == m_runs.end())
        run = m_runs.insert(key, {nowMs, progress, progress, footageMs});
    run->progress = qMax(run->progress, progress);
}

void DownloadPace::forget(const QString& key)
{
    m_runs.remove(key);
}

qint64 DownloadPace::secondsLeft(const QString& key, qint64 nowMs) const
{
    const Run run = m_runs.value(key);
    const double speed = run.speed(nowMs);
    return speed <= 0 ? -1 : std::llround(run.footageLeft() / speed / 1000);
}

qint64 DownloadPace::secondsLeftForAll(qint64 waitingMs, qint64 nowMs) const
{
    double left = static_cast<double>(waitingMs);
    double speed = 0;
    for (const Run& run : m_runs) {
        left += run.footageLeft();
        speed += run.speed(nowMs);
    }
    return speed <= 0 ? -1 : std::llround(left / speed / 1000);
}

double DownloadPace::secondsRun(const QString& key, qint64 nowMs) const
{
    const auto run = m_runs.constFind(key);
    return run == m_runs.constEnd() ? 0 : static_cast<double>(nowMs - run->beginMs) / 1000;
}

} // namespace vemo_filesCenter
