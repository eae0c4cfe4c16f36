#pragma once

#include "PlayerState.h"

#include <SnapImageWriter.h>

#include <QImage>
#include <QObject>

#include <memory>

class QThread;

namespace vemo_base {

class MpvWorker;
class PlayerMailbox;

/// Plays one file and yields pictures of the size that is asked for. GUI thread; every call returns at once.
///
/// Library, disk, decoder and the scaling of pictures are on a thread of the player's own and on those of the library.
/// Destroying the player at any moment is safe and does not wait: its thread ends by itself, and the program waits a
/// moment for it at its end. Calls that make no sense in the present phase do nothing.
class MpvPlayer final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(MpvPlayer)

public:
    explicit MpvPlayer(QObject* parent = nullptr);
    ~MpvPlayer() override;

    void open(const QString& path);

    void setPaused(bool paused);
    /// At the end of the file it begins again.
    void togglePaused();
    /// Exact to the frame. Calls while a seek is under way replace each other, only the last one is carried out.
    void seek(double positionS);
    void stepForward();
    void stepBack();
    void setSpeed(double speed);
    void setVolume(int percent);
    void setMuted(bool muted);
    /// Size of the pictures in device pixels, in the proportions of shownSize; empty: none are made.
    void setPictureSize(const QSize& size);
    /// Writes the shown picture in its full size, as VCOMMON::SnapImageWriter does. Ends in signalSnapshotTaken or
    /// signalSnapshotFailed.
    void takeSnapshot(const QString& path, const VCOMMON::SnapImageFacts& facts,
                      VCOMMON::SnapImageWriter::Format format);

    const PlayerState& state() const { return m_state; }
    const QImage& picture() const { return m_picture; }

signals:
    void signalStateChanged();
    void signalPictureChanged();
    void signalSnapshotTaken(const QString& path);
    void signalSnapshotFailed(const QString& text);

private:
    friend class PlayerMailbox;
    void receive();
    template <typename Call>
    void post(Call call);

    PlayerState m_state;
    QImage m_picture;
    const std::shared_ptr<PlayerMailbox> m_mailbox;
    QThread* m_thread; ///< ends and deletes itself once the player has gone
    MpvWorker* m_worker;
};

} // namespace vemo_base
