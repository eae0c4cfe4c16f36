#pragma once

#include "ChannelDay.h"
#include "SpanPick.h"

#include <axis/AxisRow.h>
#include <axis/DayAxis.h>

#include <QAbstractScrollArea>
#include <QTimer>
#include <QVector>

namespace vemo_client {

/// The day of several channels on one time axis, a dark island: a line a channel with what its recorder has, the span
/// that is marked, and the hours below. The mouse marks a span, or takes an edge of the marked one along; hovering
/// tells what lies below the pointer. By keyboard: Left and Right step through the recordings and gaps of the current
/// channel, Up and Down change the channel, Enter marks what is shown, Esc takes the mark away. GUI thread.
class DayAxisWt final : public QAbstractScrollArea
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(DayAxisWt)

public:
    explicit DayAxisWt(QWidget* parent = nullptr);

    void setDay(const vemo_base::DayAxis& axis);
    void setChannels(const QVector<ChannelDay>& channels);
    void setSpan(const std::optional<vemo_base::TimeSpan>& span);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

    /// Where a time lies in the viewport; for tests and for drawing beside the axis.
    int xOf(qint64 ms) const;

signals:
    /// The person marked a span or took the mark away.
    void signalSpanMarked(const std::optional<vemo_base::TimeSpan>& span);

protected:
    bool viewportEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    struct Line
    {
        QVector<vemo_base::AxisRow::Run> runs;
        QVector<vemo_base::AxisRow::Run> chosen;
    };

    int rowHeight() const;
    QRect axisRect() const; ///< of all rows, in the viewport
    QRect rowRect(int row) const;
    double positionAt(int x) const;
    int rowAt(int y) const;
    const Line& line(int row, int pixels);
    void updateScroll();
    void describe();

    void paintRow(QPainter* painter, int row, double ratio);
    void paintSpan(QPainter* painter) const;

    void showTip(const QPoint& position, int row, qint64 ms);
    QString tipOf(int row, qint64 ms) const;
    vemo_base::TimeSpan stretchAt(int row, qint64 ms) const;
    void step(int direction);
    void mark(const std::optional<vemo_base::TimeSpan>& span);

    vemo_base::DayAxis m_axis;
    QVector<ChannelDay> m_channels;
    QVector<Line> m_lines; ///< made when first painted
    int m_linePixels = 0;
    SpanPick m_pick;
    int m_pointerX = -1;
    int m_currentRow = 0;
    qint64 m_currentMs = 0; ///< where the keyboard is
    bool m_keyboardFocus = false;
    QTimer m_nowTimer;
};

} // namespace vemo_client

Q_DECLARE_METATYPE(std::optional<vemo_base::TimeSpan>)
