#include "rtsp/RtspConnection.h"

#include <QRandomGenerator>

#include <algorithm>
#include <utility>

namespace recorder_sim {
namespace {

constexpr int idleWaitMs = 100;
constexpr int drainTimeoutMs = 2000;
constexpr std::size_t readBytes = 16 * 1024;

/// How many of these whole interleaved packets must go so that at least `bytes` are out.
std::size_t packetBoundary(std::string_view packets, std::size_t bytes)
{
    std::size_t at = 0;
    while (at < bytes && at + 4 <= packets.size())
        at += 4 + (static_cast<std::size_t>(static_cast<unsigned char>(packets[at + 2])) << 8 |
                   static_cast<unsigned char>(packets[at + 3]));
    return std::min(at, packets.size());
}

} // namespace

RtspConnection::RtspConnection(RecorderState& recorder, ByteStreamPtr stream)
    : m_recorder(recorder)
    , m_stream(std::move(stream))
    , m_session(recorder, m_stream->localHost())
    , m_readBuffer(readBytes, '\0')
{
    ++m_recorder.statistics.rtspConnections;
}

RtspConnection::~RtspConnection()
{
    countPlaying(false);
    --m_recorder.statistics.rtspConnections;
}

void RtspConnection::countPlaying(bool playing)
{
    if (playing != m_countedPlaying)
        m_recorder.statistics.playing += playing ? 1 : -1;
    m_countedPlaying = playing;
}

void RtspConnection::run(const std::atomic<bool>& stopping)
{
    while (m_open && !stopping) {
        if (m_silent) {
            // To the peer it looks as if nobody were there; that the peer has gone is still seen, or its session would
            // stay.
            m_stream->wait(ByteStream::Readable, idleWaitMs);
            if (m_stream->read(m_readBuffer.data(), m_readBuffer.size()).status == IoStatus::Closed)
                m_open = false;
            checkTimeout();
            continue;
        }
        readRequests();
        if (!m_open)
            break;
        int waitMs = idleWaitMs;
        const Progress progress = writeSome(waitMs);
        if (progress == Progress::Made || !m_open)
            continue;
        const unsigned wanted = ByteStream::Readable | (progress == Progress::Blocked ? ByteStream::Writable : 0u);
        m_stream->wait(wanted, std::clamp(waitMs, 1, idleWaitMs));
        checkTimeout();
    }
    if (stopping)
        m_stream->reset();
}

void RtspConnection::checkTimeout()
{
    const auto silence = Clock::now() - m_lastHeard;
    if (silence > std::chrono::seconds(m_recorder.options.sessionTimeoutSeconds))
        m_open = false;
}

void RtspConnection::readRequests()
{
    for (;;) {
        const IoResult got = m_stream->read(m_readBuffer.data(), m_readBuffer.size());
        if (got.status == IoStatus::WouldBlock)
            return;
        if (got.status != IoStatus::Done) {
            m_open = false;
            return;
        }
        m_lastHeard = Clock::now();
        m_reader.feed(m_readBuffer.data(), got.bytes);
        TextRequest request;
        RequestReader::State state = RequestReader::State::NeedMore;
        while ((state = m_reader.next(request)) == RequestReader::State::Request)
            answer(request);
        if (state == RequestReader::State::Failed)
            m_open = false;
        if (!m_open || got.bytes < m_readBuffer.size())
            return;
    }
}

void RtspConnection::answer(const TextRequest& request)
{
    for (const char* kind : {"rubbish", "endless-line"}) {
        if (m_recorder.faults.isOn(kind)) {
            answerBadly(kind);
            return;
        }
    }
    if (request.method == "TEARDOWN")
        keepRestOfPacket();
    const RtspResponse response = m_session.handle(request);
    if (request.method == "PLAY" && response.status == 200) {
        m_revision = 0;
        m_stalled = false;
        m_stallAt.reset();
    }
    std::string text = "RTSP/1.0 " + std::to_string(response.status) + " " + rtspReason(response.status) + "\r\n";
    text += "CSeq: " + std::string(request.header("CSeq")) + "\r\n";
    for (const auto& [name, value] : response.headers)
        text += name + ": " + value + "\r\n";
    if (const auto headers = m_recorder.faults.number("many-headers")) {
        for (std::int64_t i = 0; i < std::min<std::int64_t>(*headers, 2'000'000); ++i)
            text += "X-" + std::to_string(i) + ": 1\r\n";
    }
    if (!response.body.empty())
        text += "Content-Length: " + std::to_string(response.body.size()) + "\r\n";
    m_answers += text + "\r\n" + response.body;
}

/// The piece lies in the sender's buffer, which a TEARDOWN gives back: only the packet that was begun still goes out.
void RtspConnection::keepRestOfPacket()
{
    const std::size_t end = packetBoundary(m_piece, m_pieceSent);
    m_answers += m_piece.substr(m_pieceSent, end - m_pieceSent);
    m_piece = {};
    m_pieceSent = 0;
}

void RtspConnection::answerBadly(const std::string& kind)
{
    if (kind == "endless-line") {
        m_answers += "RTSP/1.0 200 OK\r\nServer: ";
        m_endlessLine = true;
        return;
    }
    for (int i = 0; i < 1024; ++i)
        m_answers += static_cast<char>(QRandomGenerator::global()->bounded(256));
}

void RtspConnection::lookAtFaults()
{
    FaultPlan& faults = m_recorder.faults;
    const std::uint64_t revision = faults.revision() + 1;
    if (revision == m_revision)
        return;
    const int channel = m_session.channel();
    m_trickle = faults.isOn("one-byte-a-second", channel);
    ReplaySender* sender = m_session.sender();
    if (!sender)
        return;
    m_rate = faults.number("rate", channel);
    if (!m_dropAt)
        m_dropAt = faults.strikeNumber("drop-after", channel);
    if (!m_piece.empty())
        return;
    if (!m_stallAt)
        m_stallAt = faults.strikeNumber("stall-after", channel);
    PacketFaults packets;
    packets.lossRate = faults.real("loss", channel).value_or(0);
    packets.reorderEvery = faults.number("reorder", channel).value_or(0);
    packets.duplicateEvery = faults.number("duplicate", channel).value_or(0);
    packets.tornAt = faults.strikeNumber("torn-packet", channel).value_or(0);
    packets.wrongLengthAt = faults.strikeNumber("wrong-length", channel).value_or(0);
    packets.trapEvery = faults.number("rtp-trap", channel).value_or(0);
    packets.seed = static_cast<std::uint64_t>(faults.number("seed").value_or(1));
    sender->setPacketFaults(packets);
    m_revision = revision;
}

RtspConnection::Progress RtspConnection::writeSome(int& waitMs)
{
    lookAtFaults();
    // An answer may only stand between packets, so a piece that was begun goes first.
    if (!m_piece.empty())
        return writeStream(waitMs);
    if (!m_answers.empty() || m_endlessLine)
        return writeAnswers(waitMs);
    if (m_session.isTornDown()) {
        m_stream->drain(drainTimeoutMs);
        m_stream->finish();
        m_open = false;
        return Progress::Made;
    }
    if (m_stalled || !fetchPiece(waitMs))
        return Progress::Wait;
    return writeStream(waitMs);
}

RtspConnection::Progress RtspConnection::writeAnswers(int& waitMs)
{
    if (m_endlessLine && m_answers.size() < 256 * 1024)
        m_answers.append(256 * 1024, 'a');
    std::size_t size = m_answers.size();
    if (m_trickle) {
        size = allowance(size, waitMs);
        if (size == 0)
            return Progress::Wait;
    }
    const IoResult sent = m_stream->write(m_answers.data(), size);
    if (sent.status == IoStatus::Closed)
        m_open = false;
    m_answers.erase(0, sent.bytes);
    return sent.status == IoStatus::WouldBlock ? Progress::Blocked : Progress::Made;
}

bool RtspConnection::fetchPiece(int& waitMs)
{
    ReplaySender* sender = m_session.sender();
    const bool playing = sender && sender->isPlaying();
    countPlaying(playing);
    if (!playing)
        return false;
    const ReplaySender::Step step = sender->next(m_piece, waitMs);
    if (step == ReplaySender::Step::End)
        finishPlaying();
    return step == ReplaySender::Step::Data;
}

void RtspConnection::finishPlaying()
{
    countPlaying(false);
    const std::string end = m_recorder.faults.value("end", m_session.channel()).value_or("bye");
    if (end == "close") {
        m_stream->drain(drainTimeoutMs);
        m_stream->finish();
        m_open = false;
    }
}

/// How much of `wanted` the link's rate allows now; with nothing allowed, how long to wait.
std::size_t RtspConnection::allowance(std::size_t wanted, int& waitMs)
{
    const auto rate = m_trickle ? 1.0 : static_cast<double>(std::max<std::int64_t>(*m_rate, 1));
    const auto now = Clock::now();
    m_budget += std::chrono::duration<double>(now - m_budgetTime).count() * rate;
    m_budgetTime = now;
    m_budget = std::min(m_budget, std::max(1.0, rate / 20));
    const auto allowed = std::min(wanted, static_cast<std::size_t>(m_budget));
    m_budget -= static_cast<double>(allowed);
    waitMs = static_cast<int>(std::clamp(1000 / rate, 5.0, 100.0));
    return allowed;
}

RtspConnection::Progress RtspConnection::writeStream(int& waitMs)
{
    if (m_stallAt && m_pieceSent == 0 && m_streamBytes + static_cast<std::int64_t>(m_piece.size()) > *m_stallAt) {
        // The stall comes with the end of a packet, so that answers can follow.
        const std::int64_t left = std::max<std::int64_t>(*m_stallAt - m_streamBytes, 0);
        m_piece = m_piece.substr(0, packetBoundary(m_piece, static_cast<std::size_t>(left)));
        m_stallAt = m_streamBytes + static_cast<std::int64_t>(m_piece.size());
        m_stalled = m_piece.empty();
        if (m_stalled)
            return Progress::Wait;
    }
    std::size_t size = m_piece.size() - m_pieceSent;
    if (m_dropAt)
        size = static_cast<std::size_t>(
            std::clamp<std::int64_t>(*m_dropAt - m_streamBytes, 0, static_cast<std::int64_t>(size)));
    if (m_dropAt && size == 0) {
        cut();
        return Progress::Made;
    }
    if (m_rate || m_trickle) {
        size = allowance(size, waitMs);
        if (size == 0)
            return Progress::Wait;
    }
    const IoResult sent = m_stream->write(m_piece.data() + m_pieceSent, size);
    if (sent.status == IoStatus::Closed) {
        m_open = false;
        return Progress::Made;
    }
    m_pieceSent += sent.bytes;
    if (m_pieceSent == m_piece.size()) {
        m_piece = {};
        m_pieceSent = 0;
    }
    m_streamBytes += static_cast<std::int64_t>(sent.bytes);
    m_recorder.statistics.streamBytes += static_cast<std::int64_t>(sent.bytes);
    return sent.status == IoStatus::WouldBlock ? Progress::Blocked : Progress::Made;
}

void RtspConnection::cut()
{
    m_dropAt.reset();
    const std::string kind = m_recorder.faults.value("drop-kind", m_session.channel()).value_or("rst");
    countPlaying(false);
    if (kind == "silence") {
        m_silent = true;
        return;
    }
    // Whatever was written must reach the peer, or the cut would come earlier than it was asked for.
    m_stream->drain(drainTimeoutMs);
    if (kind == "fin")
        m_stream->finish();
    else
        m_stream->reset();
    m_open = false;
}

} // namespace recorder_sim
