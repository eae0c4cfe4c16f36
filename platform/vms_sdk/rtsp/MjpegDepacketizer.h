#pragma once

#include "Depacketizer.h"
#include "JpegTables.h"
#include "StreamDescription.h"
#include "TrackOutput.h"

#include <map>

namespace vms_sdk::rtsp {

/// RFC 2435: makes one JFIF image a frame. Types 0 and 1, with restart markers (64, 65), up to 2040 x 2040.
class MjpegDepacketizer final : public Depacketizer
{
public:
    MjpegDepacketizer(vav::TrackInfo track, TrackOutput& output, StreamDescription& description);

    MediaLimit push(const TimedPacket& packet) override;
    void finish() override { interrupt(); }
    void interrupt() override;

private:
    struct Header;

    static bool parseHeader(const std::uint8_t* data, std::size_t bytes, Header& header);
    bool beginFrame(const Header& header);
    bool quantizers(const Header& header, JpegFrame& frame);
    void closeFrame();
    void breakFrame();

    vav::TrackInfo m_track;
    TrackOutput& m_output;
    StreamBatcher& m_batcher;
    StreamDescription& m_description;

    struct Tables
    {
        std::uint8_t luma[64];
        std::uint8_t chroma[64];
    };
    std::map<unsigned, Tables> m_tables; ///< those sent for qualities from 128 to 254

    bool m_open = false;
    bool m_broken = false; ///< skip what is left of the frame with m_timestamp
    std::uint32_t m_timestamp = 0;
    std::int64_t m_timeNs = 0;
    std::size_t m_expectedOffset = 0;
};

} // namespace vms_sdk::rtsp
