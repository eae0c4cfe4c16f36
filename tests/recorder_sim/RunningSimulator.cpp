#include "RunningSimulator.h"

#include "Depacketizer.h"
#include "net/NativeSocket.h"

#include <QCoreApplication>
#include <QCryptographicHash>
#include <QUrl>

#include <algorithm>

namespace recorder_sim {
namespace {

constexpr int silenceMs = 3000;

Simulator& simulator()
{
    static int argc = 1;
    static char name[] = "test";
    static char* argv[] = {name, nullptr};
    static QCoreApplication application(argc, argv);
    static Simulator made([] {
        Options options;
        options.password = "pw";
        options.channels = 4;
        options.firstDay = QDate(2026, 1, 10);
        options.zone = QTimeZone::utc();
        options.sessionTimeoutSeconds = 20;
        options.maxSessions = 8;
        return options;
    }());
    static const bool started = made.start();
    if (!started)
        ADD_FAILURE() << made.error().toStdString();
    return made;
}

std::string dechunked(const std::string& body)
{
    std::string out;
    std::size_t at = 0;
    while (at < body.size()) {
        const std::size_t line = body.find("\r\n", at);
        const std::size_t size = std::stoul(body.substr(at, line - at), nullptr, 16);
        out += body.substr(line + 2, size);
        at = line + 2 + size + 2;
        if (size == 0)
            break;
    }
    return out;
}

/// Gathers the packets of one access unit, then counts it as a sample.
class Collector
{
public:
    Collector(Received& received, Codec video, Codec audio, int audioRate)
        : m_received(received)
        , m_codecs{video, audio}
        , m_audioRate(audioRate)
    {}

    void packet(int channel, std::string_view bytes)
    {
        const int track = channel / 2;
        if (channel % 2 == 1) {
            m_received.byes += static_cast<unsigned char>(bytes[1]) == 201;
            return;
        }
        const ParsedRtp rtp = parseRtp(bytes);
        check(rtp.valid);
        check(!m_seen[track] || rtp.sequence == static_cast<std::uint16_t>(m_sequence[track] + 1));
        m_seen[track] = true;
        m_sequence[track] = rtp.sequence;
        if (rtp.hasExtension) {
            m_utcNs[track] = rtp.ntpUtcNs;
            m_flags[track] = rtp.flags;
            m_received.lastFlags[track] = rtp.flags;
            if (track == 0 && (rtp.flags & 0x20))
                m_received.discontinuities.push_back(rtp.ntpUtcNs);
            if (track == 0 && (rtp.flags & 0x40))
                m_received.sectionEnds.push_back(rtp.ntpUtcNs);
        }
        m_payloads[track].emplace_back(rtp.payload);
        if (track == 0 && !rtp.marker)
            return;
        bool good = true;
        if (track == 0) {
            add(track, m_utcNs[track], joinVideo(m_codecs[0], m_payloads[0], good));
        } else if (m_codecs[1] == Codec::Aac) {
            std::int64_t index = 0;
            for (const std::string& unit : splitAac(rtp.payload, good))
                add(track, m_utcNs[track] + index++ * 1024 * 1'000'000'000 / m_audioRate, unit);
        } else {
            add(track, m_utcNs[track], std::string(rtp.payload));
        }
        check(good);
        m_payloads[track].clear();
    }

private:
    void check(bool good) { m_received.sound = m_received.sound && good; }

    void add(int track, std::int64_t utcNs, const std::string& sample)
    {
        const QByteArray bytes = QByteArray::fromRawData(sample.data(), static_cast<int>(sample.size()));
        m_received.samples[track].push_back(
            {track, utcNs, (m_flags[track] & 0x80) != 0, sample.size(),
             QCryptographicHash::hash(bytes, QCryptographicHash::Md5).toHex().toStdString()});
    }

    Received& m_received;
    Codec m_codecs[2];
    int m_audioRate;
    bool m_seen[2] = {false, false};
    std::uint16_t m_sequence[2] = {0, 0};
    std::int64_t m_utcNs[2] = {0, 0};
    std::uint8_t m_flags[2] = {0, 0};
    std::vector<std::string> m_payloads[2];
};

} // namespace

bool Sample::operator==(const Sample& other) const
{
    // Presentation times of audio units inside a packet are not told to the nanosecond.
    return track == other.track && std::abs(utcNs - other.utcNs) <= 2 && key == other.key && size == other.size &&
           md5 == other.md5;
}

std::ostream& operator<<(std::ostream& out, const Sample& sample)
{
    return out << "track " << sample.track << " at " << sample.utcNs << (sample.key ? " key " : " ") << sample.size
               << " bytes " << sample.md5;
}

void RunningSimulator::SetUpTestSuite()
{
    simulator();
}

void RunningSimulator::SetUp()
{
    control("/reset", "POST");
}

void RunningSimulator::TearDown()
{
    control("/reset", "POST");
}

std::uint16_t RunningSimulator::port(const char* which)
{
    const QJsonObject line = QJsonDocument::fromJson(simulator().addresses()).object();
    return static_cast<std::uint16_t>(QUrl(line.value(QLatin1String(which)).toString()).port());
}

RtspReader RunningSimulator::reader(const std::string& path, const std::string& password)
{
    RtspReader::Target target;
    target.port = port("rtsp");
    target.path = path;
    target.user = "admin";
    target.password = password;
    return RtspReader(target);
}

std::string RunningSimulator::http(std::uint16_t port, const std::string& request)
{
    std::string error;
    NativeSocket socket = NativeSocket::connectTo("127.0.0.1", port, error);
    EXPECT_TRUE(socket.isValid()) << error;
    EXPECT_EQ(socket.write(request.data(), request.size()).bytes, request.size());
    std::string answer;
    std::string buffer(64 * 1024, '\0');
    for (;;) {
        const IoResult got = socket.read(buffer.data(), buffer.size());
        answer.append(buffer.data(), got.bytes);
        if (got.status == IoStatus::Closed || answer.size() > 256 * 1024 * 1024)
            return answer;
        if (got.status == IoStatus::WouldBlock && socket.wait(ByteStream::Readable, 10'000) == ByteStream::Nothing)
            return answer;
    }
}

std::string RunningSimulator::control(const std::string& target, const std::string& method)
{
    const std::string answer = http(port("control"), method + " " + target + " HTTP/1.1\r\nConnection: close\r\n\r\n");
    const std::size_t head = answer.find("\r\n\r\n");
    EXPECT_EQ(answer.substr(0, 12), "HTTP/1.1 200") << target << ": " << answer.substr(0, 300);
    const std::string body = head == std::string::npos ? std::string() : answer.substr(head + 4);
    return answer.find("chunked") < head ? dechunked(body) : body;
}

std::vector<Sample> RunningSimulator::truth(int channel, const char* begin, const char* end, int track)
{
    const std::string lines =
        control("/samples?channel=" + std::to_string(channel) + "&begin=" + begin + "&end=" + end);
    std::vector<Sample> out;
    for (const QByteArray& line : QByteArray::fromStdString(lines).split('\n')) {
        const QJsonObject object = QJsonDocument::fromJson(line).object();
        if (line.isEmpty() || object.value(QStringLiteral("track")).toInt() != track)
            continue;
        // JSON numbers of Qt 5 are doubles, too short for nanoseconds.
        const int at = line.indexOf("utc_ns\":") + 8;
        out.push_back({track, line.mid(at, line.indexOf(',', at) - at).toLongLong(),
                       object.value(QStringLiteral("key")).toBool(),
                       static_cast<std::size_t>(object.value(QStringLiteral("size")).toInt()),
                       object.value(QStringLiteral("md5")).toString().toStdString()});
    }
    return out;
}

Received RunningSimulator::replay(int channel, const std::string& begin, const std::string& end)
{
    Received received;
    RtspReader client = reader("/replay/" + std::to_string(channel));
    const std::string headers =
        "Require: onvif-replay\r\nRate-Control: no\r\nRange: clock=" + begin + "-" + end + "\r\n";
    if (!client.connect() || !client.play(headers)) {
        ADD_FAILURE() << client.error();
        return received;
    }
    const std::string& sdp = client.description();
    const bool h265 = sdp.find("H265") != std::string::npos;
    const bool aac = sdp.find("mpeg4-generic") != std::string::npos;
    const int rate = sdp.find("/48000") != std::string::npos   ? 48000
                     : sdp.find("/16000") != std::string::npos ? 16000
                                                               : 8000;
    Collector collector(received, h265 ? Codec::H265 : Codec::H264, aac ? Codec::Aac : Codec::Pcma, rate);
    const bool framed = client.readPackets(
        [&](int interleaved, std::string_view packet) {
            collector.packet(interleaved, packet);
            return received.byes < 2;
        },
        silenceMs);
    received.sound = received.sound && framed;
    return received;
}

} // namespace recorder_sim
