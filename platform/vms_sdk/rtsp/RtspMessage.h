#pragma once

#include <QByteArray>
#include <QList>

#include <utility>

namespace vms_sdk::rtsp {

using RtspHeader = std::pair<QByteArray, QByteArray>; ///< name, value
using RtspHeaderList = QList<RtspHeader>;

/// One RTSP message (RFC 2326 clause 4): a response when `status` is not 0, else a request of the peer. Header names
/// keep their spelling and are compared without case; values are trimmed and their continuation lines joined by a
/// space.
struct RtspMessage
{
    int status = 0;
    QByteArray reason;
    QByteArray method;
    QByteArray uri;
    RtspHeaderList headers;
    QByteArray body;

    bool isResponse() const { return status != 0; }
    bool hasHeader(const char* name) const;
    /// The first header of that name, empty when there is none.
    QByteArray header(const char* name) const;
    /// All headers of that name in their order.
    QList<QByteArray> headerList(const char* name) const;
    /// The CSeq header, -1 when it is missing or no number.
    int sequence() const;

    /// Reads "RTSP/1.0 200 OK" or "METHOD uri RTSP/1.0"; false when it is neither.
    bool parseStartLine(const QByteArray& line);
    /// Reads one "Name: value" line; false when it has no name.
    bool appendHeaderLine(const QByteArray& line);

    /// The bytes on the wire. A Content-Length is added when there is a body.
    QByteArray serialized() const;
};

} // namespace vms_sdk::rtsp
