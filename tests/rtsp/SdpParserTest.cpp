#include "SdpParser.h"
#include "MediaChoice.h"
#include "RtspHeaders.h"

#include <gtest/gtest.h>

using namespace vms_sdk::rtsp;

namespace {

const char* const twoMedia =
    "v=0\r\n"
    "o=- 1 1 IN IP4 127.0.0.1\r\n"
    "s=Replay\r\n"
    "a=control:*\r\n"
    "m=application 0 RTP/AVP 107\r\n"
    "a=rtpmap:107 vnd.onvif.metadata/90000\r\n"
    "m=video 0 RTP/AVP 96 97\r\n"
    "a=rtpmap:97 JPEG/90000\r\n"
    "a=rtpmap:96 h264/90000\r\n"
    "a=fmtp:96 packetization-mode=1; Sprop-Parameter-Sets=Z0LAHtkAoC/5cBEAAAMAAQAAAwAyDxYuSA==,aMuDyyA=;x\r\n"
    "a=control:trackID=1\r\n"
    "m=audio 0 RTP/AVP 0\r\n"
    "a=sendonly\r\n"
    "m=audio 0 RTP/AVP 98\r\n"
    "a=rtpmap:98 mpeg4-generic/16000/2\r\n"
    "a=fmtp:98 streamtype=5;mode=AAC-hbr;config=1410;sizeLength=13;indexLength=3;indexDeltaLength=3\r\n"
    "a=control:rtsp://h/s/trackID=2\r\n";

SdpMedia medium(const QByteArray& sdpTail)
{
    SdpSession session;
    parseSdp("v=0\r\n" + sdpTail, session);
    return session.media.isEmpty() ? SdpMedia() : session.media.first();
}

} // namespace

TEST(SdpParser, findsVideoAndAudioAmongOtherMedia)
{
    SdpSession session;
    ASSERT_TRUE(parseSdp(twoMedia, session));
    QByteArray refused;
    const std::vector<ChosenMedium> media = chooseMedia(session, "rtsp://h/s", true, refused);
    ASSERT_EQ(media.size(), 2u);
    EXPECT_EQ(media[0].format.track.codec, vav::Codec::H264);
    EXPECT_EQ(media[0].format.track.width, 640);
    EXPECT_EQ(media[0].format.track.height, 360);
    EXPECT_TRUE(media[0].format.isComplete());
    EXPECT_EQ(media[0].payloadType, 96);
    EXPECT_EQ(media[0].uri.toStdString(), "rtsp://h/s/trackID=1");
    EXPECT_EQ(media[1].format.track.codec, vav::Codec::Aac);
    EXPECT_EQ(media[1].format.track.clockRate, 16'000u);
    EXPECT_EQ(media[1].format.track.channels, 2);
    EXPECT_EQ(media[1].uri.toStdString(), "rtsp://h/s/trackID=2");
    EXPECT_EQ(chooseMedia(session, "rtsp://h/s", false, refused).size(), 1u);
}

TEST(SdpParser, leavesBackChannelsAloneUnlessAllMediaLookLikeOne)
{
    const QByteArray video = "m=video 0 RTP/AVP 96\r\na=rtpmap:96 H264/90000\r\n";
    const QByteArray audio = "m=audio 0 RTP/AVP 0\r\n";
    const QByteArray sendOnly = "a=sendonly\r\n";
    const auto count = [](const QByteArray& media) {
        SdpSession session;
        parseSdp("v=0\r\n" + media, session);
        QByteArray refused;
        return chooseMedia(session, "rtsp://h/s", true, refused).size();
    };
    EXPECT_EQ(count(video + audio + sendOnly), 1u);
    EXPECT_EQ(count(video + sendOnly + audio + sendOnly), 2u);
}

TEST(SdpParser, judgesWhatCanBeReceived)
{
    const struct
    {
        const char* sdp;
        bool receivable;
        vav::Codec codec;
    } rows[] = {
        {"m=audio 0 RTP/AVP 0\r\n", true, vav::Codec::PcmU},
        {"m=audio 0 RTP/AVP 8\n", true, vav::Codec::PcmA},
        {"m=audio 0 RTP/AVP 99\r\na=rtpmap:99 G726-24/8000\r\n", true, vav::Codec::G726},
        {"m=video 0 RTP/AVP 26\r\n", true, vav::Codec::Mjpeg},
        {"m=video 0 RTP/AVP 96\r\na=rtpmap:96 H265/90000\r\n", true, vav::Codec::H265},
        {"m=video 0 RTP/AVP 96\r\na=rtpmap:96 H265/90000\r\na=fmtp:96 sprop-max-don-diff=2\r\n", false, {}},
        {"m=video 0 RTP/AVP 96\r\na=rtpmap:96 H264/90000\r\na=fmtp:96 packetization-mode=2\r\n", false, {}},
        {"m=video 0 RTP/AVP 96\r\na=rtpmap:96 H264/1\r\n", false, {}},
        {"m=video 0 RTP/AVP 96\r\n", false, {}},
        {"m=video 0 RTP/AVP 96\r\na=rtpmap:96 VP8/90000\r\n", false, {}},
        {"m=audio 0 RTP/AVP 96\r\na=rtpmap:96 MPEG4-GENERIC/48000\r\n", true, vav::Codec::Aac},
        {"m=audio 0 RTP/AVP 96\r\na=rtpmap:96 MPEG4-GENERIC/48001\r\n", false, {}},
        {"m=audio 0 RTP/AVP 96\r\na=rtpmap:96 MPEG4-GENERIC/48000\r\na=fmtp:96 mode=AAC-hbr;config=1190;sizelength=0;"
         "indexlength=0\r\n",
         false,
         {}},
        {"m=audio 0 RTP/AVP 96\r\na=rtpmap:96 MPEG4-GENERIC/48000\r\na=fmtp:96 "
         "mode=AAC-hbr;config=1190;sizelength=99\r\n",
         false,
         {}},
        {"m=audio 0 RTP/AVP 96\r\na=rtpmap:96 MPEG4-GENERIC/48000\r\na=fmtp:96 mode=CELP-vbr;config=1190\r\n",
         false,
         {}},
        {"m=audio 0 RTP/AVP 999\r\na=rtpmap:999 PCMU/8000\r\n", false, {}},
    };
    for (const auto& row : rows) {
        MediaFormat format;
        QByteArray reason;
        ASSERT_EQ(makeMediaFormat(medium(row.sdp), format, reason), row.receivable) << row.sdp;
        if (row.receivable)
            EXPECT_EQ(format.track.codec, row.codec) << row.sdp;
        else
            EXPECT_FALSE(reason.isEmpty()) << row.sdp;
    }
}

TEST(SdpParser, refusesWhatIsNoDescription)
{
    SdpSession session;
    EXPECT_FALSE(parseSdp("", session));
    EXPECT_FALSE(parseSdp("<html></html>", session));
    EXPECT_FALSE(parseSdp("m=video 0 RTP/AVP 96\r\n", session));
    EXPECT_FALSE(parseSdp("v=0\r\nm=video\r\n", session));
    EXPECT_FALSE(parseSdp("v=0\r\n" + QByteArray("a=x\r\n").repeated(5'000), session));
    EXPECT_FALSE(parseSdp("v=0\r\n" + QByteArray("m=video 0 RTP/AVP 96\r\n").repeated(65), session));
}

TEST(SdpParser, resolvesControlAddresses)
{
    EXPECT_EQ(resolveControl("rtsp://h/s", "*").toStdString(), "rtsp://h/s");
    EXPECT_EQ(resolveControl("rtsp://h/s/", "trackID=1").toStdString(), "rtsp://h/s/trackID=1");
    EXPECT_EQ(resolveControl("rtsp://h/s/", "/trackID=1").toStdString(), "rtsp://h/s/trackID=1");
    EXPECT_EQ(resolveControl("rtsp://h/s?a=b", "trackID=1").toStdString(), "rtsp://h/s?a=b/trackID=1");
    EXPECT_EQ(resolveControl("rtsp://h/s", "RTSPS://x/y").toStdString(), "RTSPS://x/y");
}

TEST(RtspHeaders, writesAndReadsClockRanges)
{
    const std::int64_t timeNs = 1'706'745'599'123'456'789;
    EXPECT_EQ(formatClock(timeNs, Rounding::Down).toStdString(), "20240131T235959.123Z");
    EXPECT_EQ(formatClock(timeNs, Rounding::Up).toStdString(), "20240131T235959.124Z");
    const struct
    {
        const char* text;
        bool readable;
        std::int64_t beginNs;
        std::int64_t endNs;
    } rows[] = {
        {"clock=20240131T235959.123Z-", true, 1'706'745'599'123'000'000, 0},
        {"CLOCK=20240131T235959Z-20240201T000000.5Z;time=x", true, 1'706'745'599'000'000'000,
         1'706'745'600'500'000'000},
        {"clock=20240131T235959.1234567891Z-", true, 1'706'745'599'123'456'789, 0},
        {"npt=0-", false, 0, 0},
        {"clock=20240131T235959", false, 0, 0},
        {"clock=20241331T235959Z-", false, 0, 0},
        {"clock=99990131T235959Z-", false, 0, 0},
        {"clock=20240131T235959.xZ-", false, 0, 0},
        {"", false, 0, 0},
    };
    for (const auto& row : rows) {
        std::int64_t beginNs = 0;
        std::int64_t endNs = 0;
        ASSERT_EQ(parseClockRange(row.text, beginNs, endNs), row.readable) << row.text;
        if (row.readable) {
            EXPECT_EQ(beginNs, row.beginNs) << row.text;
            EXPECT_EQ(endNs, row.endNs) << row.text;
        }
    }
}

TEST(RtspHeaders, readsTransportSessionAndRtpInfo)
{
    EXPECT_EQ(parseTransport("RTP/AVP/TCP;unicast;interleaved=6-7;ssrc=1", 0).rtpChannel, 6);
    EXPECT_EQ(parseTransport("RTP/AVP/TCP;unicast", 4).rtpChannel, 4);
    EXPECT_FALSE(parseTransport("RTP/AVP;unicast;client_port=1-2", 0).interleaved);
    EXPECT_FALSE(parseTransport("RTP/AVP/TCP;interleaved=255-256", 0).interleaved);
    EXPECT_TRUE(parseTransport("RTP/AVP;unicast;interleaved=6-7", 0).interleaved);
    EXPECT_TRUE(parseTransport("", 0).interleaved);

    EXPECT_EQ(parseSession(" abc ; timeout = 30").timeoutS, 60);
    EXPECT_EQ(parseSession("abc;timeout=30").timeoutS, 30);
    EXPECT_EQ(parseSession("abc;timeout=0").timeoutS, 2);
    EXPECT_EQ(parseSession("abc;timeout=2147483647").timeoutS, 24 * 3600);
    EXPECT_EQ(parseSession("abc;timeout=30").id.toStdString(), "abc");

    const QList<RtpInfoEntry> info = parseRtpInfo("url=rtsp://h/1;seq=5;rtptime=4294967295, url=b;rtptime=x");
    ASSERT_EQ(info.size(), 2);
    EXPECT_EQ(info.at(0).url.toStdString(), "rtsp://h/1");
    EXPECT_EQ(info.at(0).rtpTime, 4294967295u);
    EXPECT_FALSE(info.at(1).hasRtpTime);
    EXPECT_EQ(requestUri(QUrl(QStringLiteral("rtsp://me:secret@h:554/a b?c=d#e"))).toStdString(),
              "rtsp://h:554/a%20b?c=d");
}
