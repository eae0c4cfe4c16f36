#include "SdpParser.h"

namespace vms_sdk::rtsp {
namespace {

constexpr int maxLines = 4096;
constexpr int maxMedia = 64;
constexpr int maxFormatBytes = 64 * 1024;

struct StaticPayload
{
    int payloadType;
    const char* encoding;
    std::uint32_t clockRate;
};

// RFC 3551 tables 4 and 5, as far as a recorder sends them. 2 is G.721, which became G.726 at 32 kbit/s.
constexpr StaticPayload staticPayloads[] = {
    {0, "PCMU", 8000},
    {2, "G726-32", 8000},
    {8, "PCMA", 8000},
    {26, "JPEG", 90000},
};

bool startsMedia(const QByteArray& value, SdpMedia& media)
{
    // m=<media> <port>[/<count>] <proto> <fmt> ...
    QList<QByteArray> words = value.simplified().split(' ');
    if (words.size() < 4)
        return false;
    media.type = words.at(0).toLower();
    bool isNumber = false;
    const int payloadType = words.at(3).toInt(&isNumber);
    if (!isNumber || payloadType < 0 || payloadType > 127)
        return true;
    media.payloadType = payloadType;
    for (const StaticPayload& known : staticPayloads) {
        if (known.payloadType == payloadType) {
            media.encoding = known.encoding;
            media.clockRate = known.clockRate;
        }
    }
    return true;
}

/// Splits "<payload type> <rest>" and tells whether the type is the media's.
bool isForPayload(const SdpMedia& media, const QByteArray& value, QByteArray& rest)
{
    const int space = value.indexOf(' ');
    if (space <= 0)
        return false;
    bool isNumber = false;
    const int payloadType = value.left(space).toInt(&isNumber);
    rest = value.mid(space + 1).trimmed();
    return isNumber && payloadType == media.payloadType;
}

void readRtpMap(SdpMedia& media, const QByteArray& value)
{
    QByteArray rest;
    if (!isForPayload(media, value, rest))
        return;
    const QList<QByteArray> parts = rest.split('/');
    if (parts.size() < 2)
        return;
    bool isNumber = false;
    const uint clockRate = parts.at(1).trimmed().toUInt(&isNumber);
    if (!isNumber || clockRate == 0 || clockRate > 1'000'000)
        return;
    media.encoding = parts.at(0).trimmed().toUpper();
    media.clockRate = clockRate;
    if (parts.size() > 2) {
        const int channels = parts.at(2).trimmed().toInt(&isNumber);
        if (isNumber && channels >= 1 && channels <= 8)
            media.channels = channels;
    }
}

bool readFormat(SdpMedia& media, const QByteArray& value)
{
    QByteArray rest;
    if (!isForPayload(media, value, rest))
        return true;
    if (rest.size() > maxFormatBytes)
        return false;
    for (const QByteArray& part : rest.split(';')) {
        const int equals = part.indexOf('=');
        const QByteArray name = (equals < 0 ? part : part.left(equals)).trimmed().toLower();
        if (!name.isEmpty())
            media.formatParameters.insert(name, equals < 0 ? QByteArray() : part.mid(equals + 1).trimmed());
    }
    return true;
}

bool readMediaAttribute(SdpMedia& media, const QByteArray& name, const QByteArray& value)
{
    if (name == "rtpmap")
        readRtpMap(media, value);
    else if (name == "fmtp")
        return readFormat(media, value);
    else if (name == "control")
        media.control = value;
    else if (name == "sendonly")
        media.isSendOnly = true;
    return true;
}

} // namespace

int SdpMedia::formatNumber(const char* name, int missing) const
{
    bool isNumber = false;
    const int value = formatParameters.value(QByteArray(name)).toInt(&isNumber);
    return isNumber ? value : missing;
}

bool parseSdp(const QByteArray& text, SdpSession& session)
{
    session = SdpSession();
    int lines = 0;
    bool versionSeen = false;
    int begin = 0;
    while (begin < text.size()) {
        int end = text.indexOf('\n', begin);
        if (end < 0)
            end = text.size();
        const QByteArray line = text.mid(begin, end - begin).trimmed();
        begin = end + 1;
        if (++lines > maxLines)
            return false;
        if (line.size() < 2 || line.at(1) != '=')
            continue;
        const QByteArray value = line.mid(2).trimmed();
        switch (line.at(0)) {
        case 'v':
            versionSeen = true;
            break;
        case 'm': {
            SdpMedia media;
            if (session.media.size() >= maxMedia)
                return false;
            if (!startsMedia(value, media))
                return false;
            session.media.append(media);
            break;
        }
        case 'a': {
            const int colon = value.indexOf(':');
            const QByteArray name = (colon < 0 ? value : value.left(colon)).toLower();
            const QByteArray argument = colon < 0 ? QByteArray() : value.mid(colon + 1).trimmed();
            if (session.media.isEmpty()) {
                if (name == "control")
                    session.control = argument;
            } else if (!readMediaAttribute(session.media.last(), name, argument)) {
                return false;
            }
            break;
        }
        default:
            break;
        }
    }
    return versionSeen && !session.media.isEmpty();
}

QByteArray resolveControl(const QByteArray& base, const QByteArray& control)
{
    if (control.isEmpty() || control == "*")
        return base;
    const QByteArray lower = control.left(8).toLower();
    if (lower.startsWith("rtsp://") || lower.startsWith("rtsps://"))
        return control;
    const bool slashBehind = base.endsWith('/');
    const bool slashBefore = control.startsWith('/');
    if (slashBehind && slashBefore)
        return base + control.mid(1);
    return slashBehind || slashBefore ? QByteArray(base + control) : QByteArray(base + '/' + control);
}

} // namespace vms_sdk::rtsp
