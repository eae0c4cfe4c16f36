#include "rtsp/RtspUrl.h"

#include "net/RequestReader.h"

#include <QDate>
#include <QDateTime>
#include <QTime>

#include <charconv>
#include <cstdio>
#include <cstdlib>

namespace recorder_sim {
namespace {

constexpr std::int64_t nsPerSecond = 1'000'000'000;
constexpr std::int64_t ntpEpochNs = 2'208'988'800 * nsPerSecond;

bool readDigits(std::string_view text, std::size_t at, std::size_t count, int& value)
{
    if (at + count > text.size())
        return false;
    const auto [end, error] = std::from_chars(text.data() + at, text.data() + at + count, value);
    return error == std::errc() && end == text.data() + at + count && value >= 0;
}

std::optional<std::int64_t> parseNpt(std::string_view text)
{
    const std::string copy(text);
    char* end = nullptr;
    const double seconds = std::strtod(copy.c_str(), &end);
    if (copy.empty() || end == copy.c_str() || !(seconds >= 0) || seconds > 5e9)
        return std::nullopt;
    return static_cast<std::int64_t>(seconds * 1e9);
}

} // namespace

std::string RtspUrl::queryValue(std::string_view key) const
{
    return parameterValue(query, key, '&');
}

RtspUrl RtspUrl::parse(std::string_view target)
{
    RtspUrl url;
    if (target == "*") {
        url.kind = Kind::Server;
        return url;
    }
    if (const std::size_t mark = target.find('?'); mark != std::string_view::npos) {
        url.query = target.substr(mark + 1);
        target = target.substr(0, mark);
        // Players put the track behind the query.
        if (const std::size_t slash = url.query.find('/'); slash != std::string::npos) {
            std::string_view rest = std::string_view(url.query).substr(slash);
            if (rest.substr(0, 9) == "/trackID=")
                url.track = std::atoi(std::string(rest.substr(9)).c_str());
            url.query.resize(slash);
        }
    }
    while (!target.empty() && target.back() == '/')
        target.remove_suffix(1);
    if (const std::size_t track = target.rfind("/trackID="); track != std::string_view::npos) {
        const std::string number(target.substr(track + 9));
        url.track = std::atoi(number.c_str());
        target = target.substr(0, track);
    }
    url.base = target;
    const std::size_t scheme = target.find("://");
    const std::size_t path = scheme == std::string_view::npos ? 0 : target.find('/', scheme + 3);
    if (path == std::string_view::npos) {
        url.kind = Kind::Server;
        return url;
    }
    std::string_view rest = target.substr(path);
    if (rest.substr(0, 6) == "/live/") {
        url.kind = Kind::Live;
        rest.remove_prefix(6);
        constexpr std::string_view subStream = "/sub";
        url.isSub = rest.size() > subStream.size() && rest.substr(rest.size() - subStream.size()) == subStream;
        if (url.isSub)
            rest.remove_suffix(subStream.size());
    } else if (rest.substr(0, 8) == "/replay/") {
        url.kind = Kind::Replay;
        rest.remove_prefix(8);
    } else {
        return url;
    }
    const auto [end, error] = std::from_chars(rest.data(), rest.data() + rest.size(), url.channel);
    if (error != std::errc() || end != rest.data() + rest.size())
        url.kind = Kind::Unknown;
    return url;
}

std::optional<std::int64_t> parseClock(std::string_view text)
{
    int year = 0;
    int month = 0;
    int day = 0;
    int hour = 0;
    int minute = 0;
    int second = 0;
    if (text.size() < 16 || text[8] != 'T' || text.back() != 'Z' || !readDigits(text, 0, 4, year) ||
        !readDigits(text, 4, 2, month) || !readDigits(text, 6, 2, day) || !readDigits(text, 9, 2, hour) ||
        !readDigits(text, 11, 2, minute) || !readDigits(text, 13, 2, second))
        return std::nullopt;
    const QDateTime time(QDate(year, month, day), QTime(hour, minute, second), Qt::UTC);
    if (!time.isValid())
        return std::nullopt;
    std::int64_t ns = 0;
    if (text[15] == '.') {
        std::int64_t scale = nsPerSecond / 10;
        for (std::size_t i = 16; i + 1 < text.size(); ++i, scale /= 10) {
            if (text[i] < '0' || text[i] > '9')
                return std::nullopt;
            ns += (text[i] - '0') * scale;
        }
    } else if (text.size() != 16) {
        return std::nullopt;
    }
    return time.toMSecsSinceEpoch() * 1'000'000 + ns;
}

std::string clockText(std::int64_t utcNs)
{
    const QDateTime time = QDateTime::fromMSecsSinceEpoch(utcNs / 1'000'000, Qt::UTC);
    std::string text = time.toString(QStringLiteral("yyyyMMdd'T'HHmmss")).toStdString();
    if (const std::int64_t rest = utcNs % nsPerSecond; rest != 0) {
        char fraction[16];
        std::snprintf(fraction, sizeof fraction, ".%09lld", static_cast<long long>(rest));
        text += fraction;
        while (text.back() == '0')
            text.pop_back();
    }
    return text + "Z";
}

std::optional<RtspRange> RtspRange::parse(std::string_view text)
{
    text = trimmed(text.substr(0, text.find(';')));
    const bool isClock = text.substr(0, 6) == "clock=";
    if (!isClock && text.substr(0, 4) != "npt=")
        return std::nullopt;
    text.remove_prefix(isClock ? 6 : 4);
    const std::size_t dash = text.find('-');
    const std::string_view begin = trimmed(text.substr(0, dash));
    const std::string_view end = dash == std::string_view::npos ? std::string_view() : trimmed(text.substr(dash + 1));
    RtspRange range;
    range.isClock = isClock;
    if (!begin.empty() && begin != "now") {
        range.beginNs = isClock ? parseClock(begin) : parseNpt(begin);
        if (!range.beginNs)
            return std::nullopt;
    }
    if (!end.empty()) {
        range.endNs = isClock ? parseClock(end) : parseNpt(end);
        if (!range.endNs)
            return std::nullopt;
    }
    // A player that took its span from a=range:clock= asks for it as npt, in seconds since 1900.
    if (!isClock && range.beginNs.value_or(0) >= ntpEpochNs) {
        range.isClock = true;
        *range.beginNs -= ntpEpochNs;
        if (range.endNs)
            *range.endNs -= ntpEpochNs;
    }
    return range;
}

} // namespace recorder_sim
