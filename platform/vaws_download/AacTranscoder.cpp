#include "AacTranscoder.h"

#include "ClockText.h"
#include "GapTimeline.h"

#include <algorithm>
#include <new>
#include <utility>

namespace vaws {
namespace {

constexpr std::int64_t bitRatePerChannel = 32'000;

/// ITU-T G.711 expansion to 16 bits.
std::int16_t expandALaw(std::uint8_t code)
{
    code ^= 0x55;
    int value = (code & 0x0f) << 4;
    const int segment = (code & 0x70) >> 4;
    value += segment == 0 ? 8 : 0x108;
    if (segment > 1)
        value <<= segment - 1;
    return static_cast<std::int16_t>((code & 0x80) ? value : -value);
}

std::int16_t expandMuLaw(std::uint8_t code)
{
    code = static_cast<std::uint8_t>(~code);
    const int value = ((((code & 0x0f) << 3) + 0x84) << ((code & 0x70) >> 4)) - 0x84;
    return static_cast<std::int16_t>((code & 0x80) ? -value : value);
}

std::array<float, 256> expansionTable(vav::Codec codec)
{
    std::array<float, 256> table{};
    for (unsigned code = 0; code < table.size(); ++code) {
        const auto octet = static_cast<std::uint8_t>(code);
        table[code] = static_cast<float>(codec == vav::Codec::PcmA ? expandALaw(octet) : expandMuLaw(octet)) / 32768.0f;
    }
    return table;
}

} // namespace

bool AacTranscoder::open(const vav::TrackInfo& source, std::string& error)
{
    const int channels = std::max<int>(source.channels, 1);
    const AVCodec* codec = avcodec_find_encoder(AV_CODEC_ID_AAC);
    if (!codec || channels > 2 || source.clockRate < 7350 || source.clockRate > 96000) {
        error = "The stream's G.711 sound has parameters that cannot be turned into AAC.";
        return false;
    }
    m_encoder.reset(avcodec_alloc_context3(codec));
    m_frame.reset(av_frame_alloc());
    m_packet.reset(av_packet_alloc());
    if (!m_encoder || !m_frame || !m_packet)
        return false;
    m_encoder->sample_rate = static_cast<int>(source.clockRate);
    av_channel_layout_default(&m_encoder->ch_layout, channels);
    m_encoder->sample_fmt = AV_SAMPLE_FMT_FLTP;
    m_encoder->bit_rate = bitRatePerChannel * channels;
    m_encoder->flags |= AV_CODEC_FLAG_GLOBAL_HEADER;
    m_encoder->time_base = AVRational{1, m_encoder->sample_rate};
    m_encoder->thread_count = 1;
    m_encoder->log_level_offset = AV_LOG_DEBUG; // its statistics are of no interest
    if (avcodec_open2(m_encoder.get(), codec, nullptr) < 0) {
        error = "The AAC encoder does not take the stream's sampling rate.";
        return false;
    }
    m_frame->nb_samples = static_cast<int>(frameSamples);
    m_frame->format = m_encoder->sample_fmt;
    m_frame->sample_rate = m_encoder->sample_rate;
    if (av_channel_layout_copy(&m_frame->ch_layout, &m_encoder->ch_layout) < 0 ||
        av_frame_get_buffer(m_frame.get(), 0) < 0)
        return false;
    m_expansion = expansionTable(source.codec);
    m_track = source;
    m_track.codec = vav::Codec::Aac;
    m_track.channels = static_cast<std::uint16_t>(channels);
    m_track.bitRate = static_cast<std::uint32_t>(m_encoder->bit_rate);
    m_track.parameterSets.assign(m_encoder->extradata, m_encoder->extradata + m_encoder->extradata_size);
    m_thread = std::thread([this] { run(); });
    return true;
}

AacTranscoder::~AacTranscoder()
{
    {
        const std::lock_guard lock(m_mutex);
        m_stop = true;
    }
    m_changed.notify_all();
    if (m_thread.joinable())
        m_thread.join();
}

void AacTranscoder::push(std::int64_t mediaNs, const std::uint8_t* data, std::size_t size)
{
    {
        const std::lock_guard lock(m_mutex);
        m_in.push_back({mediaNs, std::vector<std::uint8_t>(data, data + size)});
        m_backlog += size;
    }
    m_changed.notify_all();
}

bool AacTranscoder::take(Packet& packet)
{
    const std::lock_guard lock(m_mutex);
    if (m_noMemory)
        throw std::bad_alloc();
    if (m_out.empty())
        return false;
    packet = std::move(m_out.front());
    m_out.pop_front();
    return true;
}

void AacTranscoder::drain()
{
    std::unique_lock lock(m_mutex);
    m_draining = true;
    m_changed.notify_all();
    m_changed.wait(lock, [&] { return m_drained; });
}

std::size_t AacTranscoder::backlogBytes() const
{
    const std::lock_guard lock(m_mutex);
    return m_backlog;
}

void AacTranscoder::run()
{
    try {
        encodeAll();
    } catch (const std::bad_alloc&) {
        const std::lock_guard lock(m_mutex);
        m_noMemory = m_drained = true;
        m_changed.notify_all();
    }
}

void AacTranscoder::encodeAll()
{
    for (;;) {
        Chunk chunk;
        {
            std::unique_lock lock(m_mutex);
            m_changed.wait(lock, [&] { return m_stop || !m_in.empty() || (m_draining && !m_drained); });
            if (m_stop)
                return;
            if (m_in.empty()) {
                lock.unlock();
                completeWithSilence();
                avcodec_send_frame(m_encoder.get(), nullptr);
                receive();
                lock.lock();
                m_drained = true;
                m_changed.notify_all();
                continue;
            }
            chunk = std::move(m_in.front());
            m_in.pop_front();
        }
        encodeChunk(chunk);
        const std::lock_guard lock(m_mutex);
        m_backlog -= chunk.bytes.size();
    }
}

void AacTranscoder::encodeChunk(const Chunk& chunk)
{
    const auto channels = static_cast<std::size_t>(m_track.channels);
    const std::int64_t tolerance = m_track.clockRate / 50; // 20 ms: less is jitter of the sender's clock
    const std::int64_t at = nsToTicks(chunk.mediaNs, m_track.clockRate);
    if (!m_started) {
        m_position = at;
        m_started = true;
    } else if (at > m_position + tolerance) {
        completeWithSilence();
        m_position = std::max(at, m_position);
    }
    std::size_t skip = 0;
    if (at < m_position - tolerance)
        skip = std::min(chunk.bytes.size() / channels, static_cast<std::size_t>(m_position - at));
    for (std::size_t i = skip * channels; i + channels <= chunk.bytes.size(); i += channels) {
        for (std::size_t c = 0; c < channels; ++c)
            m_partial.push_back(m_expansion[chunk.bytes[i + c]]);
        ++m_position;
        if (m_partial.size() == frameSamples * channels)
            encodeFrame();
    }
}

void AacTranscoder::completeWithSilence()
{
    const std::size_t whole = frameSamples * static_cast<std::size_t>(m_track.channels);
    if (m_partial.empty())
        return;
    m_position += static_cast<std::int64_t>((whole - m_partial.size()) / m_track.channels);
    m_partial.resize(whole, 0.0f);
    encodeFrame();
}

void AacTranscoder::encodeFrame()
{
    const auto channels = static_cast<std::size_t>(m_track.channels);
    if (av_frame_make_writable(m_frame.get()) < 0)
        return;
    for (std::size_t c = 0; c < channels; ++c) {
        auto* plane = reinterpret_cast<float*>(m_frame->extended_data[c]);
        for (std::size_t i = 0; i < frameSamples; ++i)
            plane[i] = m_partial[i * channels + c];
    }
    m_partial.clear();
    const std::int64_t begin = m_position - std::int64_t{frameSamples};
    m_frame->pts = begin;
    if (m_framePositions.empty() && !m_primed) {
        // The encoder delays by its padding: its first packet decodes to what comes before the first sample.
        m_framePositions.push_back(begin - m_encoder->initial_padding);
        m_primed = true;
    }
    m_framePositions.push_back(begin);
    if (avcodec_send_frame(m_encoder.get(), m_frame.get()) >= 0)
        receive();
}

void AacTranscoder::receive()
{
    while (avcodec_receive_packet(m_encoder.get(), m_packet.get()) >= 0) {
        Packet packet;
        if (m_framePositions.empty()) {
            av_packet_unref(m_packet.get());
            continue;
        }
        packet.presentation = m_framePositions.front();
        m_framePositions.pop_front();
        packet.bytes.assign(m_packet->data, m_packet->data + m_packet->size);
        av_packet_unref(m_packet.get());
        const std::lock_guard lock(m_mutex);
        m_out.push_back(std::move(packet));
    }
}

} // namespace vaws
