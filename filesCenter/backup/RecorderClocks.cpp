#include "RecorderClocks.h"

#include "SteadyClock.h"

namespace vemo_filesCenter {

void RecorderClocks::take(const vms_sdk::DevInfo& device, const QDateTime& now)
{
    m_readings.insert(device.devId, {now.addMSecs(device.clockSkewMs), SteadyClock::nowMs()});
}

QDateTime RecorderClocks::now(const QString& devId, const QDateTime& now,
                              const QList<vms_sdk::VideoRecording>& recordings) const
{
    const auto reading = m_readings.constFind(devId);
    if (reading == m_readings.constEnd())
        return now;
    QDateTime recorder = reading->time.addMSecs(SteadyClock::nowMs() - reading->readMs);
    for (const vms_sdk::VideoRecording& recording : recordings)
        recorder = qMax(recorder, recording.end);
    return qMin(now, recorder);
}

} // namespace vemo_filesCenter
