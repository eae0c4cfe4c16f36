#pragma once

#include "VideoPicture.h"

#include <QObject>
#include <QPointer>

#include <atomic>
#include <memory>

namespace vemo_client {

class DecodeMailbox;
class DecodeThread;
class PlaybackClock;

/// Turns one stream of vav_frame packets into pictures. A handle on the GUI thread; decoding and scaling are done on a
/// thread of its own, which ends with the handle. The decoding library is loaded when the first bytes come.
///
/// Packets are pushed as they come; when they were decoded or dropped, signalConsumed says how many bytes, and the sum
/// of both is the same in the end. Nobody is to push more than limitBytes beyond that: what is waiting is dropped then,
/// up to the next key frame. With Newest the newest picture is shown at once, what is late is skipped; with Clocked,
/// pictures wait in a short queue until the clock reaches them, and while it is full nothing is decoded. After reset(),
/// a gap or a loss, decoding begins at the next key frame. A picture that can't be decoded is left out.
class StreamDecoder final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(StreamDecoder)

public:
    enum class Output : int { Newest = 0, Clocked };

    static constexpr qint64 limitBytes = 64 * 1024 * 1024;

    explicit StreamDecoder(QObject* parent = nullptr);
    ~StreamDecoder() override;

    /// Whole packets, as ClientSignals::signalStreamData brings them.
    void push(const QByteArray& vavFrames);
    /// Forgets what waits, as after a seek or a new connection; the picture that is shown stays. What was dropped is
    /// told by signalConsumed before this returns.
    void reset();
    /// The room that pictures fill, in device pixels; empty, as at the start: nothing is scaled and signalPicture does
    /// not come.
    void setTargetSize(const QSize& devicePixels);
    /// `clock` is needed for Clocked.
    void setOutput(Output output, PlaybackClock* clock = nullptr);
    /// Clocked: shows the next picture, whatever the clock says; as soon as there is one.
    void stepForward();
    /// Asks for the picture that is shown, as large as it was sent; answered by signalFullPicture.
    void requestFullPicture();

    VideoPicture picture() const { return m_picture; }
    VideoFormat format() const { return m_format; }
    /// Footage time of the newest picture that waits, or else of the one shown; 0: none since reset().
    qint64 queuedUntilUtcNs() const;
    /// Pushed and not yet consumed.
    qint64 waitingBytes() const;

signals:
    /// Another picture is to be shown: picture().
    void signalPicture();
    void signalFormat(const vemo_client::VideoFormat& format);
    void signalConsumed(qint64 bytes);
    /// Why there is no picture although data comes; empty: it is over.
    void signalProblem(const QString& sentence);
    /// The image is null when there is no picture.
    void signalFullPicture(const QImage& image, qint64 utcNs);
    /// Of the decoding thread: something lies in the mailbox.
    void signalTold(QPrivateSignal);

private:
    void takeResults();
    void takeDuePictures();

    std::shared_ptr<DecodeMailbox> m_mailbox;
    std::atomic_bool m_isTold{false};
    QPointer<PlaybackClock> m_clock;
    Output m_output = Output::Newest;
    VideoPicture m_picture;
    VideoFormat m_format;
    std::unique_ptr<DecodeThread> m_thread; ///< made with the first packet; ends before what it uses
};

} // namespace vemo_client
