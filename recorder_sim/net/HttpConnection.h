#pragma once

#include "net/ByteStream.h"
#include "net/RequestReader.h"

#include <atomic>
#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace recorder_sim {

/// What a handler answers. With `writeRaw` set, exactly those bytes go out and the connection ends.
struct HttpResponse
{
    using Sink = std::function<bool(const std::string& part)>; ///< false: the peer has gone

    int status = 200;
    std::string contentType = "text/plain; charset=utf-8";
    std::vector<std::pair<std::string, std::string>> headers;
    std::string body;
    std::function<void(const Sink&)> writeBody; ///< instead of `body`: writes it in parts of any size
    std::function<void(const Sink&)> writeRaw;
    int delayMs = 0;       ///< before the answer goes out
    bool trickles = false; ///< a byte a second
};

/// Serves one HTTP/1.1 connection on the calling thread, requests one after the other; ends it after half a minute of
/// silence.
class HttpConnection final
{
public:
    using Handler = std::function<HttpResponse(const TextRequest& request, const ByteStream& stream)>;

    HttpConnection(ByteStreamPtr stream, Handler handler);

    void run(const std::atomic<bool>& stopping);

private:
    bool send(const std::string& bytes, const std::atomic<bool>& stopping);
    void pause(int ms, const std::atomic<bool>& stopping);
    bool sendResponse(const HttpResponse& response, bool keepAlive, const std::atomic<bool>& stopping);

    ByteStreamPtr m_stream;
    Handler m_handler;
};

/// Percent-decoded value of a key in a query such as `a=1&b=2`; empty when absent.
std::string queryValue(const std::string& target, const std::string& key);
std::string pathOf(const std::string& target);

} // namespace recorder_sim
