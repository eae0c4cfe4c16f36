#include "vav_frame.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    vav::PacketReader reader(data, size);
    std::size_t sum = 0;
    auto status = reader.next();
    for (; status == vav::PacketReader::Status::Packet; status = reader.next()) {
        if (reader.kind() == vav::PacketKind::StreamInfo) {
            // What was read can be written, and says the same.
            const std::vector<std::uint8_t> again = vav::encodeStreamInfo(reader.streamInfo());
            vav::PacketReader second(again.data(), again.size());
            if (second.next() != vav::PacketReader::Status::Packet ||
                second.streamInfo().tracks != reader.streamInfo().tracks)
                __builtin_trap();
        } else {
            for (std::size_t i = 0; i < reader.frame().payloadBytes; ++i)
                sum += reader.payload()[i];
        }
    }
    if (status != reader.next())
        __builtin_trap();
    return sum == ~std::size_t{0} ? -1 : 0;
}
