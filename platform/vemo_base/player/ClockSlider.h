#pragma once

#include "RecordingClock.h"

#include <QAbstractSlider>

namespace vemo_base {

/// The player's slider. It counts the recording's clock, so equal lengths are equal times of day and gaps have their
/// room, hatched; its value is ms from the recording's begin. It does not mirror, as no time line does.
class ClockSlider final : public QAbstractSlider
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(ClockSlider)

public:
    explicit ClockSlider(QWidget* parent = nullptr);

    void setClock(const RecordingClock& clock);
    /// Follows the playing; left alone while a person drags.
    void setClockMs(qint64 clockMs);
    const RecordingClock& clock() const { return m_clock; }
    QSize sizeHint() const override;

signals:
    /// By a person's hand; comes with every move of the pointer.
    void signalSeekRequested(qint64 clockMs);

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void sliderChange(SliderChange change) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    void follow(int x);
    qint64 clockMsAt(double x) const;
    double xOf(qint64 clockMs) const;
    QString tipAt(qint64 clockMs) const;
    void paintGap(QPainter& painter, const RecordingGap& gap) const;

    RecordingClock m_clock;
    int m_paintedX = -1; ///< of the handle, in device pixels
};

} // namespace vemo_base
