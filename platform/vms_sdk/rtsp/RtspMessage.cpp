#include "RtspMessage.h"

namespace vms_sdk::rtsp {

bool RtspMessage::hasHeader(const char* name) const
{
    for (const auto& entry : headers)
        if (entry.first.compare(name, Qt::CaseInsensitive) == 0)
            return true;
    return false;
}

QByteArray RtspMessage::header(const char* name) const
{
    for (const auto& entry : headers)
        if (entry.first.compare(name, Qt::CaseInsensitive) == 0)
            return entry.second;
    return {};
}

QList<QByteArray> RtspMessage::headerList(const char* name) const
{
    QList<QByteArray> values;
    for (const auto& entry : headers)
        if (entry.first.compare(name, Qt::CaseInsensitive) == 0)
            values.append(entry.second);
    return values;
}

int RtspMessage::sequence() const
{
    bool isNumber = false;
    const int value = header("CSeq").toInt(&isNumber);
    return isNumber ? value : -1;
}

bool RtspMessage::parseStartLine(const QByteArray& line)
{
    const int first = line.indexOf(' ');
    if (first <= 0)
        return false;
    if (line.startsWith("RTSP/1.")) {
        const QByteArray rest = line.mid(first).trimmed();
        const int codeEnd = rest.indexOf(' ');
        bool isNumber = false;
        const int code = rest.mid(0, codeEnd).toInt(&isNumber);
        if (!isNumber || code < 100 || code > 599)
            return false;
        status = code;
        reason = codeEnd < 0 ? QByteArray() : rest.mid(codeEnd).trimmed();
        return true;
    }
    const int second = line.indexOf(' ', first + 1);
    if (second < 0 || !line.mid(second + 1).startsWith("RTSP/1."))
        return false;
    method = line.left(first);
    uri = line.mid(first + 1, second - first - 1);
    return true;
}

bool RtspMessage::appendHeaderLine(const QByteArray& line)
{
    const int colon = line.indexOf(':');
    if (colon <= 0)
        return false;
    headers.append({line.left(colon).trimmed(), line.mid(colon + 1).trimmed()});
    return true;
}

QByteArray RtspMessage::serialized() const
{
    QByteArray bytes;
    if (isResponse())
        bytes += QByteArray("RTSP/1.0 " + QByteArray::number(status) + ' ' + reason + "\r\n");
    else
        bytes += QByteArray(method + ' ' + uri + " RTSP/1.0\r\n");
    for (const auto& entry : headers)
        bytes += QByteArray(entry.first + ": " + entry.second + "\r\n");
    if (!body.isEmpty())
        bytes += QByteArray("Content-Length: " + QByteArray::number(body.size()) + "\r\n");
    bytes += "\r\n";
    bytes += body;
    return bytes;
}

} // namespace vms_sdk::rtsp
