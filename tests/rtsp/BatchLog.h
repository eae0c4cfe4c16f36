#pragma once

#include "RtpBuilder.h"

#include "vav_frame.h"

#include <QByteArray>

#include <vector>

namespace rtptest {

/// Takes batches and remembers what was in them.
struct BatchLog
{
    struct Frame
    {
        vav::FrameHeader header;
        Bytes payload;
        std::size_t infosBefore; ///< stream-info packets that came before this frame
    };

    std::vector<Frame> frames;
    std::vector<vav::StreamInfo> infos;
    std::vector<std::size_t> batchBytes;
    bool readable = true;

    void take(const QByteArray& batch)
    {
        batchBytes.push_back(static_cast<std::size_t>(batch.size()));
        vav::PacketReader reader(batch.constData(), static_cast<std::size_t>(batch.size()));
        vav::PacketReader::Status status = reader.next();
        for (; status == vav::PacketReader::Status::Packet; status = reader.next()) {
            if (reader.kind() == vav::PacketKind::StreamInfo)
                infos.push_back(reader.streamInfo());
            else
                frames.push_back({reader.frame(),
                                  Bytes(reader.payload(), reader.payload() + reader.frame().payloadBytes),
                                  infos.size()});
        }
        readable = readable && status == vav::PacketReader::Status::End;
    }

    std::vector<Frame> ofTrack(unsigned track) const
    {
        std::vector<Frame> some;
        for (const Frame& frame : frames)
            if (frame.header.track == track)
                some.push_back(frame);
        return some;
    }
};

} // namespace rtptest
