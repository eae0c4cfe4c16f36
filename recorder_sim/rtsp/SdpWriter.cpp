#include "rtsp/SdpWriter.h"

#include "media/PacketPlan.h"
#include "rtsp/RtspUrl.h"

#include <QByteArray>

#include <cstdio>

namespace recorder_sim {
namespace {

std::string base64(const std::string& bytes)
{
    return QByteArray(bytes.data(), static_cast<int>(bytes.size())).toBase64().toStdString();
}

std::string hex(const std::string& bytes)
{
    return QByteArray(bytes.data(), static_cast<int>(bytes.size())).toHex().toStdString();
}

std::string videoLines(const VideoClip& clip, const std::string& type)
{
    if (clip.codec == Codec::H265) {
        return "a=rtpmap:" + type + " H265/90000\r\na=fmtp:" + type + " sprop-vps=" + base64(clip.vps) +
               ";sprop-sps=" + base64(clip.sps) + ";sprop-pps=" + base64(clip.pps) + "\r\n";
    }
    return "a=rtpmap:" + type + " H264/90000\r\na=fmtp:" + type +
           " packetization-mode=1;profile-level-id=" + hex(clip.sps.substr(1, 3)) +
           ";sprop-parameter-sets=" + base64(clip.sps) + "," + base64(clip.pps) + "\r\n";
}

std::string audioLines(const AudioClip& clip, const std::string& type)
{
    const std::string rate = std::to_string(clip.sampleRate);
    if (clip.codec != Codec::Aac)
        return "a=rtpmap:" + type + (clip.codec == Codec::Pcmu ? " PCMU/" : " PCMA/") + rate + "\r\n";
    return "a=rtpmap:" + type + " mpeg4-generic/" + rate + "/" + std::to_string(clip.channels) + "\r\na=fmtp:" + type +
           " streamtype=5;profile-level-id=1;mode=AAC-hbr;sizelength=13;indexlength=3;indexdeltalength=3;config=" +
           hex(clip.config) + "\r\n";
}

} // namespace

std::string writeSdp(const MediaLoop& loop, const SdpContext& context)
{
    const VideoClip& video = loop.video();
    const AudioClip& audio = loop.audio();
    std::string out =
        "v=0\r\no=- 1 1 IN IP4 " + context.host + "\r\ns=Simulated recorder\r\nc=IN IP4 0.0.0.0\r\nt=0 0\r\n";
    out += "a=control:" + context.presentationUrl + "\r\n";
    if (context.range)
        out += "a=range:clock=" + clockText(context.range->beginNs) + "-" + clockText(context.range->endNs) + "\r\n";
    const std::string videoType = std::to_string(PacketPlan::payloadType(videoTrack, video.codec));
    const std::string audioType = std::to_string(PacketPlan::payloadType(audioTrack, audio.codec));
    const std::string direction = context.range ? "a=recvonly\r\n" : "a=sendonly\r\n";
    out += "m=video 0 RTP/AVP " + videoType + "\r\na=control:" + context.trackUrlHead + "0\r\n" + direction;
    if (context.range)
        out += "a=x-onvif-track:VIDEO001\r\n";
    out += videoLines(video, videoType) + "a=framerate:" + std::to_string(VideoClip::framesPerSecond) + "\r\n";
    out += "a=x-dimensions:" + std::to_string(video.width) + "," + std::to_string(video.height) + "\r\n";
    out += "m=audio 0 RTP/AVP " + audioType + "\r\na=control:" + context.trackUrlHead + "1\r\n" + direction;
    if (context.range)
        out += "a=x-onvif-track:AUDIO001\r\n";
    out += audioLines(audio, audioType);
    return out;
}

} // namespace recorder_sim
