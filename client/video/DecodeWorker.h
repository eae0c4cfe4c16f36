#pragma once

#include "DecodeMailbox.h"

#include <QElapsedTimer>
#include <QObject>
#include <QVector>

#include <atomic>

namespace vemo_client {

class PlaybackClock;

/// Decodes what lies in a mailbox, on a thread of its own: made there or moved there, woken by wake(), stopped by the
/// end of its thread. Calls `tell` after it has put something into the mailbox.
class DecodeWorker final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(DecodeWorker)

public:
    DecodeWorker(std::shared_ptr<DecodeMailbox> mailbox, std::function<void()> tell);
    ~DecodeWorker() override;

    /// Any thread.
    void wake();
    /// Any thread: gives up as soon as the access unit in work is done.
    void stop() { m_stopped = true; }
    /// nullptr: pictures are shown as they come. Any thread.
    void setClock(const PlaybackClock* clock) { m_clock = clock; }

private:
    void work();
    void takeUnit(const DecodeMailbox::Order& order);
    void takeInfo(const vav::StreamInfo& info);
    void takeFrame(const DecodeMailbox::Order& order);
    void takeGap(const vav::FrameHeader& header, const DecodeMailbox::Order& order);
    void receive(const DecodeMailbox::Order& order);
    void takePicture(DecodeMailbox::Frame frame, const DecodeMailbox::Order& order);
    void showPending(const DecodeMailbox::Order& order);
    bool isLate(qint64 timeNs) const;
    void setHurry(const DecodeMailbox::Order& order);
    void noteRate(const vav::FrameHeader& header);
    void noteFormat(const vemo_decode::Frame& frame);
    void noteProblem();
    void setProblem(const QString& sentence);
    VideoPicture draw(const DecodeMailbox::Frame& frame, const QSize& size);
    QImage* freeImage(const QSize& size);

    const std::shared_ptr<DecodeMailbox> m_mailbox;
    const std::function<void()> m_tell;
    std::atomic_bool m_wakePosted{false};
    std::atomic_bool m_stopped{false};
    std::atomic<const PlaybackClock*> m_clock{nullptr};

    // Of the decoding thread.
    std::unique_ptr<vemo_decode::Decoder> m_decoder;
    bool m_triedLibrary = false;
    quint64 m_generation = 0;
    vav::Codec m_codec = vav::Codec::Unknown;
    std::vector<std::uint8_t> m_parameterSets;
    bool m_waitsForKey = true;
    DecodeMailbox::Frame m_pending; ///< decoded, due, and not drawn yet since a newer one may be at hand
    QElapsedTimer m_sinceDrawn;
    QElapsedTimer m_sincePicture; ///< or since the wish for one began
    bool m_failedSincePicture = false;
    QString m_problem;
    VideoFormat m_format;
    qint64 m_rateBeginNs = 0; ///< the frame rate is counted from here on
    int m_rateFrames = 0;
    double m_fps = 0;         ///< 0: not known yet
    QVector<QImage> m_images; ///< buffers; one is free when nobody else holds it
};

} // namespace vemo_client
