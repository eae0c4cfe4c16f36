#pragma once

#include <QByteArray>
#include <QHash>
#include <QList>

#include <cstdint>

namespace vms_sdk::rtsp {

/// One media description of a session description (RFC 4566 clause 5.14), reduced to what a receiver of RTP needs.
struct SdpMedia
{
    QByteArray type;      ///< "video", "audio", "application"
    int payloadType = -1; ///< the first one offered
    QByteArray
        encoding; ///< of that payload type, upper case: from a=rtpmap, or the static assignment (RFC 3551 clause 6)
    std::uint32_t clockRate = 0;
    int channels = 1;
    QHash<QByteArray, QByteArray> formatParameters; ///< a=fmtp, names in lower case
    QByteArray control;
    bool isSendOnly = false; ///< a=sendonly

    /// A parameter that is a number, `missing` when it is not there or no number.
    int formatNumber(const char* name, int missing) const;
};

struct SdpSession
{
    QByteArray control;
    QList<SdpMedia> media;
};

/// Reads a session description. Unknown lines and attributes are passed over; false when it is none at all or beyond
/// the limits of 4,096 lines, 64 media and 64 KiB of format parameters a media.
bool parseSdp(const QByteArray& text, SdpSession& session);

/// The address to which a control attribute refers: absolute as it stands, "*" or nothing is the base itself, else the
/// base with the attribute behind it.
QByteArray resolveControl(const QByteArray& base, const QByteArray& control);

} // namespace vms_sdk::rtsp
