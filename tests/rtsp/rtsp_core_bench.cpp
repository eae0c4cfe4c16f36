// How fast the path from received bytes to batches is, without a socket: reader, RTP, depacketizer, batcher over a
// stream in memory. One thread; prints GB of received bytes a second of CPU time, so that other programs disturb it
// little. Not part of the test run.
#include "MediaReceiver.h"
#include "RtpBuilder.h"
#include "RtspReader.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>

using namespace vms_sdk::rtsp;

namespace {

constexpr std::size_t unitBytes = 40'000;
constexpr int units = 500;

rtptest::Bytes makeStream(std::size_t packetBytes, bool replayOnEachPacket)
{
    rtptest::Bytes stream;
    std::uint16_t sequence = 0;
    for (int unit = 0; unit < units; ++unit) {
        const rtptest::Bytes nal = rtptest::h264Nal(unit % 25 == 0 ? 5 : 1, unitBytes, static_cast<std::uint8_t>(unit));
        const std::vector<rtptest::Bytes> parts = rtptest::fragments(nal, packetBytes);
        for (std::size_t i = 0; i < parts.size(); ++i) {
            rtptest::Rtp header;
            header.sequence = sequence++;
            header.timestamp = static_cast<std::uint32_t>(unit) * 3600;
            header.marker = i + 1 == parts.size();
            header.withReplay = replayOnEachPacket || i == 0;
            header.ntpTime = rtptest::ntpOf(1'700'000'000'000'000'000 + unit * 40'000'000LL);
            rtptest::append(stream, rtptest::interleaved(0, rtptest::rtp(header, parts[i])));
        }
    }
    return stream;
}

double measure(const rtptest::Bytes& stream, std::size_t chunkBytes)
{
    std::uint64_t out = 0;
    MediaReceiver receiver([&](const QByteArray& batch) { out += static_cast<std::uint64_t>(batch.size()); },
                           vav::StreamInfo());
    MediaFormat format;
    format.track.codec = vav::Codec::H264;
    format.track.clockRate = 90'000;
    format.parameterSets = ParameterSets(vav::Codec::H264);
    format.parameterSets.apply(
        {{rtptest::sps640().data(), rtptest::sps640().size()}, {rtptest::pps().data(), rtptest::pps().size()}});
    format.track.parameterSets = format.parameterSets.encoded();
    receiver.addTrack(format, 96, 0);

    RtspReader reader;
    std::uint64_t in = 0;
    const std::clock_t begin = std::clock();
    double seconds = 0;
    while (seconds < 0.3) {
        std::size_t at = 0;
        while (at < stream.size()) {
            std::uint8_t* area = reader.writeArea();
            const std::size_t bytes = std::min({chunkBytes, reader.writeRoom(), stream.size() - at});
            std::memcpy(area, stream.data() + at, bytes);
            reader.commit(bytes);
            at += bytes;
            while (reader.next() == RtspReader::Event::Packet)
                receiver.packet(reader.channel(), reader.packet(), reader.packetBytes());
        }
        in += stream.size();
        seconds = static_cast<double>(std::clock() - begin) / CLOCKS_PER_SEC;
    }
    receiver.finish();
    if (out < in / 10 * 9) {
        std::fprintf(stderr, "only %llu of %llu bytes came out\n", static_cast<unsigned long long>(out),
                     static_cast<unsigned long long>(in));
        std::exit(1);
    }
    return static_cast<double>(in) / seconds / 1e9;
}

} // namespace

int main()
{
    for (const std::size_t packetBytes : {1400, 8000, 60'000})
        for (const bool each : {false, true})
            for (const std::size_t chunk : {64 * 1024, 256 * 1024, 512 * 1024})
                std::printf("packets of %5zu bytes, time on %s, read by %3zu KiB: %.2f GB a CPU second\n", packetBytes,
                            each ? "each packet" : "the first  ", chunk / 1024,
                            measure(makeStream(packetBytes, each), chunk));
    return 0;
}
