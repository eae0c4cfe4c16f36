#include "GopBuffer.h"

namespace vemo_client {

void GopBuffer::add(const QByteArray& batch)
{
    int keyAt = -1;
    QByteArray info = m_info;
    QByteArray infoAhead = m_info; // of the key frame
    vav::PacketReader reader(batch.constData(), static_cast<std::size_t>(batch.size()));
    while (reader.next() == vav::PacketReader::Status::Packet) {
        if (reader.kind() == vav::PacketKind::StreamInfo) {
            const vav::StreamInfo& told = reader.streamInfo();
            const std::vector<std::uint8_t> packet = vav::encodeStreamInfo(told);
            info = QByteArray(reinterpret_cast<const char*>(packet.data()), static_cast<int>(packet.size()));
            for (auto track = told.tracks.rbegin(); track != told.tracks.rend(); ++track) {
                if (vav::isVideo(track->codec))
                    m_videoTrack = track->track;
            }
        } else if (reader.frame().track == m_videoTrack && (reader.frame().flags & vav::KeyFrame)) {
            const auto* begin = reinterpret_cast<const std::uint8_t*>(batch.constData());
            keyAt = static_cast<int>(reader.payload() - begin) - static_cast<int>(vav::headerBytes);
            infoAhead = info;
        }
    }
    if (keyAt >= 0) {
        m_info = infoAhead;
        m_batches = {keyAt == 0 ? batch : batch.mid(keyAt)};
        m_bytes = m_batches.first().size();
    } else if (m_batches.isEmpty()) {
        m_info = info;
    } else {
        m_batches.append(batch);
        m_bytes += batch.size();
    }
    if (m_bytes > limitBytes) {
        m_info = info;
        m_batches.clear();
        m_bytes = 0;
    }
}

void GopBuffer::clear()
{
    *this = GopBuffer();
}

QVector<QByteArray> GopBuffer::packets() const
{
    if (m_batches.isEmpty())
        return {};
    return QVector<QByteArray>{m_info} + m_batches;
}

} // namespace vemo_client
