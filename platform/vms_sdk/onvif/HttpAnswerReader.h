#pragma once

#include "Error.h"

#include <QByteArray>
#include <QCoreApplication>
#include <QList>
#include <QPair>
#include <QVector>

namespace vms_sdk::onvif {

/// Bounds of an HTTP answer.
struct HttpLimits
{
    int lineBytes = 8 * 1024;
    int headers = 128;
    int bodyBytes = 8 * 1024 * 1024;
};

struct HttpAnswer
{
    int status = 0;
    QVector<QPair<QByteArray, QByteArray>> headers;
    QByteArray body;
    bool keepsConnection = false;

    QByteArray header(const char* name) const; ///< the first one of that name, compared without case
    QList<QByteArray> allHeaders(const char* name) const;
};

/// Reads one HTTP/1.x answer (RFC 9112) from bytes in pieces of any size. Every length is held against HttpLimits
/// before a byte is kept; interim answers (1xx) are skipped. Own reader, because QNetworkAccessManager keeps header
/// lines of any length in memory and hands out a body only when it wants to. Pure, any thread; after Failed it stays
/// failed.
class HttpAnswerReader final
{
    Q_DECLARE_TR_FUNCTIONS(vms_sdk::onvif::HttpAnswerReader)

public:
    enum class Status { NeedsMore, Done, Failed };

    explicit HttpAnswerReader(const HttpLimits& limits = {})
        : m_limits(limits)
    {}

    Status feed(const QByteArray& bytes);
    /// The peer closed the connection: ends a body without a length, tears every other one.
    Status end();

    bool hasBegun() const { return m_hasBegun; }
    const HttpAnswer& answer() const { return m_answer; }
    const Error& error() const { return m_error; }

private:
    enum class Part { StatusLine, Headers, Body, BodyToEnd, ChunkSize, ChunkData, ChunkEnd, Trailers };

    Status step();
    Status readLine();
    Status takeLine(const QByteArray& line);
    Status takeStatusLine(const QByteArray& line);
    Status takeHeader(const QByteArray& line);
    Status takeChunkSize(const QByteArray& line);
    Status headersDone();
    Status takeBody();
    Status fail(const QString& message, const QString& context = {});

    HttpLimits m_limits;
    QByteArray m_buffer;
    int m_position = 0;
    Part m_part = Part::StatusLine;
    qint64 m_bodyLeft = 0;
    int m_lines = 0; ///< header and trailer lines, interim answers included
    bool m_hasBegun = false;
    bool m_isHttp11 = false;
    Status m_status = Status::NeedsMore;
    HttpAnswer m_answer;
    Error m_error;
};

} // namespace vms_sdk::onvif
