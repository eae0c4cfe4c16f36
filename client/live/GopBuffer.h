#pragma once

#include <vav_frame.h>

#include <QByteArray>
#include <QVector>

namespace vemo_client {

/// Keeps the end of a live stream from its latest key frame on, with what describes it, so that a recording or a
/// decoder can begin at once. Holds whole packets of all tracks; beyond limitBytes it holds nothing until the next key
/// frame. Any thread, one at a time.
class GopBuffer final
{
public:
    static constexpr int limitBytes = 24 * 1024 * 1024;

    /// Whole packets, as the stream brings them. What is torn or unknown is left out.
    void add(const QByteArray& batch);
    void clear();
    bool isEmpty() const { return m_batches.isEmpty(); }
    int bytes() const { return m_bytes; }

    /// The description of the stream, then everything from the key frame on; empty when there is no key frame.
    QVector<QByteArray> packets() const;

private:
    QByteArray m_info; ///< the latest stream-info packet in front of the key frame
    int m_videoTrack = 0;
    QVector<QByteArray> m_batches;
    int m_bytes = 0;
};

} // namespace vemo_client
