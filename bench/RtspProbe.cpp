#include "RtspProbe.h"

#include <openssl/evp.h>

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <vector>

namespace {

std::string md5Hex(const std::string& text)
{
    std::array<unsigned char, EVP_MAX_MD_SIZE> digest{};
    unsigned int length = 0;
    EVP_Digest(text.data(), text.size(), digest.data(), &length, EVP_md5(), nullptr);
    std::string hex;
    for (unsigned int i = 0; i < length; ++i) {
        constexpr char digits[] = "0123456789abcdef";
        hex += digits[digest[i] >> 4];
        hex += digits[digest[i] & 15];
    }
    return hex;
}

std::string quotedValue(const std::string& text, const std::string& key)
{
    const auto at = text.find(key + "=\"");
    if (at == std::string::npos)
        return {};
    const auto begin = at + key.size() + 2;
    return text.substr(begin, text.find('"', begin) - begin);
}

} // namespace

RtspProbe::~RtspProbe()
{
    if (m_socket >= 0)
        ::close(m_socket);
}

bool RtspProbe::fail(std::string text)
{
    m_error = std::move(text);
    return false;
}

std::string RtspProbe::header(const std::string& name) const
{
    std::string lowerHead = m_head;
    std::string lowerName = "\n" + name + ":";
    const auto lower = [](unsigned char c) { return static_cast<char>(std::tolower(c)); };
    std::transform(lowerHead.begin(), lowerHead.end(), lowerHead.begin(), lower);
    std::transform(lowerName.begin(), lowerName.end(), lowerName.begin(), lower);
    std::string all;
    for (auto at = lowerHead.find(lowerName); at != std::string::npos; at = lowerHead.find(lowerName, at + 1)) {
        const auto begin = at + lowerName.size();
        all += m_head.substr(begin, m_head.find('\r', begin) - begin) + "\n";
    }
    return all;
}

bool RtspProbe::readAnswer()
{
    std::array<char, 65536> chunk{};
    std::size_t headEnd = 0;
    while ((headEnd = m_buffer.find("\r\n\r\n")) == std::string::npos) {
        const auto got = ::recv(m_socket, chunk.data(), chunk.size(), 0);
        if (got <= 0)
            return fail("connection closed before an answer");
        m_buffer.append(chunk.data(), static_cast<std::size_t>(got));
    }
    m_head = "\n" + m_buffer.substr(0, headEnd + 2);
    m_status = std::atoi(m_head.c_str() + 10);
    const auto length = static_cast<std::size_t>(std::atoi(header("Content-Length").c_str()));
    while (m_buffer.size() < headEnd + 4 + length) {
        const auto got = ::recv(m_socket, chunk.data(), chunk.size(), 0);
        if (got <= 0)
            return fail("connection closed inside an answer");
        m_buffer.append(chunk.data(), static_cast<std::size_t>(got));
    }
    m_body = m_buffer.substr(headEnd + 4, length);
    m_buffer.erase(0, headEnd + 4 + length);
    return true;
}

std::string RtspProbe::authorization(const std::string& method, const std::string& uri) const
{
    if (m_nonce.empty())
        return {};
    const auto ha1 = md5Hex(m_target.user + ":" + m_realm + ":" + m_target.password);
    const auto response = md5Hex(ha1 + ":" + m_nonce + ":" + md5Hex(method + ":" + uri));
    return "Authorization: Digest username=\"" + m_target.user + "\", realm=\"" + m_realm + "\", nonce=\"" + m_nonce +
           "\", uri=\"" + uri + "\", response=\"" + response + "\"\r\n";
}

bool RtspProbe::request(const std::string& method, const std::string& uri, const std::string& headers)
{
    for (int round = 0; round < 2; ++round) {
        const std::string text = method + " " + uri + " RTSP/1.0\r\nCSeq: " + std::to_string(++m_cseq) + "\r\n" +
                                 authorization(method, uri) +
                                 (m_session.empty() ? "" : "Session: " + m_session + "\r\n") + headers + "\r\n";
        if (::send(m_socket, text.data(), text.size(), MSG_NOSIGNAL) != static_cast<ssize_t>(text.size()) ||
            !readAnswer())
            return m_error.empty() ? fail("could not send " + method) : false;
        if (m_status != 401)
            break;
        const auto challenges = header("WWW-Authenticate");
        const auto digest = challenges.find("Digest");
        if (digest == std::string::npos)
            return fail("no Digest challenge");
        m_realm = quotedValue(challenges.substr(digest), "realm");
        m_nonce = quotedValue(challenges.substr(digest), "nonce");
    }
    if (m_status != 200)
        return fail(method + " was answered with " + std::to_string(m_status));
    return true;
}

bool RtspProbe::play(const Target& target)
{
    m_target = target;
    m_socket = ::socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(target.port);
    if (::inet_pton(AF_INET, target.host.c_str(), &address.sin_addr) != 1)
        return fail("not an IPv4 address: " + target.host);
    if (::connect(m_socket, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0)
        return fail("cannot connect");
    const std::string base = "rtsp://" + target.host + ":" + std::to_string(target.port) + target.path;
    if (!request("DESCRIBE", base, "Accept: application/sdp\r\nRequire: onvif-replay\r\n"))
        return false;

    std::vector<std::string> controls;
    const auto contentBase = header("Content-Base");
    std::string prefix = contentBase.empty() ? base : contentBase.substr(contentBase.find_first_not_of(' '));
    prefix = prefix.substr(0, prefix.find('\n'));
    if (prefix.back() != '/')
        prefix += '/';
    bool inMedia = false;
    for (std::size_t at = 0; at < m_body.size();) {
        const auto end = std::min(m_body.find('\n', at), m_body.size());
        std::string line = m_body.substr(at, end - at);
        while (!line.empty() && line.back() == '\r')
            line.pop_back();
        at = end + 1;
        if (line.rfind("m=", 0) == 0)
            inMedia = line.rfind("m=video", 0) == 0 || line.rfind("m=audio", 0) == 0;
        else if (inMedia && line.rfind("a=control:", 0) == 0)
            controls.push_back(line.rfind("a=control:rtsp", 0) == 0 ? line.substr(10) : prefix + line.substr(10));
    }
    int channel = 0;
    for (const auto& control : controls) {
        const auto transport = "Transport: RTP/AVP/TCP;unicast;interleaved=" + std::to_string(channel) + "-" +
                               std::to_string(channel + 1) + "\r\nRequire: onvif-replay\r\n";
        if (!request("SETUP", control, transport))
            return false;
        const auto session = header("Session");
        const auto begin = session.find_first_not_of(' ');
        m_session = session.substr(begin, session.find_first_of(";\n", begin) - begin);
        channel += 2;
    }
    return request("PLAY", base, "Require: onvif-replay\r\nRate-Control: no\r\nRange: " + target.range + "\r\n");
}
