#pragma once

#include "net/ByteStream.h"
#include "net/RequestReader.h"
#include "RecorderState.h"
#include "rtsp/RtspSession.h"

#include <atomic>
#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace recorder_sim {

/// Serves one RTSP connection on the calling thread: reads requests, writes answers between interleaved packets, sends
/// what the session's sender gives, and lets the faults strike that count bytes. Returns when the connection has ended.
class RtspConnection final
{
public:
    RtspConnection(RecorderState& recorder, ByteStreamPtr stream);
    ~RtspConnection();

    void run(const std::atomic<bool>& stopping);

private:
    using Clock = std::chrono::steady_clock;
    enum class Progress { Made, Blocked, Wait };

    void readRequests();
    void answer(const TextRequest& request);
    void keepRestOfPacket();
    void answerBadly(const std::string& kind);
    Progress writeSome(int& waitMs);
    Progress writeStream(int& waitMs);
    Progress writeAnswers(int& waitMs);
    bool fetchPiece(int& waitMs);
    void finishPlaying();
    void lookAtFaults();
    std::size_t allowance(std::size_t wanted, int& waitMs);
    void cut();
    void checkTimeout();
    void countPlaying(bool playing);

    RecorderState& m_recorder;
    ByteStreamPtr m_stream;
    RtspSession m_session;
    RequestReader m_reader;
    std::string m_readBuffer;

    std::string m_answers;    ///< waiting to be written
    std::string_view m_piece; ///< of stream, begins and ends with a packet
    std::size_t m_pieceSent = 0;
    bool m_open = true;
    bool m_endlessLine = false;
    bool m_countedPlaying = false;
    Clock::time_point m_lastHeard = Clock::now();

    // Faults as of m_revision.
    std::uint64_t m_revision = 0;
    std::int64_t m_streamBytes = 0; ///< interleaved bytes sent on this connection
    std::optional<std::int64_t> m_dropAt;
    std::optional<std::int64_t> m_stallAt;
    std::optional<std::int64_t> m_rate;
    bool m_trickle = false;
    bool m_stalled = false; ///< no stream any more
    bool m_silent = false;  ///< as if the cable were cut: nothing is answered or sent
    double m_budget = 0;    ///< bytes that the rate allows now
    Clock::time_point m_budgetTime = Clock::now();
};

} // namespace recorder_sim
