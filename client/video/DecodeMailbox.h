#pragma once

#include "decode/DecodeEntry.h"
#include "VideoPicture.h"

#include <QMutex>

#include <deque>
#include <functional>
#include <optional>

namespace vemo_client {

/// What lies between a decoder's handle, on the GUI thread, and the thread that decodes: packets one way, pictures and
/// facts the other. Every function may be called on either thread and holds the lock for a moment only. A reset begins
/// a new generation; what the decoding thread brings of an older one is dropped.
class DecodeMailbox final
{
public:
    using Frame = std::shared_ptr<const vemo_decode::Frame>;

    /// One packet: a frame, or what the frames behind it are.
    struct Unit
    {
        QByteArray batch; ///< holds the payload
        const std::uint8_t* payload = nullptr;
        vav::FrameHeader header;
        std::shared_ptr<const vav::StreamInfo> info; ///< nullptr: a frame
        qint64 bytes = 0;                            ///< of the packet
    };

    /// A picture with the frame that it was made of, from which it can be drawn in another size.
    struct Shot
    {
        VideoPicture picture;
        Frame frame;
        QSize target; ///< for which it was drawn
    };

    struct Order
    {
        quint64 generation = 0;
        QSize target;
        std::optional<Unit> unit; ///< nothing: there is none, or pictures enough are waiting
        bool isLastUnit = false;  ///< none is waiting behind it
        qint64 behindNs = 0;      ///< from this unit's time to that of the newest one that waits
        Frame redraw;             ///< is shown and was drawn for another target
        Frame full;               ///< is wanted as large as it is
    };

    struct Results
    {
        qint64 consumedBytes = 0;
        std::optional<VideoPicture> picture; ///< another is to be shown
        std::optional<VideoFormat> format;
        std::optional<QString> problem;
        std::optional<VideoPicture> full;
    };

    static constexpr int mostPictures = 4; ///< that wait for the clock

    // By the handle.
    /// Bytes that are done with already: packets that nobody decodes, or everything when it is too much.
    qint64 push(const QByteArray& batch, qint64 limitBytes);
    /// Returns the bytes that were dropped.
    qint64 reset();
    void setTarget(const QSize& target);
    void setClocked(bool clocked);
    void wantFull();
    /// Takes the pictures that are due at this time and makes the newest of them the shown one.
    bool takeDue(qint64 utcNs, VideoPicture* picture);
    /// The next picture, whatever its time; without one, the next that comes.
    bool takeNext(VideoPicture* picture);
    Results takeResults();
    qint64 queuedUntilNs() const;
    qint64 waitingBytes() const;

    // By the decoding thread.
    Order takeOrder();
    void addConsumed(qint64 bytes);
    void addPicture(const Shot& shot, quint64 generation);
    void addRedrawn(const Shot& shot);
    void addFull(const VideoPicture& picture);
    void addFormat(const VideoFormat& format);
    void addProblem(const QString& sentence);

private:
    void showFirst();

    mutable QMutex m_mutex;
    std::deque<Unit> m_units;
    qint64 m_unitBytes = 0;
    qint64 m_inWork = 0; ///< bytes that the decoding thread has
    bool m_waitsForKey = false;
    int m_videoTrack = 0;
    quint64 m_generation = 1;
    QSize m_target;
    bool m_clocked = false;
    bool m_stepWanted = false;
    bool m_fullWanted = false;
    std::deque<Shot> m_pictures; ///< that wait
    Shot m_shown;
    bool m_isShownOld = true; ///< from before the latest reset
    Results m_results;
};

} // namespace vemo_client
