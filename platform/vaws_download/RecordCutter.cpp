#include "RecordCutter.h"

#include "Bytes.h"
#include "ClockText.h"

extern "C" {
#include <libavformat/avformat.h>
}

#include <algorithm>
#include <memory>
#include <new>
#include <vector>

namespace vaws {
namespace {

constexpr std::int64_t nameResolutionNs = 1500 * nsPerMs; ///< spans of records are told in whole seconds
constexpr AVRational nsBase{1, 1'000'000'000};

vav::Codec codecOf(AVCodecID id)
{
    switch (id) {
    case AV_CODEC_ID_H264:
        return vav::Codec::H264;
    case AV_CODEC_ID_HEVC:
        return vav::Codec::H265;
    case AV_CODEC_ID_MJPEG:
        return vav::Codec::Mjpeg;
    case AV_CODEC_ID_AAC:
        return vav::Codec::Aac;
    case AV_CODEC_ID_PCM_ALAW:
        return vav::Codec::PcmA;
    case AV_CODEC_ID_PCM_MULAW:
        return vav::Codec::PcmU;
    default:
        return vav::Codec::Unknown;
    }
}

void appendNal(std::vector<std::uint8_t>& out, const std::uint8_t* nal, std::size_t size)
{
    const std::size_t at = out.size();
    out.resize(at + 4 + size);
    put32(out.data() + at, static_cast<std::uint32_t>(size));
    std::copy(nal, nal + size, out.begin() + static_cast<std::ptrdiff_t>(at + 4));
}

/// NAL units between start codes (ITU-T H.264 annex B), each behind its length.
std::vector<std::uint8_t> fromStartCodes(const std::uint8_t* data, std::size_t size)
{
    std::vector<std::uint8_t> out;
    out.reserve(size + 64);
    std::size_t nal = size;
    for (std::size_t i = 0; i + 3 <= size; ++i) {
        if (data[i] != 0 || data[i + 1] != 0 || data[i + 2] != 1)
            continue;
        if (nal < i) {
            std::size_t end = i;
            while (end > nal && data[end - 1] == 0)
                --end;
            appendNal(out, data + nal, end - nal);
        }
        nal = i + 3;
        i += 2;
    }
    if (nal < size)
        appendNal(out, data + nal, size - nal);
    return out;
}

/// The NAL units of a sample whose lengths have fewer than four bytes.
std::vector<std::uint8_t> fromShortLengths(const std::uint8_t* data, std::size_t size, std::size_t lengthBytes)
{
    std::vector<std::uint8_t> out;
    out.reserve(size + 64);
    while (size > lengthBytes) {
        std::size_t length = 0;
        for (std::size_t i = 0; i < lengthBytes; ++i)
            length = length << 8 | data[i];
        data += lengthBytes;
        size -= lengthBytes;
        if (length > size)
            break;
        appendNal(out, data, length);
        data += length;
        size -= length;
    }
    return out;
}

/// How a stream's access units are to be brought into the form with lengths of four bytes.
struct UnitForm
{
    bool startCodes = false;
    std::size_t lengthBytes = 4;
};

/// Parameter sets out of a decoder configuration record (ISO/IEC 14496-15 clause 5.3.3.1, 8.3.3.1) or behind start
/// codes.
std::vector<std::uint8_t> readConfiguration(const AVCodecParameters& codec, UnitForm& form)
{
    std::vector<std::uint8_t> sets;
    ByteReader in(codec.extradata, codec.extradata_size > 0 ? static_cast<std::size_t>(codec.extradata_size) : 0);
    if (in.left() < 7 || codec.extradata[0] != 1) {
        form.startCodes = true;
        return in.left() < 7 ? sets : fromStartCodes(codec.extradata, in.left());
    }
    auto takeSets = [&](unsigned count) {
        for (unsigned i = 0; i < count && in.good(); ++i) {
            const std::size_t size = in.u16();
            if (const std::uint8_t* nal = in.take(size))
                appendNal(sets, nal, size);
        }
    };
    if (codec.codec_id == AV_CODEC_ID_H264) {
        in.skip(4);
        form.lengthBytes = (in.u8() & 3u) + 1;
        takeSets(in.u8() & 0x1fu);
        takeSets(in.u8());
    } else {
        in.skip(21);
        form.lengthBytes = (in.u8() & 3u) + 1;
        for (unsigned arrays = in.u8(); arrays > 0 && in.good(); --arrays) {
            in.skip(1);
            takeSets(in.u16());
        }
    }
    return sets;
}

} // namespace

/// One open file with what its streams are.
class RecordCutter::Source final
{
public:
    explicit Source(std::atomic<bool>& stop)
        : m_packet(av_packet_alloc())
        , m_stop(stop)
    {}
    ~Source()
    {
        av_packet_free(&m_packet);
        avformat_close_input(&m_context);
    }
    Source(const Source&) = delete;
    Source& operator=(const Source&) = delete;

    bool open(const std::string& path, std::string& cause);
    vav::StreamInfo info(const CutRecord& record);
    void place(std::int64_t beginNs) { m_beginNs = beginNs; }
    std::int64_t beginNs() const { return m_beginNs; }
    void seek(std::int64_t timeNs, bool backward);
    /// The next frame of a wanted stream. 1 frame, 0 end, -1 broken.
    int next(vav::FrameHeader& header, const std::uint8_t*& payload);

private:
    struct Stream
    {
        vav::Codec codec = vav::Codec::Unknown;
        std::uint8_t track = 0;
        UnitForm form;
    };
    static int interrupted(void* self) { return static_cast<Source*>(self)->m_stop ? 1 : 0; }

    AVFormatContext* m_context = nullptr;
    AVPacket* m_packet;
    std::atomic<bool>& m_stop;
    std::vector<Stream> m_streams;
    std::vector<std::uint8_t> m_converted;
    int m_leading = -1;
    std::int64_t m_beginNs = 0; ///< UTC of the file's time 0
};

bool RecordCutter::Source::open(const std::string& path, std::string& cause)
{
    m_context = avformat_alloc_context();
    if (!m_context || !m_packet)
        return false;
    m_context->interrupt_callback = {&Source::interrupted, this};
    int error = avformat_open_input(&m_context, ("file:" + path).c_str(), nullptr, nullptr);
    if (error >= 0 && m_context->nb_streams == 0)
        error = avformat_find_stream_info(m_context, nullptr);
    bool described = error >= 0;
    for (unsigned i = 0; described && i < m_context->nb_streams; ++i)
        described = m_context->streams[i]->codecpar->codec_id != AV_CODEC_ID_NONE &&
                    m_context->streams[i]->codecpar->extradata_size > 0;
    if (error >= 0 && !described)
        error = avformat_find_stream_info(m_context, nullptr);
    if (error >= 0)
        return true;
    char text[AV_ERROR_MAX_STRING_SIZE] = {};
    av_strerror(error, text, sizeof text);
    cause = text;
    return false;
}

vav::StreamInfo RecordCutter::Source::info(const CutRecord& record)
{
    vav::StreamInfo info;
    m_beginNs = record.beginNs;
    const AVDictionaryEntry* start = av_dict_get(m_context->metadata, "com.vemo.start", nullptr, 0);
    std::int64_t exactNs = 0;
    if (start && parseIsoUtcText(start->value, exactNs))
        m_beginNs = exactNs;
    if (const AVDictionaryEntry* title = av_dict_get(m_context->metadata, "title", nullptr, 0))
        info.channelName = std::string(title->value).substr(0, 1024);
    if (const AVDictionaryEntry* artist = av_dict_get(m_context->metadata, "artist", nullptr, 0))
        info.deviceName = std::string(artist->value).substr(0, 1024);
    m_streams.resize(m_context->nb_streams);
    for (unsigned i = 0; i < m_context->nb_streams; ++i) {
        const AVCodecParameters& codec = *m_context->streams[i]->codecpar;
        Stream& stream = m_streams[i];
        vav::TrackInfo track;
        track.codec = codecOf(codec.codec_id);
        const bool attached = (m_context->streams[i]->disposition & AV_DISPOSITION_ATTACHED_PIC) != 0;
        if (track.codec == vav::Codec::Unknown || attached || info.tracks.size() == vav::maxTracks) {
            m_context->streams[i]->discard = AVDISCARD_ALL;
            continue;
        }
        stream.codec = track.codec;
        stream.track = track.track = static_cast<std::uint8_t>(info.tracks.size());
        track.clockRate = vav::isVideo(track.codec) ? 90000u : static_cast<std::uint32_t>(codec.sample_rate);
        track.width = static_cast<std::uint16_t>(codec.width);
        track.height = static_cast<std::uint16_t>(codec.height);
        track.channels = static_cast<std::uint16_t>(codec.ch_layout.nb_channels);
        track.bitRate = static_cast<std::uint32_t>(std::clamp<std::int64_t>(codec.bit_rate, 0, 0x7fffffff));
        if (track.codec == vav::Codec::H264 || track.codec == vav::Codec::H265)
            track.parameterSets = readConfiguration(codec, stream.form);
        else if (track.codec == vav::Codec::Aac && codec.extradata_size > 0)
            track.parameterSets.assign(codec.extradata, codec.extradata + codec.extradata_size);
        if (vav::isVideo(track.codec) && m_leading < 0)
            m_leading = static_cast<int>(i);
        info.tracks.push_back(std::move(track));
    }
    info.beginNs = m_beginNs;
    return info;
}

void RecordCutter::Source::seek(std::int64_t timeNs, bool backward)
{
    const int index = m_leading >= 0 ? m_leading : 0;
    const AVStream& stream = *m_context->streams[index];
    std::int64_t ticks = av_rescale_q(timeNs - m_beginNs, nsBase, stream.time_base);
    if (m_context->start_time != AV_NOPTS_VALUE)
        ticks += av_rescale_q(m_context->start_time, AV_TIME_BASE_Q, stream.time_base);
    if (timeNs > m_beginNs)
        av_seek_frame(m_context, index, ticks, backward ? AVSEEK_FLAG_BACKWARD : 0);
}

int RecordCutter::Source::next(vav::FrameHeader& header, const std::uint8_t*& payload)
{
    for (;;) {
        av_packet_unref(m_packet);
        const int error = av_read_frame(m_context, m_packet);
        if (error == AVERROR_EOF)
            return 0;
        if (error < 0)
            return -1;
        const auto index = static_cast<std::size_t>(m_packet->stream_index);
        const std::int64_t time = m_packet->pts != AV_NOPTS_VALUE ? m_packet->pts : m_packet->dts;
        if (index >= m_streams.size() || m_streams[index].codec == vav::Codec::Unknown || time == AV_NOPTS_VALUE ||
            m_packet->size <= 0)
            continue;
        if ((m_packet->flags & AV_PKT_FLAG_CORRUPT) != 0)
            return -1;
        const Stream& stream = m_streams[index];
        const AVRational base = m_context->streams[index]->time_base;
        std::int64_t fromBegin = av_rescale_q(time, base, nsBase);
        if (m_context->start_time != AV_NOPTS_VALUE)
            fromBegin -= av_rescale_q(m_context->start_time, AV_TIME_BASE_Q, nsBase);
        header = vav::FrameHeader();
        header.track = stream.track;
        header.flags = static_cast<std::uint8_t>((m_packet->flags & AV_PKT_FLAG_KEY) != 0 ? vav::KeyFrame : 0);
        header.timeNs = m_beginNs + fromBegin;
        header.durationUs = static_cast<std::uint32_t>(
            std::clamp<std::int64_t>(av_rescale_q(m_packet->duration, base, AVRational{1, 1'000'000}), 0, 0x7fffffff));
        payload = m_packet->data;
        auto bytes = static_cast<std::size_t>(m_packet->size);
        const bool units = stream.codec == vav::Codec::H264 || stream.codec == vav::Codec::H265;
        if (units && (stream.form.startCodes || stream.form.lengthBytes != 4)) {
            m_converted = stream.form.startCodes ? fromStartCodes(payload, bytes)
                                                 : fromShortLengths(payload, bytes, stream.form.lengthBytes);
            payload = m_converted.data();
            bytes = m_converted.size();
        }
        if (bytes > vav::maxPayloadBytes)
            return -1;
        header.payloadBytes = static_cast<std::uint32_t>(bytes);
        return 1;
    }
}

RecordCutter::RecordCutter(CutList list, FrameTarget& target)
    : m_list(std::move(list))
    , m_target(target)
{}

RecordCutter::~RecordCutter()
{
    requestStop();
    if (m_thread.joinable())
        m_thread.join();
}

void RecordCutter::start()
{
    m_thread = std::thread([this] { run(); });
}

void RecordCutter::run()
{
    try {
        readAll();
    } catch (const std::bad_alloc&) {
        m_target.sourceWithoutMemory();
    }
}

void RecordCutter::readAll()
{
    SourceEnd end;
    for (const CutRecord& record : m_list.records) {
        if (m_stop)
            return;
        std::string problem;
        const bool inSpan = record.endNs > m_list.beginNs && record.beginNs < m_list.endNs;
        const bool wanted = !inSpan || readRecord(record, problem);
        if (!problem.empty() && end.problem.empty())
            end.problem = problem;
        if (!wanted)
            break;
    }
    // Files that can't be read and nothing else is a bad source; beside good ones they are a gap.
    end.ok = m_any || end.problem.empty();
    if (!m_stop)
        m_target.sourceEnded(end);
}

bool RecordCutter::readRecord(const CutRecord& record, std::string& problem)
{
    Source source(m_stop);
    std::string cause;
    if (!source.open(record.path, cause)) {
        problem = "The recording file \"" + record.path + "\" cannot be read: " + cause + ".";
        return true;
    }
    const vav::StreamInfo info = source.info(record);
    if (info.tracks.empty()) {
        problem = "The recording file \"" + record.path + "\" holds nothing that an MP4 file can hold.";
        return true;
    }
    const std::int64_t overlap = m_writtenToNs - source.beginNs();
    if (m_any && overlap > 0 && overlap < nameResolutionNs)
        source.place(m_writtenToNs);
    else if (m_any && overlap > 0)
        source.seek(m_writtenToNs, false);
    if (m_list.beginNs > source.beginNs() && !m_any)
        source.seek(m_list.beginNs, true);
    if (!m_target.takeInfo(info))
        return false;
    return readPackets(source, record, problem);
}

bool RecordCutter::readPackets(Source& source, const CutRecord& record, std::string& problem)
{
    vav::FrameHeader header;
    const std::uint8_t* payload = nullptr;
    for (;;) {
        const int got = source.next(header, payload);
        if (m_stop)
            return false;
        if (got < 0)
            problem =
                "The recording file \"" + record.path + "\" is damaged; what comes behind the damage is left out.";
        if (got <= 0)
            return true;
        m_any = true;
        if (header.track == 0)
            m_writtenToNs = std::max(m_writtenToNs, header.timeNs + std::int64_t{header.durationUs} * 1000);
        if (!m_target.takeFrame(header, payload))
            return false;
    }
}

} // namespace vaws
