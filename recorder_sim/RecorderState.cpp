#include "RecorderState.h"

#include <QUuid>

#include <chrono>
#include <cstdio>

namespace recorder_sim {
namespace {

/// The value of a fault that strikes so many seconds into the range, or each day at HH:MM:SS.
std::optional<DayMoment> momentOf(const FaultPlan& faults, const char* name, int channel)
{
    const auto text = faults.value(name, channel);
    if (!text)
        return std::nullopt;
    int hour = 0;
    int minute = 0;
    int second = 0;
    if (std::sscanf(text->c_str(), "%2d:%2d:%2d", &hour, &minute, &second) == 3)
        return DayMoment{true, (hour * 60 + minute) * 60 + second};
    return DayMoment{false, faults.number(name, channel).value_or(0)};
}

std::string makeEndpoint(const std::string& serial)
{
    const QUuid space(QStringLiteral("{6f0d1f4e-5a0b-4c3e-9d0b-0d5a2f3c7b11}"));
    const QUuid uuid =
        serial.empty() ? QUuid::createUuid() : QUuid::createUuidV5(space, QString::fromStdString(serial));
    return "urn:uuid:" + uuid.toString(QUuid::WithoutBraces).toStdString();
}

} // namespace

RecorderState::RecorderState(const Options& given)
    : options(given)
    , rtspAuth(given.user, given.password, given.auth, false)
    , httpAuth(given.user, given.password, given.auth, true)
    , endpoint(makeEndpoint(given.serial))
{}

const ChannelFootage* RecorderState::channel(int number) const
{
    return number >= 1 && number <= static_cast<int>(channels.size()) ? &channels[static_cast<std::size_t>(number - 1)]
                                                                      : nullptr;
}

std::int64_t RecorderState::deviceTimeNs() const
{
    const auto now = std::chrono::system_clock::now().time_since_epoch();
    return std::chrono::duration_cast<std::chrono::nanoseconds>(now).count() +
           faults.number("clock-skew").value_or(0) * nsPerSecond;
}

ReplayRange RecorderState::faultyRange(int channel, std::int64_t beginNs, std::int64_t endNs) const
{
    ReplayRange range;
    range.beginNs = beginNs;
    range.endNs = endNs;
    range.earlierGops = static_cast<int>(faults.number("earlier-key", channel).value_or(0));
    range.endsEarlierNs = faults.number("early-end", channel).value_or(0) * nsPerSecond;
    range.change = momentOf(faults, "parameter-set-change", channel);
    range.gap = momentOf(faults, "extra-gap", channel);
    return range;
}

} // namespace recorder_sim
