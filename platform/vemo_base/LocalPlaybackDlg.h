#pragma once

#include "FramelessDlg.h"

#include <ChannelInfo.h>

#include <memory>

namespace vemo_base {

/// Plays one recording file in a window over its parent's, which is veiled meanwhile. GUI thread; whoever opens it owns
/// it and may delete it at any moment, also while a file is being opened, from a slot of signalPlaybackDlgClosed by
/// deleteLater().
///
/// The slider and the picture show the recording's clock, not the file's own time: gaps that the file leaves out are
/// hatched. Decoding, disk and the player's library are on the player's own threads, the library is loaded when a file
/// is first shown. What can't be played is said in words in the place of the picture.
class VEMO_BASE_EXPORT LocalPlaybackDlg final : public FramelessDlg
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(LocalPlaybackDlg)

public:
    explicit LocalPlaybackDlg(QWidget* parent = nullptr);
    ~LocalPlaybackDlg() override;

    /// The file to play; shown at once when the dialog is open. `title` is the window's title, such as
    /// "Gate North@2026-01-08 08:00:00~08:31:00". The name on the picture is the channel's, or, where that is empty,
    /// what stands in the title before its last "@".
    void setLocalVideoRecordingPath(const QString& path, const VCOMMON::ChannelInfo& channel, const QString& title);
    /// Opens the dialog over its parent and begins to play. Returns at once.
    void showLocalPlaybackDlg();

signals:
    /// It was closed; with the path of the file, which is let go of soon after.
    void signalPlaybackDlgClosed(const QString& path);

public slots:
    void done(int result) override;

protected:
    void showFullScreenState(bool isFullScreen) override;
    bool takeKey(const QKeyEvent& event) override;

private:
    class Private;
    const std::unique_ptr<Private> d;
};

} // namespace vemo_base
