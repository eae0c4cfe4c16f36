#include "ScriptedRecorder.h"
#include "StreamLog.h"

#include <QRegularExpression>
#include <QTest>

#include <functional>

using namespace rtptest;
using namespace vms_sdk;
using namespace vms_sdk::rtsp;

namespace {

constexpr int waitMs = 10'000;
constexpr int pictures = 50;

/// One way in which a recorder may differ from the next.
struct Peer
{
    Script script;
    QString path = QStringLiteral("/replay");
    QByteArray setup;        ///< the address that SETUP must name, its scheme or host left out when they are as asked
    bool hasSound = false;   ///< the sound must arrive as well
    bool setsWithin = false; ///< parameter sets may stand in front of a key frame
};

using Change = std::function<QByteArray(QByteArray answer)>;

/// Applies to all answers, or to those of one method.
std::function<QByteArray(const RtspMessage&, const QByteArray&)> dressed(const Change& change,
                                                                         const QByteArray& method = {})
{
    return [change, method](const RtspMessage& request, const QByteArray& answer) {
        return method.isEmpty() || request.method == method ? change(answer) : answer;
    };
}

/// Takes a header away, or puts another line in its place; adds it where there was none.
Change withHeader(const QByteArray& name, const QByteArray& line)
{
    return [name, line](QByteArray answer) {
        const int begin = answer.indexOf("\r\n" + name + ":");
        const int headEnd = answer.indexOf("\r\n\r\n");
        const QByteArray whole = line.isEmpty() ? QByteArray() : QByteArray("\r\n" + line);
        if (begin >= 0 && begin < headEnd)
            return answer.replace(begin, answer.indexOf("\r\n", begin + 2) - begin, whole);
        return answer.insert(headEnd, whole);
    };
}

/// Header lines, each changed by `change`; the status line and the body stay.
Change eachHeader(const std::function<QByteArray(const QByteArray& name, const QByteArray& value)>& change)
{
    return [change](const QByteArray& answer) {
        const int headEnd = answer.indexOf("\r\n\r\n");
        QByteArray out;
        const QByteArray head = answer.left(headEnd);
        for (const QByteArray& line : head.split('\n')) {
            const QByteArray text = line.trimmed();
            const int colon = text.indexOf(": ");
            out += (out.isEmpty() || colon < 0 ? text : change(text.left(colon), text.mid(colon + 2))) + "\r\n";
        }
        return QByteArray(out + answer.mid(headEnd + 2));
    };
}

Change reversed()
{
    return [](const QByteArray& answer) {
        const int headEnd = answer.indexOf("\r\n\r\n");
        QList<QByteArray> lines = answer.left(headEnd).replace("\r\n", "\n").split('\n');
        std::reverse(lines.begin() + 1, lines.end());
        return QByteArray(lines.join("\r\n") + answer.mid(headEnd));
    };
}

QByteArray text(const Bytes& bytes)
{
    return QByteArray(reinterpret_cast<const char*>(bytes.data()), static_cast<int>(bytes.size()));
}

/// One payload that aggregates NAL units (RFC 6184 clause 5.7.1).
Bytes stapA(const std::vector<Bytes>& nals)
{
    Bytes payload = {0x78};
    for (const Bytes& nal : nals) {
        put16(payload, static_cast<unsigned>(nal.size()));
        append(payload, nal);
    }
    return payload;
}

bool isKey(int picture)
{
    return picture % 25 == 0;
}

} // namespace

Q_DECLARE_METATYPE(Peer)

/// What the standards allow recorders to do, and what they do wrong without harm: from each of them every picture
/// comes, unaltered and at its time.
class OddRecordersTest final : public QObject
{
    Q_OBJECT

private slots:
    void playsWhole_data();
    void playsWhole();
    void staysAlive_data();
    void staysAlive();

private:
    static void addRow(const char* name, const std::function<void(Peer*)>& change)
    {
        Peer peer;
        change(&peer);
        QTest::newRow(name) << peer;
    }
    static void dress(const char* name, const Change& change, const QByteArray& method = {})
    {
        addRow(name, [&](Peer* peer) { peer->script.dress = dressed(change, method); });
    }
    static void header(const char* name, const QByteArray& method, const QByteArray& line)
    {
        dress(name, withHeader(line.left(line.indexOf(':')), line), method);
    }
    static void describe(const char* name, const QByteArray& sdp, const QByteArray& setup, bool setsWithin = false)
    {
        addRow(name, [&](Peer* peer) {
            peer->script.sdp = sdp;
            peer->setup = setup;
            peer->setsWithin = setsWithin;
        });
    }
    static void packetize(const char* name, const std::function<std::vector<Bytes>(int, const Bytes&)>& change)
    {
        addRow(name, [&](Peer* peer) {
            peer->script.packetize = change;
            peer->setsWithin = true;
        });
    }
    static void mark(const char* name, const std::function<void(Rtp*, int, std::size_t)>& change)
    {
        addRow(name, [&](Peer* peer) { peer->script.mark = change; });
    }
    static void addMessageRows();
    static void addAddressRows();
    static void addDescriptionRows();
    static void addSetupRows();
    static void addPlayRows();
    static void addPacketRows();
};

void OddRecordersTest::addMessageRows()
{
    using Name = const QByteArray&;
    dress("lower-case headers",
          eachHeader([](Name name, Name value) -> QByteArray { return name.toLower() + ": " + value; }));
    dress("upper-case headers",
          eachHeader([](Name name, Name value) -> QByteArray { return name.toUpper() + ": " + value; }));
    dress("headers in another order", reversed());
    dress("no space behind the colon",
          eachHeader([](Name name, Name value) -> QByteArray { return name + ":" + value; }));
    dress("spaces and tabs around values",
          eachHeader([](Name name, Name value) -> QByteArray { return name + " :\t  " + value + " \t"; }));
    dress("folded headers", eachHeader([](Name name, Name value) -> QByteArray {
              return name + ": " + QByteArray(value).replace(";", ";\r\n ").replace(", ", ",\r\n\t");
          }));
    dress("values begin on the next line",
          eachHeader([](Name name, Name value) -> QByteArray { return name + ":\r\n " + value; }));
    dress("bare line feeds", [](const QByteArray& answer) {
        const int headEnd = answer.indexOf("\r\n\r\n") + 4;
        return QByteArray(answer.left(headEnd).replace("\r\n", "\n") + answer.mid(headEnd));
    });
    dress("empty lines behind answers", [](const QByteArray& answer) { return QByteArray(answer + "\r\n\r\n"); });
    dress("no reason phrase", [](QByteArray answer) { return answer.replace("200 Reason", "200"); });
    dress("empty reason phrase", [](QByteArray answer) { return answer.replace("200 Reason", "200 "); });
    dress("two spaces in the status line", [](QByteArray answer) { return answer.replace(" 200 ", "  200  "); });
    dress("an interim answer before each", [](const QByteArray& answer) {
        return QByteArray("RTSP/1.0 100 Continue\r\n" +
                          answer.mid(answer.indexOf("CSeq"), answer.indexOf("\r\n", 22) - 21) + "\r\n\r\n" + answer);
    });
    dress("no sequence numbers", withHeader("CSeq", ""));
    dress("headers nobody knows",
          withHeader("X", "X-Odd: \xff\xfe\x01 \xe4\r\nX-Empty:\r\nDate: 99 Foo 2026 25:61\r\nServer: "));
    dress("a length where there is no body", [](QByteArray answer) {
        return answer.contains("Content-Length") ? answer : withHeader("Content-Length", "Content-Length: 0")(answer);
    });
    dress("a leading zero in the length", [](QByteArray answer) { return answer.replace("Length: ", "Length: 000"); });
    header("methods in lower case", "OPTIONS", "Public: options, describe, setup, play, get_parameter");
    header("methods without spaces", "OPTIONS", "Public:OPTIONS,DESCRIBE,SETUP,PLAY,GET_PARAMETER");
    header("no methods told", "OPTIONS", "Public:");
    header("content type in capitals and with a character set", "DESCRIBE",
           "Content-Type: APPLICATION/SDP ;charset=utf-8");
    header("no content type", "DESCRIBE", "Content-Type:");
    addRow("knows no OPTIONS", [](Peer* peer) { peer->script.refusals.insert("OPTIONS", 501); });
    addRow("asks the client meanwhile", [](Peer* peer) {
        peer->script.dress = dressed(
            [](const QByteArray& answer) { return QByteArray("OPTIONS * RTSP/1.0\r\nCSeq: 77\r\n\r\n" + answer); });
    });
}

void OddRecordersTest::addAddressRows()
{
    const auto row = [](const char* name, const QByteArray& path, const QByteArray& baseLine, const QByteArray& control,
                        const QByteArray& setup) {
        addRow(name, [&](Peer* peer) {
            peer->path = QString::fromLatin1(path);
            peer->script.sdp = "v=0\r\na=control:*\r\n" + ScriptedRecorder::videoLines() +
                               (control.isNull() ? QByteArray() : QByteArray("a=control:" + control + "\r\n"));
            peer->setup = setup;
            if (!baseLine.isEmpty())
                peer->script.dress = dressed(withHeader("Content-Base", baseLine), "DESCRIBE");
        });
    };
    row("base with a slash", "/replay", "Content-Base: rtsp://h/base/", "trackID=1", "//h/base/trackID=1");
    row("base without a slash", "/replay", "Content-Base: rtsp://h/base", "trackID=1", "//h/base/trackID=1");
    row("base on the recorder's own idea of its address", "/replay", "Content-Base: rtsp://192.168.0.9:8554/x/", "v",
        "//192.168.0.9:8554/x/v");
    row("base with a query", "/replay?channel=1&sub=0", "", "trackID=1", "/replay?channel=1&sub=0/trackID=1");
    row("base with a query and a slash", "/r", "Content-Base: rtsp://h/r?a=b/", "v", "//h/r?a=b/v");
    row("relative base", "/replay/one", "Content-Base: /base/", "v", "/base/v");
    row("relative location", "/replay/one", "Content-Location: two/", "v", "/replay/two/v");
    row("no base", "/replay", "", "streamid=0", "/replay/streamid=0");
    row("base that is empty", "/replay", "Content-Base: ", "v", "/replay/v");
    row("absolute control address", "/replay", "", "rtsp://other:77/abs/v?x=1", "rtsp://other:77/abs/v?x=1");
    row("absolute control address in capitals", "/replay", "", "RTSP://h/V", "RTSP://h/V");
    row("control address with a leading slash", "/replay", "", "/trackID=1", "/replay/trackID=1");
    row("control address with two leading slashes at hand", "/replay/", "", "/trackID=1", "/replay/trackID=1");
    row("control address that is a query", "/replay", "", "?ctype=video", "/replay/?ctype=video");
    row("control address *", "/replay", "", "*", "/replay");
    row("no control address", "/replay", "", QByteArray(), "/replay");
    row("address with escapes", "/a%20b/%E4?x=%2F&y=a%26b", "", "v", "/a%20b/%E4?x=%2F&y=a%26b/v");
}

void OddRecordersTest::addDescriptionRows()
{
    const QByteArray video = ScriptedRecorder::videoLines();
    const QByteArray control = "a=control:video\r\n";
    describe("multicast address in the description",
             "v=0\r\no=- 1 1 IN IP4 10.0.0.1\r\ns= \r\nc=IN IP4 239.255.1.2/64\r\nt=0 0\r\na=recvonly\r\n" +
                 QByteArray(video).replace("m=video 0 ", "m=video 5004/2 ") + "c=IN IP4 239.255.1.3/15\r\n" + control,
             "/replay/video");
    describe("IPv6", "v=0\r\nc=IN IP6 ff15::1\r\n" + video + control, "/replay/video");
    describe("profile with feedback", "v=0\r\n" + QByteArray(video).replace("RTP/AVP", "RTP/AVPF") + control,
             "/replay/video");
    describe("bare line feeds in the description", QByteArray("v=0\r\n" + video + control).replace("\r\n", "\n"),
             "/replay/video");
    describe("no line end at the end", "v=0\r\n" + video + "a=control:video", "/replay/video");
    describe("empty lines and spaces", "v=0\r\n\r\n  " + QByteArray(video).replace("\r\n", " \r\n\r\n ") + control,
             "/replay/video");
    describe("lines nobody knows",
             "v=0\r\nb=AS:5000\r\nk=clear:x\r\nz=0 0\r\na=range:clock=20231114T221320Z-\r\na=\r\nx\r\n" + video +
                 "b=RR:0\r\na=x-dimensions:640,360\r\na=framerate:25.0\r\na=Media_header:MEDIAINFO=00;\r\n" + control,
             "/replay/video");
    describe("several video tracks",
             "v=0\r\n" + video + "a=control:first\r\n" + QByteArray(video).replace("96", "97") + "a=control:second\r\n",
             "/replay/first");
    describe("a video track of an unknown kind before the known one",
             "v=0\r\nm=video 0 RTP/AVP 98\r\na=rtpmap:98 VP9/90000\r\na=control:vp9\r\n" + video + control,
             "/replay/video");
    describe("metadata and a back channel before the video",
             "v=0\r\nm=application 0 RTP/AVP 107\r\na=rtpmap:107 vnd.onvif.metadata/90000\r\na=control:meta\r\n"
             "m=audio 0 RTP/AVP 0\r\na=sendonly\r\na=control:back\r\n" +
                 video + control,
             "/replay/video");
    describe("several formats of one track",
             "v=0\r\n" + QByteArray(video).replace("AVP 96", "AVP 96 97 26") + "a=rtpmap:97 H265/90000\r\n" + control,
             "/replay/video");
    describe("codec in lower case", "v=0\r\n" + QByteArray(video).replace("H264", "h264") + control, "/replay/video");
    describe("channels of a video track", "v=0\r\n" + QByteArray(video).replace("/90000", "/90000/1") + control,
             "/replay/video");
    describe("spaces in the parameters",
             "v=0\r\n" +
                 QByteArray(video).replace("96 sprop", "96  packetization-mode=1; profile-level-id=42C01E ; sprop") +
                 control,
             "/replay/video");
    describe("parameters end in a semicolon",
             "v=0\r\n" + QByteArray(video).replace("==\r\n", "==;\r\n").replace("yA=\r\n", "yA=;\r\n") + control,
             "/replay/video");
    describe("attribute names in capitals",
             "v=0\r\n" + QByteArray(video).replace("a=rtpmap", "a=RTPMAP") + "a=CONTROL:video\r\n", "/replay/video");
    addRow("sound before the video", [&](Peer* peer) {
        peer->script.sdp = "v=0\r\nm=audio 0 RTP/AVP 0\r\na=control:audio\r\n" + video + control;
        peer->script.hasSound = peer->hasSound = true;
    });
}

void OddRecordersTest::addSetupRows()
{
    const auto transport = [](const char* name, const QByteArray& value, unsigned channel = 4) {
        addRow(name, [&](Peer* peer) {
            const QByteArray line = value.isNull() ? QByteArray() : QByteArray("Transport: " + value);
            peer->script.dress = dressed(withHeader("Transport", line), "SETUP");
            if (channel != 4)
                peer->script.channel = static_cast<std::uint8_t>(channel);
        });
    };
    transport("other channels than asked", "RTP/AVP/TCP;unicast;interleaved=4-5");
    transport("the channels asked for", "RTP/AVP/TCP;unicast;interleaved=0-1", 0);
    transport("the highest channels", "RTP/AVP/TCP;unicast;interleaved=254-255", 254);
    transport("one channel named", "RTP/AVP/TCP;unicast;interleaved=4");
    transport("no channel named", "RTP/AVP/TCP;unicast", 0);
    transport("spaces", " RTP/AVP/TCP ; unicast ; interleaved=4-5 ");
    transport("lower case", "rtp/avp/tcp;unicast;interleaved=4-5");
    transport("capitals", "RTP/AVP/TCP;UNICAST;INTERLEAVED=4-5");
    transport("source, mode and name of the stream",
              "RTP/AVP/TCP;unicast;destination=10.0.0.1;source=10.0.0.2;interleaved=4-5;ssrc=;mode=\"PLAY\"");
    transport("another order", "RTP/AVP/TCP;ssrc=1A2B3C4D;mode=play;interleaved=4-5;unicast");
    transport("UDP by name, channels by number", "RTP/AVP;unicast;interleaved=4-5");
    transport("no transport", QByteArray(), 0);

    header("session with a short timeout", "SETUP", "Session: 8hG.-_$+7;timeout=2");
    header("session without a timeout", "SETUP", "Session: 1");
    header("session with a timeout of nothing", "SETUP", "Session: 1;timeout=0");
    header("session with a timeout beyond numbers", "SETUP", "Session: 1;timeout=99999999999999");
    header("session with a negative timeout", "SETUP", "Session: 1;timeout=-1");
    header("session with spaces", "SETUP", "Session: 12345678 ; timeout = 30 ");
    header("long session", "SETUP", "Session: " + QByteArray(400, 'a') + ";timeout=60");
    dress("no session", withHeader("Session", ""), "SETUP");
}

void OddRecordersTest::addPlayRows()
{
    header("range in whole seconds", "PLAY", "Range: clock=20231114T221320Z-");
    header("range in other units", "PLAY", "Range: npt=now-");
    header("range that is none", "PLAY", "Range: later");
    header("scale and speed", "PLAY", "Scale: 1.000000\r\nSpeed: 1.0");
    addRow("packets before the answer to PLAY", [](Peer* peer) { peer->script.playsBeforeItAnswers = true; });

    // The time of a picture is known from the answer alone: RTP times begin anywhere.
    constexpr std::uint32_t start = 4'294'900'000;
    const auto info = [](const char* name, const QByteArray& line, bool hasSound) {
        addRow(name, [&](Peer* peer) {
            peer->script.withoutTimes = true;
            peer->script.end = StreamEnd::Bye;
            peer->script.hasSound = peer->hasSound = hasSound;
            peer->script.mark = [](Rtp* header, int, std::size_t) { header->timestamp += start; };
            peer->script.dress = dressed(withHeader("RTP-Info", line), "PLAY");
        });
    };
    const QByteArray video = ";seq=0;rtptime=4294900000";
    info("relative address in RTP-Info", "RTP-Info: url=video" + video, false);
    info("absolute address in RTP-Info", "RTP-Info: url=rtsp://elsewhere/replay/video" + video, false);
    info("RTP-Info of two tracks",
         "RTP-Info: url=rtsp://elsewhere/replay/video" + video + ",url=rtsp://elsewhere/replay/audio;seq=0;rtptime=0",
         true);
    info("RTP-Info of two tracks without the base", "RTP-Info: url=video" + video + ", url=audio;rtptime=0", true);
    info("RTP-Info in quotes", "RTP-Info: url=\"rtsp://h/replay/video\"" + video + ",url=\"audio\";rtptime=0", true);
    info("no RTP-Info", "RTP-Info:", false);
}

void OddRecordersTest::addPacketRows()
{
    const Bytes delimiter = {0x09, 0xF0};
    const Bytes sei = {0x06, 0x05, 0x02, 0x01, 0x02, 0x80};
    packetize("a packet a NAL unit", [](int, const Bytes& nal) { return std::vector<Bytes>{nal}; });
    packetize("parameter sets as packets of their own", [](int picture, const Bytes& nal) {
        return isKey(picture) ? std::vector<Bytes>{sps640(), pps(), nal} : std::vector<Bytes>{nal};
    });
    packetize("aggregated", [=](int picture, const Bytes& nal) {
        return std::vector<Bytes>{stapA(isKey(picture) ? std::vector<Bytes>{delimiter, sps640(), pps(), sei, nal}
                                                       : std::vector<Bytes>{delimiter, nal})};
    });
    packetize("aggregated with a filled tail", [](int, const Bytes& nal) {
        Bytes payload = stapA({nal});
        payload.push_back(0);
        return std::vector<Bytes>{payload};
    });
    packetize("small fragments", [](int, const Bytes& nal) { return fragments(nal, 7); });
    packetize("fragments that end in an empty one", [](int, const Bytes& nal) {
        std::vector<Bytes> parts = fragments(nal, 200);
        parts.back()[1] &= 0xBF;
        parts.push_back({parts.back()[0], static_cast<std::uint8_t>(parts.back()[1] | 0x40)});
        return parts;
    });
    packetize("fragments with an empty one between", [](int, const Bytes& nal) {
        std::vector<Bytes> parts = fragments(nal, 200);
        parts.insert(parts.begin() + 1, {parts[1][0], static_cast<std::uint8_t>(parts[1][1] & 0x3F)});
        return parts;
    });
    packetize("empty packets between", [](int, const Bytes& nal) { return std::vector<Bytes>{Bytes(), nal, Bytes()}; });
    addRow("parameter sets in the stream alone", [](Peer* peer) {
        peer->script.sdp =
            "v=0\r\nm=video 0 RTP/AVP 96\r\na=rtpmap:96 H264/90000\r\na=fmtp:96 packetization-mode=0\r\n";
        peer->script.packetize = [](int picture, const Bytes& nal) {
            return isKey(picture) ? std::vector<Bytes>{sps640(), pps(), nal} : std::vector<Bytes>{nal};
        };
        peer->setsWithin = true;
    });

    mark("no marker", [](Rtp* header, int, std::size_t) { header->marker = false; });
    mark("a marker on every packet", [](Rtp* header, int, std::size_t) { header->marker = true; });
    mark("padded packets", [](Rtp* header, int, std::size_t) { header->padding = 4; });
    mark("contributing sources", [](Rtp* header, int, std::size_t) { header->csrcCount = 3; });
    mark("another name of the stream on the way",
         [](Rtp* header, int picture, std::size_t) { header->ssrc = picture < 25 ? 1 : 2; });
    mark("sequence numbers over their end", [](Rtp* header, int, std::size_t) {
        header->sequence = static_cast<std::uint16_t>(header->sequence + 65'520);
    });
    mark("RTP time over its end", [](Rtp* header, int, std::size_t) { header->timestamp += 4'294'900'000; });
    mark("times on the first picture only",
         [](Rtp* header, int picture, std::size_t) { header->withReplay = picture == 0 || header->replayFlags != 0; });
    addRow("control packets on every channel", [](Peer* peer) {
        peer->script.packetize = [](int, const Bytes& nal) { return fragments(nal, 100); };
        peer->script.dress = dressed(
            [](const QByteArray& answer) {
                return QByteArray(answer + text(interleaved(5, senderReport(ntpOf(ScriptedRecorder::beginNs), 0))) +
                                  text(interleaved(77, Bytes(30, 1))) + text(interleaved(5, Bytes())));
            },
            "PLAY");
    });
}

void OddRecordersTest::playsWhole_data()
{
    QTest::addColumn<Peer>("peer");
    addMessageRows();
    addAddressRows();
    addDescriptionRows();
    addSetupRows();
    addPlayRows();
    addPacketRows();
}

void OddRecordersTest::playsWhole()
{
    QFETCH(Peer, peer);
    ScriptedRecorder recorder(peer.script);
    StreamRequest request;
    request.url =
        QUrl::fromEncoded("rtsp://127.0.0.1:" + QByteArray::number(recorder.serverPort()) + peer.path.toLatin1());
    request.beginNs = ScriptedRecorder::beginNs;
    request.endNs = ScriptedRecorder::beginNs + pictures * ScriptedRecorder::frameNs;
    request.rateControl = false;
    request.answerTimeoutMs = 2'000;
    request.silenceTimeoutMs = 600;
    StreamClient client(request);
    StreamLog log(client);
    client.start();
    QVERIFY(QTest::qWaitFor([&log] { return log.hasEnded(); }, waitMs));
    QVERIFY2(log.end == StreamOutcome::EndOfRecording, qPrintable(log.error.message + log.error.context));
    QVERIFY(log.batches.readable);

    const std::vector<BatchLog::Frame> video = log.batches.ofTrack(0);
    QCOMPARE(static_cast<int>(video.size()), pictures);
    for (int i = 0; i < pictures; ++i) {
        const BatchLog::Frame& frame = video[static_cast<std::size_t>(i)];
        QCOMPARE(frame.header.timeNs, ScriptedRecorder::beginNs + i * ScriptedRecorder::frameNs);
        const QByteArray sent = recorder.payload(i);
        const QByteArray whole = text(lengthPrefixed({Bytes(sent.begin(), sent.end())}));
        const QByteArray got = text(frame.payload);
        QVERIFY2(peer.setsWithin ? got.endsWith(whole) : got == whole, "a picture was altered on the way");
        QCOMPARE((frame.header.flags & vav::KeyFrame) != 0, isKey(i));
    }
    QVERIFY(!log.batches.infos.empty());
    QCOMPARE(static_cast<int>(log.batches.infos.back().tracks.front().width), 640);
    QByteArray setup = peer.setup;
    if (setup.startsWith("//"))
        setup.prepend("rtsp:");
    else if (setup.startsWith('/'))
        setup.prepend("rtsp://127.0.0.1:" + QByteArray::number(recorder.serverPort()));
    if (!setup.isEmpty())
        QCOMPARE(recorder.firstOf("SETUP").uri, setup);

    const std::vector<BatchLog::Frame> sound = log.batches.ofTrack(1);
    QCOMPARE(static_cast<int>(sound.size()), peer.hasSound ? pictures : 0);
    for (int i = 0; i < static_cast<int>(sound.size()); ++i) {
        const BatchLog::Frame& frame = sound[static_cast<std::size_t>(i)];
        QCOMPARE(text(frame.payload), ScriptedRecorder::sound(i));
        QCOMPARE(frame.header.timeNs, ScriptedRecorder::beginNs + i * ScriptedRecorder::frameNs);
    }
}

void OddRecordersTest::staysAlive_data()
{
    QTest::addColumn<QByteArray>("methods"); // told by OPTIONS
    QTest::addColumn<bool>("refuses");       // the first keep-alive
    QTest::addColumn<QByteArray>("used");    // by the last keep-alive
    QTest::newRow("GET_PARAMETER") << QByteArray("DESCRIBE, GET_PARAMETER") << false << QByteArray("GET_PARAMETER");
    QTest::newRow("lower case") << QByteArray("describe,get_parameter") << false << QByteArray("GET_PARAMETER");
    QTest::newRow("on a line of its own")
        << QByteArray("DESCRIBE\r\nPublic: GET_PARAMETER") << false << QByteArray("GET_PARAMETER");
    QTest::newRow("SET_PARAMETER alone") << QByteArray("DESCRIBE, SET_PARAMETER") << false << QByteArray("OPTIONS");
    QTest::newRow("nothing told") << QByteArray() << false << QByteArray("OPTIONS");
    QTest::newRow("told and refused") << QByteArray("GET_PARAMETER") << true << QByteArray("OPTIONS");
}

void OddRecordersTest::staysAlive()
{
    QFETCH(QByteArray, methods);
    QFETCH(bool, refuses);
    QFETCH(QByteArray, used);
    Script script;
    script.pictures = 100'000;
    script.picturesAtOnce = 1;
    script.sessionTimeoutS = 2;
    script.dress = dressed(withHeader("Public", "Public: " + methods), "OPTIONS");
    if (refuses)
        script.refusals.insert("GET_PARAMETER", 501);
    ScriptedRecorder recorder(script);
    StreamRequest request;
    request.url = recorder.url();
    request.beginNs = ScriptedRecorder::beginNs;
    StreamClient client(request);
    StreamLog log(client);
    client.start();
    QTRY_VERIFY_WITH_TIMEOUT(!log.order.isEmpty(), waitMs);
    const int before = recorder.requests.size();
    QTRY_VERIFY_WITH_TIMEOUT(recorder.requests.size() >= before + (refuses ? 2 : 1), waitMs);
    QVERIFY(!log.hasEnded());
    QCOMPARE(recorder.requests.last().method, used);
    QCOMPARE(recorder.requests.last().header("Session"), QByteArray("s1"));
}

QTEST_GUILESS_MAIN(OddRecordersTest)
#include "OddRecordersTest.moc"
