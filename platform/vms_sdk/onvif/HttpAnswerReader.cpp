#include "HttpAnswerReader.h"

#include <algorithm>

namespace vms_sdk::onvif {

QByteArray HttpAnswer::header(const char* name) const
{
    for (const auto& entry : headers) {
        if (qstricmp(entry.first.constData(), name) == 0)
            return entry.second;
    }
    return {};
}

QList<QByteArray> HttpAnswer::allHeaders(const char* name) const
{
    QList<QByteArray> values;
    for (const auto& entry : headers) {
        if (qstricmp(entry.first.constData(), name) == 0)
            values.append(entry.second);
    }
    return values;
}

HttpAnswerReader::Status HttpAnswerReader::feed(const QByteArray& bytes)
{
    if (m_status != Status::NeedsMore)
        return m_status;
    m_hasBegun = m_hasBegun || !bytes.isEmpty();
    m_buffer += bytes;
    while (m_status == Status::NeedsMore && m_position < m_buffer.size()) {
        const int before = m_position;
        m_status = step();
        if (m_position == before)
            break;
    }
    // Bytes that nobody asked for: what follows on this connection could not be told apart from them.
    if (m_status == Status::Done && m_position < m_buffer.size())
        m_answer.keepsConnection = false;
    if (m_position > 0) {
        m_buffer.remove(0, m_position);
        m_position = 0;
    }
    return m_status;
}

HttpAnswerReader::Status HttpAnswerReader::end()
{
    if (m_status == Status::NeedsMore && m_part == Part::BodyToEnd)
        m_status = Status::Done;
    if (m_status == Status::NeedsMore) {
        m_error = {ErrorKind::BrokenOff, tr("The device closed the connection in the middle of its answer."), {}};
        m_status = Status::Failed;
    }
    return m_status;
}

HttpAnswerReader::Status HttpAnswerReader::step()
{
    switch (m_part) {
    case Part::Body:
    case Part::BodyToEnd:
    case Part::ChunkData:
        return takeBody();
    default:
        return readLine();
    }
}

HttpAnswerReader::Status HttpAnswerReader::readLine()
{
    const int newline = m_buffer.indexOf('\n', m_position);
    const int length = (newline < 0 ? m_buffer.size() : newline) - m_position;
    if (length > m_limits.lineBytes)
        return fail(tr("The device's answer has a line longer than %1 bytes.").arg(m_limits.lineBytes));
    if (newline < 0)
        return Status::NeedsMore;
    QByteArray line = m_buffer.mid(m_position, length);
    if (line.endsWith('\r'))
        line.chop(1);
    m_position = newline + 1;
    return takeLine(line);
}

HttpAnswerReader::Status HttpAnswerReader::takeLine(const QByteArray& line)
{
    switch (m_part) {
    case Part::StatusLine:
        return takeStatusLine(line);
    case Part::Headers:
        return line.isEmpty() ? headersDone() : takeHeader(line);
    case Part::ChunkSize:
        return takeChunkSize(line);
    case Part::ChunkEnd:
        m_part = Part::ChunkSize;
        return line.isEmpty() ? Status::NeedsMore
                              : fail(tr("The device's answer cannot be read."), QStringLiteral("chunk without end"));
    case Part::Trailers:
        if (line.isEmpty())
            return Status::Done;
        if (++m_lines > m_limits.headers)
            return fail(tr("The device's answer has more than %1 headers.").arg(m_limits.headers));
        return Status::NeedsMore;
    default:
        return Status::NeedsMore;
    }
}

HttpAnswerReader::Status HttpAnswerReader::takeStatusLine(const QByteArray& line)
{
    const QList<QByteArray> words = line.left(64).split(' ');
    bool isNumber = false;
    const int status = words.size() > 1 ? words.at(1).toInt(&isNumber) : 0;
    if (!words.first().startsWith("HTTP/1.") || !isNumber || status < 100 || status > 599)
        return fail(tr("The device does not answer in HTTP."),
                    QString::fromLatin1(line.left(64).toPercentEncoding(" /")));
    if (++m_lines > m_limits.headers)
        return fail(tr("The device's answer has more than %1 headers.").arg(m_limits.headers));
    m_isHttp11 = words.first() != "HTTP/1.0";
    m_answer.status = status;
    m_part = Part::Headers;
    return Status::NeedsMore;
}

HttpAnswerReader::Status HttpAnswerReader::takeHeader(const QByteArray& line)
{
    if (++m_lines > m_limits.headers)
        return fail(tr("The device's answer has more than %1 headers.").arg(m_limits.headers));
    // A folded value goes on (RFC 7230 clause 3.2.4).
    if ((line.startsWith(' ') || line.startsWith('\t')) && !m_answer.headers.isEmpty()) {
        m_answer.headers.last().second += ' ' + line.trimmed();
        return Status::NeedsMore;
    }
    const int colon = line.indexOf(':');
    if (colon <= 0)
        return fail(tr("The device's answer cannot be read."), QStringLiteral("header without a name"));
    m_answer.headers.append({line.left(colon).trimmed(), line.mid(colon + 1).trimmed()});
    return Status::NeedsMore;
}

HttpAnswerReader::Status HttpAnswerReader::headersDone()
{
    if (m_answer.status < 200) {
        m_answer = HttpAnswer();
        m_part = Part::StatusLine;
        return Status::NeedsMore;
    }
    const QByteArray connection = m_answer.header("Connection").toLower();
    m_answer.keepsConnection = m_isHttp11 ? !connection.contains("close") : connection.contains("keep-alive");
    if (m_answer.status == 204 || m_answer.status == 304)
        return Status::Done;
    if (m_answer.header("Transfer-Encoding").toLower().contains("chunked")) {
        m_part = Part::ChunkSize;
        return Status::NeedsMore;
    }
    const QList<QByteArray> lengths = m_answer.allHeaders("Content-Length");
    if (lengths.isEmpty()) {
        m_answer.keepsConnection = false;
        m_part = Part::BodyToEnd;
        return Status::NeedsMore;
    }
    bool isNumber = false;
    const qint64 length = lengths.first().toLongLong(&isNumber);
    const bool agree = std::all_of(lengths.cbegin(), lengths.cend(),
                                   [&](const QByteArray& other) { return other == lengths.first(); });
    if (!isNumber || length < 0 || !agree)
        return fail(tr("The device's answer cannot be read."), QStringLiteral("wrong content length"));
    if (length > m_limits.bodyBytes)
        return fail(tr("The device's answer is larger than %1 bytes.").arg(m_limits.bodyBytes));
    m_bodyLeft = length;
    m_part = Part::Body;
    return length == 0 ? Status::Done : Status::NeedsMore;
}

HttpAnswerReader::Status HttpAnswerReader::takeChunkSize(const QByteArray& line)
{
    const int extension = line.indexOf(';');
    bool isNumber = false;
    const qint64 size = (extension < 0 ? line : line.left(extension)).trimmed().toLongLong(&isNumber, 16);
    if (!isNumber || size < 0)
        return fail(tr("The device's answer cannot be read."), QStringLiteral("wrong chunk size"));
    if (size > m_limits.bodyBytes - m_answer.body.size())
        return fail(tr("The device's answer is larger than %1 bytes.").arg(m_limits.bodyBytes));
    m_bodyLeft = size;
    m_part = size == 0 ? Part::Trailers : Part::ChunkData;
    return Status::NeedsMore;
}

HttpAnswerReader::Status HttpAnswerReader::takeBody()
{
    const int available = m_buffer.size() - m_position;
    if (m_part == Part::BodyToEnd) {
        if (available > m_limits.bodyBytes - m_answer.body.size())
            return fail(tr("The device's answer is larger than %1 bytes.").arg(m_limits.bodyBytes));
        m_answer.body += m_buffer.mid(m_position, available);
        m_position += available;
        return Status::NeedsMore;
    }
    const int taken = static_cast<int>(qMin<qint64>(available, m_bodyLeft));
    m_answer.body += m_buffer.mid(m_position, taken);
    m_position += taken;
    m_bodyLeft -= taken;
    if (m_bodyLeft > 0)
        return Status::NeedsMore;
    if (m_part == Part::Body)
        return Status::Done;
    m_part = Part::ChunkEnd;
    return Status::NeedsMore;
}

HttpAnswerReader::Status HttpAnswerReader::fail(const QString& message, const QString& context)
{
    m_error = {ErrorKind::Corrupt, message, context};
    m_position = m_buffer.size();
    return Status::Failed;
}

} // namespace vms_sdk::onvif
