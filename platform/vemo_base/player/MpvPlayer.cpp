#include "MpvPlayer.h"

#include "MpvWorker.h"
#include "PlayerMailbox.h"
#include "PlayerThreads.h"

#include <QThread>

#include <clocale>

namespace vemo_base {

MpvPlayer::MpvPlayer(QObject* parent)
    : QObject(parent)
    , m_mailbox(std::make_shared<PlayerMailbox>(this))
    , m_thread(PlayerThreads::make())
    , m_worker(new MpvWorker(m_mailbox))
{
    // The library refuses to work where numbers have a decimal comma. Qt's own texts don't depend on this setting.
    std::setlocale(LC_NUMERIC, "C");
    m_worker->moveToThread(m_thread);
    connect(m_thread, &QThread::finished, m_worker, &QObject::deleteLater);
    m_thread->start();
}

MpvPlayer::~MpvPlayer()
{
    m_mailbox->close();
    m_thread->quit();
}

template <typename Call>
void MpvPlayer::post(Call call)
{
    QMetaObject::invokeMethod(
        m_worker, [worker = m_worker, call] { call(*worker); }, Qt::QueuedConnection);
}

void MpvPlayer::open(const QString& path)
{
    m_picture = QImage();
    post([path](MpvWorker& worker) { worker.open(path); });
}

void MpvPlayer::setPaused(bool paused)
{
    post([paused](MpvWorker& worker) { worker.setPaused(paused); });
}

void MpvPlayer::togglePaused()
{
    if (m_state.phase != PlayerState::Phase::Ready)
        return;
    if (m_state.atEnd) {
        seek(0);
        setPaused(false);
    } else {
        setPaused(!m_state.paused);
    }
}

void MpvPlayer::seek(double positionS)
{
    post([positionS](MpvWorker& worker) { worker.seek(positionS); });
}

void MpvPlayer::stepForward()
{
    post([](MpvWorker& worker) { worker.stepForward(); });
}

void MpvPlayer::stepBack()
{
    post([](MpvWorker& worker) { worker.stepBack(); });
}

void MpvPlayer::setSpeed(double speed)
{
    post([speed](MpvWorker& worker) { worker.setSpeed(speed); });
}

void MpvPlayer::setVolume(int percent)
{
    post([percent](MpvWorker& worker) { worker.setVolume(percent); });
}

void MpvPlayer::setMuted(bool muted)
{
    post([muted](MpvWorker& worker) { worker.setMuted(muted); });
}

void MpvPlayer::setPictureSize(const QSize& size)
{
    post([size](MpvWorker& worker) { worker.setPictureSize(size); });
}

void MpvPlayer::takeSnapshot(const QString& path, const VCOMMON::SnapImageFacts& facts,
                             VCOMMON::SnapImageWriter::Format format)
{
    post([path, facts, format](MpvWorker& worker) { worker.takeSnapshot({path, facts, format}); });
}

void MpvPlayer::receive()
{
    const bool newPicture = m_mailbox->take(m_state, m_picture);
    emit signalStateChanged();
    if (newPicture)
        emit signalPictureChanged();
}

} // namespace vemo_base
