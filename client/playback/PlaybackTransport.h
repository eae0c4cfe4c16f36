#pragma once

#include <QVector>
#include <QWidget>

class QComboBox;

namespace vemo_base {
class TransportButton;
}

namespace vemo_client {

/// The buttons that play: back and on, pictures and seconds, speed, in step, snapshot, layout, full screen. Shows what
/// it is told and says what a person wants; plays nothing itself. In the same order in every layout direction. GUI
/// thread.
class PlaybackTransport final : public QWidget
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(PlaybackTransport)

public:
    static constexpr int skipS = 10;

    explicit PlaybackTransport(QWidget* parent = nullptr);

    struct State
    {
        bool isPlaying = false;
        bool isInStep = true;
        bool canPlay = false;     ///< there is a channel
        bool hasPosition = false; ///< the clock stands somewhere
        bool hasPicture = false;
        bool isSingle = true; ///< one tile fills the room
        bool isFullScreen = false;
        double speed = 1;
    };
    void setState(const State& state);
    /// The next faster (+1) or slower (-1) of the speeds offered.
    void stepSpeed(int direction);

    static const QVector<double>& speeds();

signals:
    void signalPlayRequested();
    void signalSkipRequested(int seconds);
    void signalStepRequested(int pictures);
    void signalSpeedChosen(double speed);
    void signalInStepChosen(bool inStep);
    void signalSnapshotRequested();
    /// One tile in all of the room, or four.
    void signalLayoutChosen(bool isSingle);
    void signalFullScreenRequested();

private:
    vemo_base::TransportButton* addButton(const QString& icon, const QString& tip);
    void addSeparator();
    void addPlaying();
    void addSpeeds();
    void addViews();

    QVector<QWidget*> m_needPosition;
    vemo_base::TransportButton* m_play = nullptr;
    vemo_base::TransportButton* m_inStep = nullptr;
    vemo_base::TransportButton* m_snapshot = nullptr;
    vemo_base::TransportButton* m_single = nullptr;
    vemo_base::TransportButton* m_four = nullptr;
    vemo_base::TransportButton* m_fullScreen = nullptr;
    QComboBox* m_speed = nullptr;
};

} // namespace vemo_client
