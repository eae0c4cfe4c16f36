#include "RtspHeaders.h"

#include <QDateTime>
#include <QTimeZone>

#include <algorithm>

namespace vms_sdk::rtsp {
namespace {

constexpr std::int64_t nsPerMs = 1'000'000;
constexpr std::int64_t nsPerSecond = 1'000'000'000;
constexpr int maxStreams = 16;
constexpr int minSessionTimeoutS = 2;
constexpr int maxSessionTimeoutS = 24 * 3600;

bool parseClock(const QByteArray& text, std::int64_t& timeNs)
{
    // yyyyMMddThhmmss[.fraction]Z
    if (text.size() < 16 || text.at(8) != 'T' || !text.endsWith('Z'))
        return false;
    const QDateTime seconds =
        QDateTime::fromString(QString::fromLatin1(text.left(15)), QStringLiteral("yyyyMMdd'T'hhmmss"));
    if (!seconds.isValid() || seconds.date().year() < 1970 || seconds.date().year() > 2200)
        return false;
    std::int64_t fractionNs = 0;
    if (text.size() > 16) {
        if (text.at(15) != '.')
            return false;
        QByteArray digits = text.mid(16, text.size() - 17).leftJustified(9, '0', true);
        bool isNumber = false;
        fractionNs = digits.toUInt(&isNumber);
        if (!isNumber)
            return false;
    }
    const QDateTime utc(seconds.date(), seconds.time(), Qt::UTC);
    timeNs = utc.toSecsSinceEpoch() * nsPerSecond + fractionNs;
    return true;
}

} // namespace

QByteArray formatClock(std::int64_t timeNs, Rounding rounding)
{
    std::int64_t ms = timeNs / nsPerMs;
    if (rounding == Rounding::Up && timeNs % nsPerMs != 0)
        ++ms;
    return QDateTime::fromMSecsSinceEpoch(ms, Qt::UTC).toString(QStringLiteral("yyyyMMdd'T'hhmmss.zzz'Z'")).toLatin1();
}

bool parseClockRange(const QByteArray& value, std::int64_t& beginNs, std::int64_t& endNs)
{
    beginNs = endNs = 0;
    const QByteArray range = value.split(';').first().trimmed();
    if (!range.toLower().startsWith("clock="))
        return false;
    const QByteArray span = range.mid(6);
    const int dash = span.indexOf('-');
    if (dash < 0 || !parseClock(span.left(dash).trimmed(), beginNs))
        return false;
    const QByteArray end = span.mid(dash + 1).trimmed();
    return end.isEmpty() || parseClock(end, endNs);
}

TransportAnswer parseTransport(const QByteArray& value, std::uint8_t asked)
{
    TransportAnswer answer;
    answer.rtpChannel = asked;
    const QList<QByteArray> parts = value.split(',').first().split(';');
    const QByteArray protocol = parts.first().trimmed().toUpper();
    answer.interleaved = protocol.isEmpty() || protocol.endsWith("/TCP");
    for (const QByteArray& part : parts) {
        const QByteArray text = part.trimmed().toLower();
        if (!text.startsWith("interleaved="))
            continue;
        bool isNumber = false;
        const uint channel = text.mid(12).split('-').first().toUInt(&isNumber);
        // RTCP takes the channel behind it.
        answer.interleaved = isNumber && channel <= 254;
        if (answer.interleaved)
            answer.rtpChannel = static_cast<std::uint8_t>(channel);
    }
    return answer;
}

SessionAnswer parseSession(const QByteArray& value)
{
    SessionAnswer answer;
    const QList<QByteArray> parts = value.split(';');
    answer.id = parts.first().trimmed();
    for (const QByteArray& part : parts) {
        const QByteArray text = part.trimmed().toLower();
        bool isNumber = false;
        const int seconds = text.startsWith("timeout=") ? text.mid(8).toInt(&isNumber) : 0;
        if (isNumber)
            answer.timeoutS = std::clamp(seconds, minSessionTimeoutS, maxSessionTimeoutS);
    }
    return answer;
}

QList<RtpInfoEntry> parseRtpInfo(const QByteArray& value)
{
    QList<RtpInfoEntry> entries;
    for (const QByteArray& stream : value.split(',')) {
        if (entries.size() >= maxStreams)
            break;
        RtpInfoEntry entry;
        for (const QByteArray& part : stream.split(';')) {
            const QByteArray text = part.trimmed();
            const QByteArray lower = text.left(8).toLower();
            if (lower.startsWith("url="))
                entry.url = text.mid(4);
            else if (lower == "rtptime=")
                entry.rtpTime = text.mid(8).toUInt(&entry.hasRtpTime);
        }
        entries.append(entry);
    }
    return entries;
}

QByteArray requestUri(const QUrl& url)
{
    return url.toEncoded(QUrl::RemoveUserInfo | QUrl::RemoveFragment);
}

bool isRtspOverTls(const QUrl& url)
{
    return url.scheme().compare(QLatin1String("rtsps"), Qt::CaseInsensitive) == 0;
}

bool isRtsp(const QUrl& url)
{
    const bool scheme = isRtspOverTls(url) || url.scheme().compare(QLatin1String("rtsp"), Qt::CaseInsensitive) == 0;
    return scheme && !url.host().isEmpty();
}

} // namespace vms_sdk::rtsp
