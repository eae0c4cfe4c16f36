#pragma once

#include <QMetaType>
#include <QString>

namespace vms_sdk {

/// Why something did not work, for code that decides. Zero means that nothing failed.
enum class ErrorKind : int {
    None = 0,
    LoginRefused = 1,
    Unreachable = 2,
    LimitReached = 3, ///< sessions, connections or bandwidth of the recorder (RTSP 453, 503)
    NotFound = 4,     ///< no such channel, recording or address
    NoReplay = 5,     ///< the recorder offers no replay address
    TimedOut = 6,
    BrokenOff = 7,
    Corrupt = 8,     ///< an answer that cannot be read, or beyond a limit
    Unsupported = 9, ///< codec, transport or service that this client does not speak
    CertificateRefused = 10,
    Cancelled = 11,
    Refused = 12, ///< any other refusal by the recorder
    AccountLocked = 13,
    NotActivated = 14,
};

/// One failure: `message` is a sentence for a person, without secrets; `context` the evidence for the log.
struct Error
{
    ErrorKind kind = ErrorKind::None;
    QString message;
    QString context;

    explicit operator bool() const { return kind != ErrorKind::None; }
};

} // namespace vms_sdk

Q_DECLARE_METATYPE(vms_sdk::ErrorKind)
Q_DECLARE_METATYPE(vms_sdk::Error)
