#include "RecorderState.h"

#include <chrono>
#include <cstdio>

namespace recorder_sim {

RecorderState::RecorderState(const Options& given)
    : options(given)
    , rtspAuth(given.user, given.password, given.auth, false)
    , httpAuth(given.user, given.password, given.auth, true)
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
    if (const auto change = faults.value("parameter-set-change", channel)) {
        int hour = 0;
        int minute = 0;
        int second = 0;
        if (std::sscanf(change->c_str(), "%2d:%2d:%2d", &hour, &minute, &second) == 3)
            range.changeAtSecondOfDay = (hour * 60 + minute) * 60 + second;
        else
            range.changeAfterNs = faults.number("parameter-set-change", channel).value_or(0) * nsPerSecond;
    }
    return range;
}

} // namespace recorder_sim
