#pragma once

#include <cstdint>
#include <string>

/// Times as texts. Inside the library a time is nanoseconds since 1970 UTC; local times are those of the process' zone.
namespace vaws {

constexpr std::int64_t nsPerSecond = 1'000'000'000;
constexpr std::int64_t nsPerMs = 1'000'000;

/// "yyyyMMddhhmmss", local; with 3 more digits milliseconds; with "Z" behind it UTC. False where it is no such time.
bool parseClockText(const std::string& text, std::int64_t& timeNs);

std::string localClockText(std::int64_t timeNs);    ///< "yyyyMMddhhmmss"
std::string localTimeOfDay(std::int64_t timeNs);    ///< "hh:mm:ss"
std::string localDateTimeText(std::int64_t timeNs); ///< "2026-01-10 08:12:47 +01:00"
std::string isoUtcText(std::int64_t timeNs);        ///< "2026-01-10T08:00:00.000Z"; "" for 0
bool parseIsoUtcText(const std::string& text, std::int64_t& timeNs);

/// "20 s", "3 min 20 s", "2 h 5 min".
std::string lengthText(std::int64_t lengthNs);

} // namespace vaws
