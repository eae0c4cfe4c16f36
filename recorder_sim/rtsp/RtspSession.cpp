#include "rtsp/RtspSession.h"

#include "rtsp/SdpWriter.h"

#include <QRandomGenerator>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>

namespace recorder_sim {
namespace {

constexpr char publicMethods[] = "OPTIONS, DESCRIBE, SETUP, PLAY, PAUSE, TEARDOWN, GET_PARAMETER, SET_PARAMETER";

std::int64_t wallNs()
{
    return std::chrono::duration_cast<std::chrono::nanoseconds>(std::chrono::system_clock::now().time_since_epoch())
        .count();
}

/// RTP over the RTSP connection: "RTP/AVP/TCP;unicast;interleaved=0-1".
bool parseTransport(std::string_view header, int track, SenderTrack& out)
{
    while (!header.empty()) {
        const std::size_t comma = std::min(header.find(','), header.size());
        const std::string_view one = trimmed(header.substr(0, comma));
        header.remove_prefix(std::min(comma + 1, header.size()));
        if (one.substr(0, 11) != "RTP/AVP/TCP")
            continue;
        int first = 2 * track;
        int second = first + 1;
        if (const std::string channels = parameterValue(one, "interleaved", ';'); !channels.empty()) {
            if (std::sscanf(channels.c_str(), "%3d-%3d", &first, &second) == 1)
                second = first + 1;
        }
        if (first < 0 || first > 255 || second < 0 || second > 255)
            return false;
        out.rtpChannel = static_cast<std::uint8_t>(first);
        out.rtcpChannel = static_cast<std::uint8_t>(second);
        return true;
    }
    return false;
}

} // namespace

const char* rtspReason(int status)
{
    switch (status) {
    case 200:
        return "OK";
    case 302:
        return "Moved Temporarily";
    case 400:
        return "Bad Request";
    case 401:
        return "Unauthorized";
    case 404:
        return "Not Found";
    case 453:
        return "Not Enough Bandwidth";
    case 454:
        return "Session Not Found";
    case 455:
        return "Method Not Valid in This State";
    case 457:
        return "Invalid Range";
    case 461:
        return "Unsupported Transport";
    case 501:
        return "Not Implemented";
    case 503:
        return "Service Unavailable";
    case 505:
        return "RTSP Version Not Supported";
    case 551:
        return "Option not supported";
    default:
        return "Error";
    }
}

RtspSession::RtspSession(RecorderState& recorder, std::string localHost)
    : m_recorder(recorder)
    , m_localHost(std::move(localHost))
{}

RtspSession::~RtspSession()
{
    close();
}

void RtspSession::close()
{
    if (isOpen())
        --m_recorder.statistics.rtspSessions;
    m_id.clear();
    m_sender.reset();
    m_tracks = {};
    m_started = false;
}

RtspResponse RtspSession::refuse(int status) const
{
    RtspResponse response;
    response.status = status;
    return response;
}

bool RtspSession::authorize(const TextRequest& request, RtspResponse& response) const
{
    const bool loop = m_recorder.faults.isOn("auth-loop");
    DigestAuth::Verdict verdict =
        m_recorder.rtspAuth.check(request.header("Authorization"), request.method, request.target);
    if (loop || (verdict == DigestAuth::Verdict::Accepted && m_recorder.faults.isOn("wrong-password")))
        verdict = loop ? DigestAuth::Verdict::Stale : DigestAuth::Verdict::Refused;
    if (verdict == DigestAuth::Verdict::Accepted)
        return true;
    if (verdict == DigestAuth::Verdict::Refused)
        ++m_recorder.statistics.loginsRefused;
    response = refuse(401);
    for (const std::string& challenge : m_recorder.rtspAuth.challenges(verdict == DigestAuth::Verdict::Stale))
        response.add("WWW-Authenticate", challenge);
    return false;
}

RtspResponse RtspSession::handle(const TextRequest& request)
{
    if (request.version != "RTSP/1.0")
        return refuse(505);
    if (request.method == "OPTIONS") {
        RtspResponse response;
        response.add("Public", publicMethods);
        return response;
    }
    const RtspUrl url = RtspUrl::parse(request.target);
    if (m_recorder.faults.isOn("redirect-loop")) {
        RtspResponse response = refuse(302);
        response.add("Location", request.target);
        return response;
    }
    RtspResponse response;
    if (!authorize(request, response))
        return response;
    if (const std::string_view wanted = trimmed(request.header("Require"));
        !wanted.empty() && wanted != "onvif-replay") {
        response = refuse(551);
        response.add("Unsupported", std::string(wanted));
        return response;
    }
    const std::string_view session = request.header("Session");
    const std::string_view id = trimmed(session.substr(0, session.find(';')));
    if (!id.empty() && id != m_id)
        return refuse(454);
    if (request.method == "DESCRIBE")
        return describe(request, url);
    if (request.method == "SETUP")
        return setup(request, url);
    if (request.method == "GET_PARAMETER" || request.method == "SET_PARAMETER")
        response.status = 200;
    else if (request.method != "PLAY" && request.method != "PAUSE" && request.method != "TEARDOWN")
        return refuse(501);
    else if (id.empty() || !isOpen())
        return refuse(454);
    else if (request.method == "PLAY")
        response = play(request, url);
    else if (request.method == "PAUSE")
        response = pause();
    else
        m_tornDown = true;
    if (isOpen())
        response.add("Session", m_id + ";timeout=" + std::to_string(m_recorder.options.sessionTimeoutSeconds));
    if (m_tornDown)
        close();
    return response;
}

RtspResponse RtspSession::describe(const TextRequest& request, const RtspUrl& url)
{
    const ChannelFootage* footage = m_recorder.channel(url.channel);
    const bool known = footage && (url.kind == RtspUrl::Kind::Live || url.kind == RtspUrl::Kind::Replay) &&
                       (!url.isSub || footage->subLoop());
    if (!known || m_recorder.faults.strike("not-found", url.channel))
        return refuse(404);
    if (m_recorder.faults.strike("busy", url.channel))
        return refuse(503);
    SdpContext context;
    context.host = m_localHost;
    context.presentationUrl = request.target;
    context.trackUrlHead = url.query.empty() ? "trackID=" : url.base + "/trackID=";
    if (url.kind == RtspUrl::Kind::Replay)
        context.range = footage->calendar.whole();
    RtspResponse response;
    response.add("Content-Type", "application/sdp");
    response.add("Content-Base", url.query.empty() ? url.base + "/" : request.target);
    response.body = writeSdp(url.isSub ? *footage->subLoop() : *footage->loop, context);
    return response;
}

RtspResponse RtspSession::setup(const TextRequest& request, const RtspUrl& url)
{
    if (!m_recorder.channel(url.channel) || url.track >= trackCount ||
        (url.kind != RtspUrl::Kind::Live && url.kind != RtspUrl::Kind::Replay))
        return refuse(404);
    if (m_started || (isOpen() && url.base != m_url.base))
        return refuse(455);
    const int track = std::max(url.track, 0);
    SenderTrack made;
    if (!parseTransport(request.header("Transport"), track, made))
        return refuse(461);
    if (!isOpen()) {
        const bool full = m_recorder.statistics.rtspSessions >= m_recorder.options.maxSessions;
        if (full || m_recorder.faults.strike("session-limit", url.channel))
            return refuse(453);
        ++m_recorder.statistics.rtspSessions;
        char id[20];
        std::snprintf(id, sizeof id, "%08X%08X", QRandomGenerator::system()->generate(),
                      QRandomGenerator::system()->generate());
        m_id = id;
        m_url = url;
    }
    made.on = true;
    made.ssrc = QRandomGenerator::system()->generate();
    made.sequence = static_cast<std::uint16_t>(
        m_recorder.faults.number("seq-start", url.channel).value_or(QRandomGenerator::system()->generate() & 0x7fff));
    made.timeStart = static_cast<std::uint32_t>(m_recorder.faults.number("ts-start", url.channel)
                                                    .value_or(QRandomGenerator::system()->generate() & 0x7fffffff));
    m_tracks[static_cast<std::size_t>(track)] = made;

    char transport[120];
    std::snprintf(transport, sizeof transport, "RTP/AVP/TCP;unicast;interleaved=%d-%d;ssrc=%08X;mode=\"PLAY\"",
                  made.rtpChannel, made.rtcpChannel, made.ssrc);
    RtspResponse response;
    response.add("Transport", transport);
    response.add("Session", m_id + ";timeout=" + std::to_string(m_recorder.options.sessionTimeoutSeconds));
    return response;
}

void RtspSession::makeSender()
{
    const FaultPlan& faults = m_recorder.faults;
    ReplaySender::Options options;
    options.plan.packetSize = m_recorder.options.packetSize;
    const std::string extension =
        faults.value("ext", m_url.channel).value_or(m_url.kind == RtspUrl::Kind::Live ? "none" : "au");
    options.extensionOnce = extension == "first";
    options.plan.extension = extension == "au"    ? ExtensionMode::AccessUnit
                             : extension == "all" ? ExtensionMode::EveryPacket
                                                  : ExtensionMode::None;
    const std::string reports = faults.value("sr", m_url.channel).value_or("media");
    options.plan.senderReports = reports != "none";
    options.reportTime = reports == "wall"   ? ReportTime::Wall
                         : reports == "zero" ? ReportTime::Zero
                                             : ReportTime::Media;
    options.clockStepNs = faults.number("clock-step", m_url.channel).value_or(0) * nsPerSecond;
    m_sender = std::make_unique<ReplaySender>(m_recorder.plans, options, m_tracks);
    m_sender->setByeWanted(faults.value("end", m_url.channel).value_or("bye") == "bye");
}

RtspResponse RtspSession::play(const TextRequest& request, const RtspUrl& url)
{
    if (!m_sender)
        makeSender();
    const auto number = [&](const char* name) {
        const std::string text(request.header(name));
        const double value = std::atof(text.c_str());
        return value > 0 ? std::min(value, 1000.0) : 1.0;
    };
    const bool live = m_url.kind == RtspUrl::Kind::Live;
    double speed = number("Scale") * number("Speed");
    std::string_view control = trimmed(request.header("Rate-Control"));
    const RtspUrl& asked = url.query.empty() ? m_url : url;
    // A player that puts the span into the address has no means to ask for speed either.
    if (control.empty() && !asked.queryValue("clock").empty() && asked.queryValue("rate-control") != "yes")
        control = "no";
    const bool uncontrolled = equalsIgnoringCase(control, "no") && !live;
    if (uncontrolled)
        speed = m_recorder.options.speed;
    if (live)
        speed = 1;
    const auto cseq = static_cast<std::uint8_t>(std::atoi(std::string(request.header("CSeq")).c_str()));
    m_sender->setKeyFramesOnly(!live && request.header("Frames").substr(0, 5) == "intra");
    if (!startPlaying(request, asked, speed, cseq))
        return refuse(457);
    m_started = true;
    ++m_recorder.statistics.plays;

    RtspResponse response;
    if (!live) {
        std::string range = "clock=" + clockText(m_sender->nextUtcNs()) + "-";
        if (const auto wanted = RtspRange::parse(request.header("Range")); wanted && wanted->isClock && wanted->endNs)
            range += clockText(*wanted->endNs);
        response.add("Range", range);
        if (!control.empty())
            response.add("Rate-Control", uncontrolled ? "no" : "yes");
    } else {
        response.add("Range", "npt=now-");
    }
    if (request.has("Scale"))
        response.add("Scale", live ? "1.0" : std::to_string(number("Scale")));
    response.add("RTP-Info", rtpInfo());
    return response;
}

bool RtspSession::startPlaying(const TextRequest& request, const RtspUrl& url, double speed, std::uint8_t cseq)
{
    const ChannelFootage& footage = *m_recorder.channel(m_url.channel);
    if (m_url.kind == RtspUrl::Kind::Live) {
        m_sender->play(liveSchedule(m_url.isSub ? footage.subLoop() : footage.loop, m_recorder.liveOriginNs, wallNs()),
                       speed, cseq);
        return true;
    }
    std::string text(trimmed(request.header("Range")));
    const std::string inAddress = url.queryValue("clock");
    if (!inAddress.empty() && text.substr(0, 6) != "clock=" && !m_started)
        text = "clock=" + inAddress;
    if (text.empty() && m_started && m_sender->hasMore()) {
        m_sender->resume(speed, cseq);
        return true;
    }
    TimeSpan span = footage.calendar.whole();
    if (!text.empty()) {
        const auto range = RtspRange::parse(text);
        if (!range)
            return false;
        const std::int64_t offset = range->isClock ? 0 : span.beginNs;
        if (!range->isClock && m_started && range->beginNs.value_or(0) == 0 && m_sender->hasMore()) {
            m_sender->resume(speed, cseq);
            return true;
        }
        if (range->endNs)
            span.endNs = *range->endNs + offset;
        if (range->beginNs)
            span.beginNs = *range->beginNs + offset;
    }
    if (span.beginNs >= span.endNs)
        return false;
    ReplaySchedule schedule = footage.schedule(m_recorder.faultyRange(m_url.channel, span.beginNs, span.endNs));
    if (schedule.empty())
        return false;
    m_sender->play(std::move(schedule), speed, cseq);
    return true;
}

RtspResponse RtspSession::pause()
{
    if (!m_sender || !m_started)
        return refuse(455);
    m_sender->pause();
    return {};
}

std::string RtspSession::rtpInfo() const
{
    std::string out;
    for (int track = 0; track < trackCount; ++track) {
        if (!m_tracks[static_cast<std::size_t>(track)].on)
            continue;
        out += (out.empty() ? "url=" : ",url=") + m_url.base + "/trackID=" + std::to_string(track) +
               ";seq=" + std::to_string(m_sender->track(track).sequence) +
               ";rtptime=" + std::to_string(m_sender->nextRtpTime(track));
    }
    return out;
}

} // namespace recorder_sim
