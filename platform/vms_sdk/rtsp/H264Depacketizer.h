#pragma once

#include "AccessUnitAssembler.h"

namespace vms_sdk::rtsp {

/// RFC 6184 in the non-interleaved mode: single NAL units, STAP-A, FU-A.
class H264Depacketizer final : public Depacketizer
{
public:
    explicit H264Depacketizer(AccessUnitAssembler assembler);

    MediaLimit push(const TimedPacket& packet) override;
    void finish() override { m_assembler.finish(); }
    void interrupt() override { m_assembler.interrupt(); }

private:
    void pushAggregation(const std::uint8_t* data, std::size_t bytes);
    void pushFragment(const std::uint8_t* data, std::size_t bytes);

    AccessUnitAssembler m_assembler;
};

} // namespace vms_sdk::rtsp
