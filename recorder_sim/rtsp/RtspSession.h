#pragma once

#include "net/RequestReader.h"
#include "RecorderState.h"
#include "rtsp/ReplaySender.h"
#include "rtsp/RtspUrl.h"

#include <array>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace recorder_sim {

struct RtspResponse
{
    int status = 200;
    std::vector<std::pair<std::string, std::string>> headers;
    std::string body;

    void add(const std::string& name, const std::string& value) { headers.emplace_back(name, value); }
};

/// The state of one RTSP connection's session (RFC 2326, replay by ONVIF Streaming 6): answers
/// requests and owns the sender. Pure of sockets; used by the connection's thread. One session a connection, no UDP.
class RtspSession final
{
public:
    RtspSession(RecorderState& recorder, std::string localHost);
    ~RtspSession();

    RtspResponse handle(const TextRequest& request);

    ReplaySender* sender() { return m_sender.get(); }
    int channel() const { return m_url.channel; } ///< 0 before SETUP
    bool isOpen() const { return !m_id.empty(); }
    bool isTornDown() const { return m_tornDown; }
    void close(); ///< gives the session back: TEARDOWN, timeout, connection gone

private:
    RtspResponse refuse(int status) const;
    bool authorize(const TextRequest& request, RtspResponse& response) const;
    RtspResponse describe(const TextRequest& request, const RtspUrl& url);
    RtspResponse setup(const TextRequest& request, const RtspUrl& url);
    RtspResponse play(const TextRequest& request, const RtspUrl& url);
    RtspResponse pause();
    bool startPlaying(const TextRequest& request, const RtspUrl& url, double speed, std::uint8_t cseq);
    void makeSender();
    std::string rtpInfo() const;

    RecorderState& m_recorder;
    const std::string m_localHost;

    RtspUrl m_url;
    std::string m_id;
    bool m_tornDown = false;
    bool m_started = false;
    std::array<SenderTrack, trackCount> m_tracks{};
    std::unique_ptr<ReplaySender> m_sender;
};

const char* rtspReason(int status);

} // namespace recorder_sim
