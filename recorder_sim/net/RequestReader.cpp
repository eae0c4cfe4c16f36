#include "net/RequestReader.h"

#include <algorithm>
#include <cctype>
#include <charconv>

namespace recorder_sim {
namespace {

constexpr std::size_t maxHeadBytes = 64 * 1024;
constexpr std::size_t maxHeaders = 128;
constexpr std::size_t maxBodyBytes = 1024 * 1024;

char lower(char c)
{
    return static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
}

} // namespace

bool equalsIgnoringCase(std::string_view a, std::string_view b)
{
    return a.size() == b.size() &&
           std::equal(a.begin(), a.end(), b.begin(), [](char x, char y) { return lower(x) == lower(y); });
}

std::string_view trimmed(std::string_view text)
{
    const auto isSpace = [](char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; };
    while (!text.empty() && isSpace(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && isSpace(text.back()))
        text.remove_suffix(1);
    return text;
}

std::string parameterValue(std::string_view list, std::string_view key, char separator)
{
    std::size_t at = 0;
    while (at < list.size()) {
        std::size_t end = at;
        bool quoted = false;
        while (end < list.size() && (quoted || list[end] != separator)) {
            if (list[end] == '"')
                quoted = !quoted;
            ++end;
        }
        const std::string_view item = trimmed(list.substr(at, end - at));
        const std::size_t equal = item.find('=');
        if (equal != std::string_view::npos && equalsIgnoringCase(trimmed(item.substr(0, equal)), key)) {
            std::string_view value = trimmed(item.substr(equal + 1));
            if (value.size() >= 2 && value.front() == '"' && value.back() == '"')
                value = value.substr(1, value.size() - 2);
            return std::string(value);
        }
        at = end + 1;
    }
    return {};
}

std::string_view TextRequest::header(std::string_view name) const
{
    for (const auto& [key, value] : headers) {
        if (equalsIgnoringCase(key, name))
            return value;
    }
    return {};
}

bool TextRequest::has(std::string_view name) const
{
    return std::any_of(headers.begin(), headers.end(),
                       [&](const auto& h) { return equalsIgnoringCase(h.first, name); });
}

void RequestReader::feed(const char* data, std::size_t size)
{
    m_buffer.append(data, size);
}

RequestReader::State RequestReader::fail(std::string text)
{
    m_error = std::move(text);
    m_buffer.clear();
    return State::Failed;
}

bool RequestReader::skipInterleaved()
{
    while (!m_buffer.empty() && m_buffer[0] == '$') {
        if (m_buffer.size() < 4)
            return false;
        const std::size_t length = static_cast<std::size_t>(static_cast<unsigned char>(m_buffer[2])) << 8 |
                                   static_cast<unsigned char>(m_buffer[3]);
        if (m_buffer.size() < 4 + length)
            return false;
        m_buffer.erase(0, 4 + length);
    }
    return true;
}

RequestReader::State RequestReader::next(TextRequest& request)
{
    if (!m_error.empty())
        return State::Failed;
    if (!skipInterleaved())
        return State::NeedMore;
    m_buffer.erase(0, std::min(m_buffer.find_first_not_of("\r\n"), m_buffer.size()));
    const std::size_t headEnd = m_buffer.find("\r\n\r\n");
    if (headEnd == std::string::npos)
        return m_buffer.size() > maxHeadBytes ? fail("request head above 64 KiB") : State::NeedMore;

    const std::string_view head(m_buffer.data(), headEnd);
    request = {};
    std::size_t at = 0;
    for (bool first = true; at < head.size(); first = false) {
        const std::size_t end = std::min(head.find("\r\n", at), head.size());
        const std::string_view line = head.substr(at, end - at);
        at = end + 2;
        if (first) {
            const std::size_t one = line.find(' ');
            const std::size_t two = one == std::string_view::npos ? one : line.find(' ', one + 1);
            if (two == std::string_view::npos)
                return fail("not a request line");
            request.method = line.substr(0, one);
            request.target = line.substr(one + 1, two - one - 1);
            request.version = trimmed(line.substr(two + 1));
            continue;
        }
        const std::size_t colon = line.find(':');
        if (colon == std::string_view::npos)
            return fail("a header without a colon");
        if (request.headers.size() >= maxHeaders)
            return fail("more than 128 headers");
        request.headers.emplace_back(trimmed(line.substr(0, colon)), trimmed(line.substr(colon + 1)));
    }
    std::size_t bodyLength = 0;
    if (const std::string_view text = request.header("Content-Length"); !text.empty()) {
        const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), bodyLength);
        if (error != std::errc() || end != text.data() + text.size() || bodyLength > maxBodyBytes)
            return fail("a body length that is wrong or above 1 MiB");
    }
    if (m_buffer.size() < headEnd + 4 + bodyLength)
        return State::NeedMore;
    request.body = m_buffer.substr(headEnd + 4, bodyLength);
    m_buffer.erase(0, headEnd + 4 + bodyLength);
    return State::Request;
}

} // namespace recorder_sim
