#include "PlayerMailbox.h"

#include "MpvPlayer.h"

#include <QMutexLocker>

namespace vemo_base {

void PlayerMailbox::close()
{
    const QMutexLocker lock(&m_mutex);
    m_player = nullptr;
    m_picture = QImage();
}

bool PlayerMailbox::take(PlayerState& state, QImage& picture)
{
    const QMutexLocker lock(&m_mutex);
    m_posted = false;
    state = m_state;
    if (m_picture.isNull())
        return false;
    picture = m_picture;
    m_picture = QImage(); // the player's thread needs the buffer back
    return true;
}

void PlayerMailbox::putState(const PlayerState& state)
{
    const QMutexLocker lock(&m_mutex);
    m_state = state;
    post();
}

void PlayerMailbox::putPicture(const QImage& picture)
{
    const QMutexLocker lock(&m_mutex);
    if (!m_player)
        return;
    m_picture = picture;
    post();
}

void PlayerMailbox::tellSnapshot(const QString& path, const QString& error)
{
    const QMutexLocker lock(&m_mutex);
    if (!m_player)
        return;
    QMetaObject::invokeMethod(
        m_player,
        [player = m_player, path, error] {
            if (error.isEmpty())
                emit player->signalSnapshotTaken(path);
            else
                emit player->signalSnapshotFailed(error);
        },
        Qt::QueuedConnection);
}

void PlayerMailbox::post()
{
    if (!m_player || m_posted)
        return;
    m_posted = true;
    QMetaObject::invokeMethod(m_player, &MpvPlayer::receive, Qt::QueuedConnection);
}

} // namespace vemo_base
