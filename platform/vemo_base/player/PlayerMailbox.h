#pragma once

#include "PlayerState.h"

#include <QImage>
#include <QMutex>

namespace vemo_base {

class MpvPlayer;

/// What goes from the player's thread to the GUI: always the newest state and picture, so that nothing piles up while
/// the GUI is busy. Shared by both sides, outlives either.
class PlayerMailbox final
{
public:
    explicit PlayerMailbox(MpvPlayer* player)
        : m_player(player)
    {}

    // Of the GUI thread.
    void close();
    /// True when there is a new picture.
    bool take(PlayerState& state, QImage& picture);

    // Of the player's thread.
    void putState(const PlayerState& state);
    void putPicture(const QImage& picture);
    /// The file was written, or `error` is a sentence.
    void tellSnapshot(const QString& path, const QString& error);

private:
    void post();

    QMutex m_mutex;
    MpvPlayer* m_player; ///< this and the rest guarded by m_mutex; nullptr: gone
    PlayerState m_state;
    QImage m_picture;
    bool m_posted = false;
};

} // namespace vemo_base
