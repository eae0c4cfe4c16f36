#pragma once

#include "SdkLife.h"

#include "vav_frame.h"

#include <vector>

/// The pictures of one stream as they came; consumes them when told to.
struct Viewer
{
    explicit Viewer(bool consumes = true)
        : isConsuming(consumes)
    {
        QObject::connect(&vms_sdk::ClientSignals::instance(), &vms_sdk::ClientSignals::signalStreamData, &context,
                         [this](quint64 id, const QByteArray& batch) {
                             streamId = id;
                             take(batch);
                         });
    }

    void take(const QByteArray& batch)
    {
        unconsumed += batch.size();
        if (isConsuming)
            consume();
        vav::PacketReader reader(batch.constData(), static_cast<std::size_t>(batch.size()));
        while (reader.next() == vav::PacketReader::Status::Packet) {
            if (reader.kind() == vav::PacketKind::StreamInfo)
                width = reader.streamInfo().tracks.front().width;
            else if (reader.frame().track == 0)
                pictures.push_back(reader.frame());
            else
                ++sounds;
        }
    }
    void consume()
    {
        vms_sdk::stream_data_consumed(streamId, unconsumed);
        unconsumed = 0;
    }
    bool has(std::size_t count) const
    {
        return QTest::qWaitFor([&] { return pictures.size() >= count; }, patienceMs);
    }

    bool isConsuming;
    quint64 streamId = 0;
    qint64 unconsumed = 0;
    int width = 0;
    int sounds = 0;
    std::vector<vav::FrameHeader> pictures;
    QObject context;
};
