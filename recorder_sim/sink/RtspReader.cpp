#include "sink/RtspReader.h"

#include "net/DigestAuth.h"
#include "net/RequestReader.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace recorder_sim {
namespace {

constexpr int answerTimeoutMs = 10'000;
constexpr std::size_t readBytes = 256 * 1024;

} // namespace

std::string RtspReader::Answer::header(const std::string& name) const
{
    std::string_view rest = head;
    while (!rest.empty()) {
        const std::size_t end = std::min(rest.find("\r\n"), rest.size());
        const std::string_view line = rest.substr(0, end);
        rest.remove_prefix(std::min(end + 2, rest.size()));
        const std::size_t colon = line.find(':');
        if (colon != std::string_view::npos && equalsIgnoringCase(line.substr(0, colon), name))
            return std::string(trimmed(line.substr(colon + 1)));
    }
    return {};
}

RtspReader::RtspReader(Target target)
    : m_target(std::move(target))
{}

bool RtspReader::fail(const std::string& text)
{
    m_error = text;
    return false;
}

std::string RtspReader::url() const
{
    return "rtsp://" + m_target.host + ":" + std::to_string(m_target.port) + m_target.path;
}

bool RtspReader::connect()
{
    m_socket = NativeSocket::connectTo(m_target.host, m_target.port, m_error);
    return m_socket.isValid();
}

bool RtspReader::fill(int timeoutMs)
{
    if (m_at > 0) {
        m_buffer.erase(0, m_at);
        m_at = 0;
    }
    if (m_socket.wait(ByteStream::Readable, timeoutMs) == ByteStream::Nothing)
        return false;
    const std::size_t kept = m_buffer.size();
    m_buffer.resize(kept + readBytes);
    const IoResult got = m_socket.read(m_buffer.data() + kept, readBytes);
    m_buffer.resize(kept + got.bytes);
    m_atEnd = got.status == IoStatus::Closed;
    return got.status == IoStatus::Done;
}

bool RtspReader::readAnswer(Answer& answer)
{
    for (;;) {
        const std::string_view have = std::string_view(m_buffer).substr(m_at);
        if (have.size() >= 4 && have[0] == '$') {
            const std::size_t length = static_cast<std::size_t>(static_cast<unsigned char>(have[2])) << 8 |
                                       static_cast<unsigned char>(have[3]);
            if (have.size() >= 4 + length) {
                m_at += 4 + length;
                continue;
            }
        } else if (const std::size_t end = have.find("\r\n\r\n"); end != std::string_view::npos) {
            answer.head = have.substr(0, end);
            answer.status = answer.head.size() > 9 ? std::atoi(answer.head.c_str() + 9) : 0;
            const auto length = static_cast<std::size_t>(std::atoi(answer.header("Content-Length").c_str()));
            if (have.size() >= end + 4 + length) {
                answer.body = have.substr(end + 4, length);
                m_at += end + 4 + length;
                return true;
            }
        }
        if (!fill(answerTimeoutMs))
            return fail("no answer");
    }
}

bool RtspReader::request(const std::string& method, const std::string& url, const std::string& headers, Answer& answer)
{
    for (int round = 0; round < 2; ++round) {
        std::string text = method + " " + url + " RTSP/1.0\r\nCSeq: " + std::to_string(++m_cseq) + "\r\n";
        if (!m_challenge.empty())
            text += "Authorization: " + DigestAuth::answer(m_challenge, m_target.user, m_target.password, method, url) +
                    "\r\n";
        if (!m_session.empty())
            text += "Session: " + m_session + "\r\n";
        text += headers + "\r\n";
        if (m_socket.write(text.data(), text.size()).bytes != text.size())
            return fail("cannot send " + method);
        if (!readAnswer(answer))
            return false;
        if (answer.status != 401 || round > 0)
            break;
        m_challenge = answer.header("WWW-Authenticate");
    }
    if (answer.status == 200)
        return true;
    return fail(method + " was answered with " + std::to_string(answer.status));
}

bool RtspReader::describe()
{
    Answer answer;
    if (!request("DESCRIBE", url(), "Accept: application/sdp\r\n", answer))
        return false;
    m_description = answer.body;
    return true;
}

bool RtspReader::setup()
{
    int track = 0;
    for (std::size_t at = m_description.find("m="); at != std::string::npos; at = m_description.find("\nm=", at + 1)) {
        Answer answer;
        const std::string transport = "Transport: RTP/AVP/TCP;unicast;interleaved=" + std::to_string(2 * track) + "-" +
                                      std::to_string(2 * track + 1) + "\r\n";
        if (!request("SETUP", url() + "/trackID=" + std::to_string(track), transport, answer))
            return false;
        const std::string session = answer.header("Session");
        m_session = session.substr(0, session.find(';'));
        ++track;
    }
    return true;
}

bool RtspReader::play(const std::string& headers)
{
    Answer answer;
    return describe() && setup() && request("PLAY", url(), headers, answer);
}

std::int64_t RtspReader::discard(std::int64_t limit, int silenceMs)
{
    auto total = static_cast<std::int64_t>(m_buffer.size() - m_at);
    m_buffer.assign(4 * readBytes, '\0');
    m_at = 0;
    while (total < limit) {
        const IoResult got = m_socket.read(m_buffer.data(), m_buffer.size());
        total += static_cast<std::int64_t>(got.bytes);
        m_atEnd = got.status == IoStatus::Closed;
        if (m_atEnd || (got.status == IoStatus::WouldBlock &&
                        m_socket.wait(ByteStream::Readable, silenceMs) == ByteStream::Nothing))
            break;
    }
    m_buffer.clear();
    return total;
}

bool RtspReader::readPackets(const std::function<bool(int channel, std::string_view packet)>& packet, int silenceMs)
{
    for (;;) {
        const std::string_view have = std::string_view(m_buffer).substr(m_at);
        if (!have.empty() && have[0] != '$')
            return fail("something else than a packet came");
        if (have.size() >= 4) {
            const std::size_t length = static_cast<std::size_t>(static_cast<unsigned char>(have[2])) << 8 |
                                       static_cast<unsigned char>(have[3]);
            if (have.size() >= 4 + length) {
                m_at += 4 + length;
                if (!packet(static_cast<unsigned char>(have[1]), have.substr(4, length)))
                    return true;
                continue;
            }
        }
        if (!fill(silenceMs))
            return true;
    }
}

} // namespace recorder_sim
