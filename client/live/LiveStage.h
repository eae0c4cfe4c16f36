#pragma once

#include "LiveChannel.h"
#include "LiveViews.h"

#include <QElapsedTimer>
#include <QTimer>
#include <QVector>
#include <QWidget>

#include <array>
#include <memory>

namespace vemo_client {

class RecorderLogins;
class VideoTileWt;
class VideoWallWt;

/// The tiles of live video and the channels behind them: which channel is where, how it is connected, what its tile
/// says and offers. GUI thread.
///
/// While the page is not seen, channels are let go after a few seconds, unless they are being recorded. Nine tiles get
/// the channels' second streams; a channel that is enlarged or recorded its main one. The end of the client finishes
/// the recordings.
class LiveStage final : public QWidget
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(LiveStage)

public:
    explicit LiveStage(RecorderLogins* logins, QWidget* parent = nullptr);
    ~LiveStage() override;

    VideoWallWt* wall() const { return m_wall; }
    /// In the next free tile, or else in the selected one.
    void showChannel(const ChannelRef& channel);
    /// An empty devId: nothing.
    void setChannel(int tile, const ChannelRef& channel);
    LiveView view() const;
    /// Channels that stay where they are go on undisturbed.
    void setView(const LiveView& view);

    QVector<ChannelRef> channels() const; ///< those that are shown
    int recordingCount() const;
    bool hasChannel(int tile) const;
    bool hasPicture(int tile) const;
    bool isRecording(int tile) const;

    void takeSnapshot(int tile);
    void toggleRecording(int tile);

signals:
    /// Channels, tiles or names of them.
    void signalChanged();
    /// What can be done with the selected tile, or which one that is.
    void signalSelectedChanged();
    void signalRate(int channels, double bitsPerSecond);
    void signalFullScreenWanted();

protected:
    void hideEvent(QHideEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    static constexpr int tiles = 9;

    void putChannel(int tile, std::unique_ptr<LiveChannel> channel);
    void swapTiles(int from, int to);
    void dropChannel(int tile, const ChannelRef& channel);
    int tileOf(const ChannelRef& channel) const;
    int tileOf(const LiveChannel* channel) const;
    int freeTile() const;
    vms_sdk::LiveProfile profileFor(int tile) const;
    /// Opens, closes, shows and hides streams as the layout wants.
    void settle();
    void letGo();
    void takeAction(int tile, const QString& id);
    void takeButton(int tile);
    void takeRecorder(const QString& devId);
    void takePicture(int tile);
    void takeRecordingEnd(const LiveChannel* channel, const QString& problem, const QStringList& files);
    void saveSnapshot(int tile, const QImage& image, qint64 utcNs);
    void tell(int tile);
    void tellWaiting(VideoTileWt* face, const LiveChannel& channel) const;
    void tellActions(int tile);
    void tellClock(int tile);
    void tick();
    void endAll();

    RecorderLogins* m_logins;
    VideoWallWt* m_wall;
    std::array<std::unique_ptr<LiveChannel>, tiles> m_channels;
    std::array<qint64, tiles> m_clockS{}; ///< what the tile's clock shows
    bool m_isSeen = false;
    bool m_isEnding = false;
    QTimer m_leaveTimer;
    QTimer m_tickTimer;
    QElapsedTimer m_sinceTick;
};

} // namespace vemo_client
