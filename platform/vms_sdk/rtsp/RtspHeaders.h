#pragma once

#include <QByteArray>
#include <QList>
#include <QUrl>

#include <cstdint>

/// Values of single RTSP headers, read and written.
namespace vms_sdk::rtsp {

enum class Rounding : std::uint8_t { Down, Up };

/// utc-time of RFC 2326 clause 3.7 in milliseconds, "20240131T235959.123Z". Recorders exist that read no finer
/// fraction.
QByteArray formatClock(std::int64_t timeNs, Rounding rounding);

/// "clock=20240131T235959.123Z-20240201T000000Z"; an open end is 0. False when it is no such range.
bool parseClockRange(const QByteArray& value, std::int64_t& beginNs, std::int64_t& endNs);

/// The Transport of a SETUP answer (RFC 2326 clause 12.39).
struct TransportAnswer
{
    bool interleaved = false; ///< RTP over this connection
    std::uint8_t rtpChannel = 0;
};
/// `asked` is the channel that holds when the answer names none. Recorders exist that leave the whole answer out, or
/// "/TCP" out of it; who names a channel of this connection sends on it.
TransportAnswer parseTransport(const QByteArray& value, std::uint8_t asked);

/// "12345678;timeout=60" (RFC 2326 clause 12.37).
struct SessionAnswer
{
    QByteArray id;
    int timeoutS = 60;
};
SessionAnswer parseSession(const QByteArray& value);

/// One stream of an RTP-Info header (RFC 2326 clause 12.33).
struct RtpInfoEntry
{
    QByteArray url;
    bool hasRtpTime = false;
    std::uint32_t rtpTime = 0;
};
QList<RtpInfoEntry> parseRtpInfo(const QByteArray& value);

/// The address as a request names it: encoded, without user, password and fragment.
QByteArray requestUri(const QUrl& url);

bool isRtspOverTls(const QUrl& url); ///< rtsps
bool isRtsp(const QUrl& url);        ///< rtsp or rtsps, with a host

} // namespace vms_sdk::rtsp
