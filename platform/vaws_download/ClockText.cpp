#include "ClockText.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cstdio>
#include <cstdlib>
#include <ctime>

namespace vaws {
namespace {

// platform file: the reentrant calls of <ctime> have other names and orders on Windows
std::tm localParts(std::time_t seconds)
{
    std::tm parts{};
#ifdef _WIN32
    localtime_s(&parts, &seconds);
#else
    localtime_r(&seconds, &parts);
#endif
    return parts;
}

/// Days since 1970-01-01 of a date of the Gregorian calendar.
std::int64_t daysFromCivil(int year, int month, int day)
{
    const int shifted = month <= 2 ? year - 1 : year;
    const int era = shifted / 400;
    const int yearOfEra = shifted - era * 400;
    const int dayOfYear = (153 * (month + (month > 2 ? -3 : 9)) + 2) / 5 + day - 1;
    const int dayOfEra = yearOfEra * 365 + yearOfEra / 4 - yearOfEra / 100 + dayOfYear;
    return std::int64_t{era} * 146097 + dayOfEra - 719468;
}

void civilFromDays(std::int64_t days, int& year, int& month, int& day)
{
    days += 719468;
    const std::int64_t era = days / 146097;
    const int dayOfEra = static_cast<int>(days - era * 146097);
    const int yearOfEra = (dayOfEra - dayOfEra / 1460 + dayOfEra / 36524 - dayOfEra / 146096) / 365;
    const int dayOfYear = dayOfEra - (365 * yearOfEra + yearOfEra / 4 - yearOfEra / 100);
    const int shiftedMonth = (5 * dayOfYear + 2) / 153;
    day = dayOfYear - (153 * shiftedMonth + 2) / 5 + 1;
    month = shiftedMonth + (shiftedMonth < 10 ? 3 : -9);
    year = static_cast<int>(era * 400) + yearOfEra + (month <= 2 ? 1 : 0);
}

struct ClockFields
{
    int year = 0, month = 0, day = 0, hour = 0, minute = 0, second = 0, ms = 0;

    bool plausible() const
    {
        return year >= 1970 && year < 2262 && month >= 1 && month <= 12 && day >= 1 && day <= 31 && hour < 24 &&
               minute < 60 && second < 60;
    }
    std::int64_t utcNs() const
    {
        const std::int64_t seconds = daysFromCivil(year, month, day) * 86400 + hour * 3600 + minute * 60 + second;
        return seconds * nsPerSecond + ms * nsPerMs;
    }
};

std::time_t floorSeconds(std::int64_t timeNs)
{
    return static_cast<std::time_t>(timeNs / nsPerSecond - (timeNs % nsPerSecond < 0 ? 1 : 0));
}

} // namespace

bool parseClockText(const std::string& text, std::int64_t& timeNs)
{
    std::string digits = text;
    const bool utc = !digits.empty() && digits.back() == 'Z';
    if (utc)
        digits.pop_back();
    const bool numeric = std::all_of(digits.begin(), digits.end(), [](char c) { return c >= '0' && c <= '9'; });
    if (!numeric || (digits.size() != 14 && digits.size() != 17))
        return false;
    auto number = [&](std::size_t at, std::size_t count) { return std::stoi(digits.substr(at, count)); };
    ClockFields fields;
    fields.year = number(0, 4);
    fields.month = number(4, 2);
    fields.day = number(6, 2);
    fields.hour = number(8, 2);
    fields.minute = number(10, 2);
    fields.second = number(12, 2);
    fields.ms = digits.size() == 17 ? number(14, 3) : 0;
    if (!fields.plausible())
        return false;
    if (utc) {
        timeNs = fields.utcNs();
        return true;
    }
    std::tm parts{};
    parts.tm_year = fields.year - 1900;
    parts.tm_mon = fields.month - 1;
    parts.tm_mday = fields.day;
    parts.tm_hour = fields.hour;
    parts.tm_min = fields.minute;
    parts.tm_sec = fields.second;
    parts.tm_isdst = -1;
    const std::time_t seconds = std::mktime(&parts);
    if (seconds < 0)
        return false;
    timeNs = std::int64_t{seconds} * nsPerSecond + fields.ms * nsPerMs;
    return true;
}

std::string localClockText(std::int64_t timeNs)
{
    const std::tm parts = localParts(floorSeconds(timeNs));
    std::array<char, 32> text{};
    std::strftime(text.data(), text.size(), "%Y%m%d%H%M%S", &parts);
    return text.data();
}

std::string localTimeOfDay(std::int64_t timeNs)
{
    const std::tm parts = localParts(floorSeconds(timeNs));
    std::array<char, 32> text{};
    std::strftime(text.data(), text.size(), "%H:%M:%S", &parts);
    return text.data();
}

std::string localDateTimeText(std::int64_t timeNs)
{
    const std::time_t seconds = floorSeconds(timeNs);
    const std::tm parts = localParts(seconds);
    const std::int64_t local = daysFromCivil(parts.tm_year + 1900, parts.tm_mon + 1, parts.tm_mday) * 86400 +
                               parts.tm_hour * 3600 + parts.tm_min * 60 + parts.tm_sec;
    const auto offset = static_cast<int>((local - std::int64_t{seconds}) / 60);
    const int minutes = std::abs(offset);
    std::array<char, 96> text{};
    std::snprintf(text.data(), text.size(), "%04d-%02d-%02d %02d:%02d:%02d %c%02d:%02d", parts.tm_year + 1900,
                  parts.tm_mon + 1, parts.tm_mday, parts.tm_hour, parts.tm_min, parts.tm_sec, offset < 0 ? '-' : '+',
                  minutes / 60, minutes % 60);
    return text.data();
}

std::string isoUtcText(std::int64_t timeNs)
{
    if (timeNs <= 0)
        return {};
    const std::int64_t ms = timeNs / nsPerMs;
    const std::int64_t seconds = ms / 1000;
    int year = 0, month = 0, day = 0;
    civilFromDays(seconds / 86400, year, month, day);
    const int ofDay = static_cast<int>(seconds % 86400);
    std::array<char, 96> text{};
    std::snprintf(text.data(), text.size(), "%04d-%02d-%02dT%02d:%02d:%02d.%03dZ", year, month, day, ofDay / 3600,
                  ofDay / 60 % 60, ofDay % 60, static_cast<int>(ms % 1000));
    return text.data();
}

bool parseIsoUtcText(const std::string& text, std::int64_t& timeNs)
{
    ClockFields fields;
    int read = 0;
    if (text.size() < 20 || text.size() > 30 || text.back() != 'Z' ||
        std::sscanf(text.c_str(), "%4d-%2d-%2dT%2d:%2d:%2d%n", &fields.year, &fields.month, &fields.day, &fields.hour,
                    &fields.minute, &fields.second, &read) != 6)
        return false;
    if (text[static_cast<std::size_t>(read)] == '.' && std::sscanf(text.c_str() + read, ".%3dZ", &fields.ms) != 1)
        return false;
    if (!fields.plausible() || fields.hour < 0 || fields.minute < 0 || fields.second < 0 || fields.ms < 0)
        return false;
    timeNs = fields.utcNs();
    return true;
}

std::string lengthText(std::int64_t lengthNs)
{
    const std::int64_t seconds = (lengthNs + nsPerSecond / 2) / nsPerSecond;
    if (seconds < 60)
        return std::to_string(seconds) + " s";
    if (seconds < 3600)
        return std::to_string(seconds / 60) + " min" + (seconds % 60 ? " " + std::to_string(seconds % 60) + " s" : "");
    return std::to_string(seconds / 3600) + " h" +
           (seconds / 60 % 60 ? " " + std::to_string(seconds / 60 % 60) + " min" : "");
}

} // namespace vaws
