#pragma once

#include "AccessUnitAssembler.h"

namespace vms_sdk::rtsp {

/// RFC 7798 without decoding order numbers (sprop-max-don-diff 0): single NAL units, aggregation packets, fragmentation
/// units.
class H265Depacketizer final : public Depacketizer
{
public:
    explicit H265Depacketizer(AccessUnitAssembler assembler);

    MediaLimit push(const TimedPacket& packet) override;
    void finish() override { m_assembler.finish(); }
    void interrupt() override { m_assembler.interrupt(); }

private:
    void pushAggregation(const std::uint8_t* data, std::size_t bytes);
    void pushFragment(const std::uint8_t* data, std::size_t bytes);

    AccessUnitAssembler m_assembler;
};

} // namespace vms_sdk::rtsp
