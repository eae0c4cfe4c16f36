#pragma once

#include "net/NativeSocket.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace recorder_sim {

/// A small blocking RTSP client for measuring and testing the simulated recorder: sets up all tracks interleaved, plays
/// a range and gives what comes. One thread. After a failure error() tells what happened and nothing more is read.
class RtspReader final
{
public:
    struct Target
    {
        std::string host = "127.0.0.1";
        std::uint16_t port = 0;
        std::string path; ///< such as /replay/1
        std::string user;
        std::string password;
    };

    struct Answer
    {
        int status = 0;
        std::string head;
        std::string body;

        std::string header(const std::string& name) const;
    };

    explicit RtspReader(Target target);

    bool connect();
    /// Sends a request, with a login when it is asked for one, and waits for the answer; interleaved packets before it
    /// are dropped.
    bool request(const std::string& method, const std::string& url, const std::string& headers, Answer& answer);
    /// DESCRIBE, SETUP of every track (track N on channels 2N and 2N + 1) and PLAY. `headers` are those of PLAY.
    bool play(const std::string& headers);
    bool describe();
    bool setup();

    /// Reads and throws away until the stream is silent for `silenceMs`, ends, or has given `limit` bytes; the bytes
    /// read.
    std::int64_t discard(std::int64_t limit, int silenceMs);
    /// Reads interleaved packets until `packet` gives false, silence, or the end. False when the framing is broken.
    bool readPackets(const std::function<bool(int channel, std::string_view packet)>& packet, int silenceMs);

    const std::string& error() const { return m_error; }
    const std::string& description() const { return m_description; }
    std::string url() const;
    bool atEnd() const { return m_atEnd; } ///< the peer has ended or cut the connection

private:
    bool fail(const std::string& text);
    bool fill(int timeoutMs);
    bool readAnswer(Answer& answer);

    const Target m_target;
    NativeSocket m_socket;
    std::string m_buffer;
    std::size_t m_at = 0; ///< consumed bytes of m_buffer
    std::string m_error;
    std::string m_description;
    std::string m_challenge;
    std::string m_session;
    int m_cseq = 0;
    bool m_atEnd = false;
};

} // namespace recorder_sim
