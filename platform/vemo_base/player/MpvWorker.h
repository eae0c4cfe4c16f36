#pragma once

#include "PlayerState.h"

#include <SnapImageWriter.h>

#include <QImage>
#include <QObject>
#include <QVector>

#include <atomic>
#include <memory>

struct mpv_event_command;
struct mpv_event_end_file;
struct mpv_event_log_message;
struct mpv_event_property;
struct mpv_handle;
struct mpv_render_context;

namespace vemo_base {

class PlayerMailbox;
struct MpvLibrary;

/// The player's side on its own thread: holds the library's handle, passes commands on, keeps the state and renders
/// pictures. Every command goes to the library asynchronously, because a waiting call could deadlock with the
/// rendering, which it does on the same thread. Deleted on its thread, which lets the file go and may take a while.
class MpvWorker final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(MpvWorker)

public:
    explicit MpvWorker(std::shared_ptr<PlayerMailbox> mailbox);
    ~MpvWorker() override;

    void open(const QString& path);
    void setPaused(bool paused);
    void seek(double positionS);
    void stepForward();
    void stepBack();
    void setSpeed(double speed);
    void setVolume(int percent);
    void setMuted(bool muted);
    void setPictureSize(const QSize& size);
    struct Snapshot
    {
        QString path;
        VCOMMON::SnapImageFacts facts;
        VCOMMON::SnapImageWriter::Format format = VCOMMON::SnapImageWriter::Format::Jpeg;
    };
    void takeSnapshot(const Snapshot& snapshot);

private:
    bool start();
    void setOptions();
    void fail(const QString& sentence);

    // Called by the library on threads of its own.
    static void onWakeup(void* self);
    static void onUpdate(void* self);

    void drainEvents();
    void takeProperty(const mpv_event_property& property);
    void takeFacts(const QByteArray& name, const mpv_event_property& property);
    void takeEndOfFile(const mpv_event_end_file& end);
    void takeReply(quint64 id, int error);
    void takeSnapshotPicture(const mpv_event_command& reply, int error);

    void render();
    void renderPicture();
    QImage* freePicture();

    void command(std::initializer_list<QByteArray> words, quint64 id = 0);
    void setFlag(const char* name, bool value);
    void setNumber(const char* name, double value);
    void sendSeek();

    const std::shared_ptr<PlayerMailbox> m_mailbox;
    const MpvLibrary* m_library = nullptr;
    mpv_handle* m_mpv = nullptr;
    mpv_render_context* m_renderer = nullptr;
    std::atomic_bool m_wakeupPosted{false};
    std::atomic_bool m_updatePosted{false};

    PlayerState m_state;
    QString m_path;
    QSize m_pictureSize;
    QVector<QImage> m_pictures; ///< buffers; one is free when nobody else holds it
    bool m_seeking = false;
    double m_nextSeekS = -1; ///< below 0: none
    Snapshot m_snapshot;     ///< asked for; without a path: none
};

} // namespace vemo_base
