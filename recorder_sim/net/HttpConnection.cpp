#include "net/HttpConnection.h"

#include <QByteArray>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <thread>

namespace recorder_sim {
namespace {

using Clock = std::chrono::steady_clock;
constexpr auto idleLimit = std::chrono::seconds(30);
constexpr int waitMs = 100;

const char* reason(int status)
{
    switch (status) {
    case 200:
        return "OK";
    case 302:
        return "Found";
    case 400:
        return "Bad Request";
    case 401:
        return "Unauthorized";
    case 404:
        return "Not Found";
    case 405:
        return "Method Not Allowed";
    case 500:
        return "Internal Server Error";
    default:
        return "Status";
    }
}

} // namespace

std::string pathOf(const std::string& target)
{
    return target.substr(0, target.find('?'));
}

std::string queryValue(const std::string& target, const std::string& key)
{
    const std::size_t mark = target.find('?');
    if (mark == std::string::npos)
        return {};
    const std::string value = parameterValue(std::string_view(target).substr(mark + 1), key, '&');
    return QByteArray::fromPercentEncoding(QByteArray(value.data(), static_cast<int>(value.size()))).toStdString();
}

HttpConnection::HttpConnection(ByteStreamPtr stream, Handler handler)
    : m_stream(std::move(stream))
    , m_handler(std::move(handler))
{}

void HttpConnection::run(const std::atomic<bool>& stopping)
{
    RequestReader reader;
    TextRequest request;
    std::string buffer(16 * 1024, '\0');
    auto lastHeard = Clock::now();
    while (!stopping && Clock::now() - lastHeard < idleLimit) {
        const RequestReader::State state = reader.next(request);
        if (state == RequestReader::State::Failed)
            return;
        if (state == RequestReader::State::Request) {
            const bool keepAlive =
                !equalsIgnoringCase(request.header("Connection"), "close") && request.version == "HTTP/1.1";
            const HttpResponse response = m_handler(request, *m_stream);
            if (!sendResponse(response, keepAlive, stopping) || !keepAlive || response.writeRaw)
                break;
            lastHeard = Clock::now();
            continue;
        }
        const IoResult got = m_stream->read(buffer.data(), buffer.size());
        if (got.status == IoStatus::Closed)
            return;
        if (got.status == IoStatus::Done) {
            reader.feed(buffer.data(), got.bytes);
            lastHeard = Clock::now();
        } else {
            m_stream->wait(ByteStream::Readable, waitMs);
        }
    }
    m_stream->drain(1000);
    m_stream->finish();
}

bool HttpConnection::send(const std::string& bytes, const std::atomic<bool>& stopping)
{
    std::size_t at = 0;
    auto lastProgress = Clock::now();
    while (at < bytes.size()) {
        const IoResult sent = m_stream->write(bytes.data() + at, bytes.size() - at);
        if (sent.status == IoStatus::Closed || stopping || Clock::now() - lastProgress > idleLimit)
            return false;
        if (sent.status == IoStatus::WouldBlock) {
            m_stream->wait(ByteStream::Writable, waitMs);
            continue;
        }
        lastProgress = Clock::now();
        at += sent.bytes;
    }
    return true;
}

void HttpConnection::pause(int ms, const std::atomic<bool>& stopping)
{
    const auto due = Clock::now() + std::chrono::milliseconds(ms);
    while (Clock::now() < due && !stopping)
        std::this_thread::sleep_for(std::min<Clock::duration>(due - Clock::now(), std::chrono::milliseconds(waitMs)));
}

bool HttpConnection::sendResponse(const HttpResponse& response, bool keepAlive, const std::atomic<bool>& stopping)
{
    pause(response.delayMs, stopping);
    if (response.writeRaw) {
        response.writeRaw([&](const std::string& part) { return send(part, stopping); });
        return false;
    }
    std::string head = "HTTP/1.1 " + std::to_string(response.status) + " " + reason(response.status) + "\r\n";
    head += "Content-Type: " + response.contentType + "\r\n";
    for (const auto& [name, value] : response.headers)
        head += name + ": " + value + "\r\n";
    head += keepAlive ? "Connection: keep-alive\r\n" : "Connection: close\r\n";
    if (response.trickles) {
        for (const char c :
             head + "Content-Length: " + std::to_string(response.body.size()) + "\r\n\r\n" + response.body) {
            if (!send(std::string(1, c), stopping))
                return false;
            pause(1000, stopping);
        }
        return true;
    }
    if (!response.writeBody)
        return send(head + "Content-Length: " + std::to_string(response.body.size()) + "\r\n\r\n" + response.body,
                    stopping);

    bool good = send(head + "Transfer-Encoding: chunked\r\n\r\n", stopping);
    response.writeBody([&](const std::string& part) {
        if (!good || part.empty())
            return good;
        char size[24];
        std::snprintf(size, sizeof size, "%zx\r\n", part.size());
        good = send(size + part + "\r\n", stopping);
        return good;
    });
    return good && send("0\r\n\r\n", stopping);
}

} // namespace recorder_sim
