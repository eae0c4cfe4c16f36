#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace recorder_sim {

/// One request of RTSP 1.0 (RFC 2326) or HTTP/1.1, whose forms are the same.
struct TextRequest
{
    std::string method;
    std::string target;
    std::string version;
    std::vector<std::pair<std::string, std::string>> headers;
    std::string body;

    /// The first header of that name, in any case; empty when there is none.
    std::string_view header(std::string_view name) const;
    bool has(std::string_view name) const;
};

/// Cuts a byte stream into requests and drops interleaved binary frames ($, RFC 2326 10.12) between them. A pure core:
/// it is fed bytes and asked for requests. After an error it yields nothing more.
class RequestReader final
{
public:
    enum class State { NeedMore, Request, Failed };

    void feed(const char* data, std::size_t size);
    State next(TextRequest& request);
    const std::string& error() const { return m_error; }

private:
    State fail(std::string text);
    bool skipInterleaved();

    std::string m_buffer;
    std::string m_error;
};

bool equalsIgnoringCase(std::string_view a, std::string_view b);
std::string_view trimmed(std::string_view text);

/// The value of `key` in a list such as `a=b; c="d"`; empty when absent.
std::string parameterValue(std::string_view list, std::string_view key, char separator);

} // namespace recorder_sim
