#pragma once

#include "BackupAxis.h"
#include "BackupHourLabels.h"

#include <QPixmap>
#include <QWidget>

namespace vemo_filesCenter {

/// The time axis of a backup task with brackets and now-caret above, hours and alarm ticks below. It is drawn from a
/// picture that is made when it is first painted and anew only when width, screen scale, theme or data change; progress
/// repaints its own strip. Hovering, or Left and Right by keyboard, tell the span under the pointer. The axis itself is
/// a dark island and never mirrored. GUI thread.
class BackupAxisWt final : public QWidget
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(BackupAxisWt)

public:
    explicit BackupAxisWt(QWidget* parent = nullptr);

    static constexpr int axisTop = 10;
    static constexpr int axisHeight = 28;
    static constexpr int totalHeight = axisTop + axisHeight + 22;

    void setAxis(const BackupAxis& axis, const QString& sums);
    /// Frees the picture; painting makes it again.
    void dropPicture() { m_picture = QPixmap(); }
    /// Repaints the line of now alone.
    void updateNow();

    int xOf(qint64 ms) const;
    /// What hovering tells about a time; empty where nothing lies.
    QString tipAt(qint64 ms) const;

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    QRect axisRect() const;
    QRect stripOf(int from, int to) const;
    qint64 timeAt(int x) const;
    void makePicture();
    void drawPicture(QPainter* painter) const;
    void setPointer(int x);
    void showTip(qint64 ms);
    void step(int direction);

    BackupAxis m_axis;
    BackupHourLabels m_hours;
    QPixmap m_picture;
    int m_pointerX = -1;
    int m_nowX = -1;
    qint64 m_currentMs = -1; ///< where the keyboard is
};

} // namespace vemo_filesCenter
