#pragma once

#include <QWidget>

class QComboBox;
class QLabel;
class QPushButton;

namespace vemo_base {

class ClockSlider;
class RecordingClock;
class TransportButton;
class VolumeSlider;
struct PlayerState;

/// The player's controls: time line above, buttons below. Shows what it is told and says what a person wants; plays
/// nothing itself. The buttons stand in the same order in every layout direction.
class TransportBar final : public QWidget
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(TransportBar)

public:
    static constexpr int barHeight = 92;

    explicit TransportBar(QWidget* parent = nullptr);

    void setClock(const RecordingClock& clock);
    void setClockMs(qint64 clockMs);
    void setState(const PlayerState& state);
    void setFullScreen(bool on);

    bool isDragging() const;
    int volume() const;
    double speed() const;
    void setVolume(int percent);
    /// The next faster (+1) or slower (-1) of the speeds offered.
    void stepSpeed(int direction);

    static const QVector<double>& speeds();

signals:
    void signalSeekRequested(qint64 clockMs);
    void signalSkipRequested(int seconds);
    void signalStepRequested(int frames);
    void signalPlayRequested();
    void signalStopRequested();
    void signalSpeedChosen(double speed);
    void signalVolumeChosen(int percent);
    void signalMuteRequested(bool muted);
    void signalSnapshotRequested();
    void signalFolderRequested();
    void signalFullScreenRequested();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    TransportButton* addButton(const QString& icon, const QString& tip);
    QLayout* timeLine();
    QLayout* buttons();
    void showTime(qint64 clockMs);

    ClockSlider* m_slider;
    QLabel* m_now;
    QLabel* m_end;
    TransportButton* m_play;
    QVector<QWidget*> m_needPicture;
    QComboBox* m_speed;
    TransportButton* m_mute;
    VolumeSlider* m_volume;
    QPushButton* m_snapshot;
    TransportButton* m_fullScreen;
    bool m_muted = false;
    bool m_playing = false;
};

} // namespace vemo_base
