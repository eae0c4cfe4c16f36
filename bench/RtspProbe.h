#pragma once

#include <cstdint>
#include <string>

/// The least RTSP client that starts a replay: OPTIONS to PLAY with Digest (RFC 2617, MD5) on a blocking socket. Shares
/// nothing with the client's own RTSP code, so that the floor it measures is independent. platform file: sockets are
/// POSIX, measuring runs on Linux.
class RtspProbe
{
public:
    struct Target
    {
        std::string host;
        std::uint16_t port = 554;
        std::string path; ///< with the leading slash
        std::string user;
        std::string password;
        std::string range; ///< value of the Range header, e.g. "clock=20260110T080000Z-20260110T082400Z"
    };

    RtspProbe() = default;
    RtspProbe(const RtspProbe&) = delete;
    RtspProbe& operator=(const RtspProbe&) = delete;
    ~RtspProbe();

    /// Connects and plays every track of the recording. False, with error() set, when the server refuses.
    bool play(const Target& target);
    int socket() const { return m_socket; }
    const std::string& error() const { return m_error; }
    /// Bytes behind the PLAY answer that were read along with it.
    const std::string& leftover() const { return m_buffer; }

private:
    bool request(const std::string& method, const std::string& uri, const std::string& headers);
    std::string authorization(const std::string& method, const std::string& uri) const;
    bool readAnswer();
    std::string header(const std::string& name) const;
    bool fail(std::string text);

    Target m_target;
    int m_socket = -1;
    int m_cseq = 0;
    int m_status = 0;
    std::string m_realm;
    std::string m_nonce;
    std::string m_session;
    std::string m_head;
    std::string m_body;
    std::string m_buffer;
    std::string m_error;
};
