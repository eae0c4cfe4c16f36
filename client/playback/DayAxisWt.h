#pragma once

#include "ChannelDay.h"
#include "SpanPick.h"
#include "TimeLinePainter.h"
#include "TimeView.h"

#include <axis/DayAxis.h>

#include <QAbstractScrollArea>
#include <QTimer>
#include <QVector>

namespace vemo_base {
class TransportButton;
}

namespace vemo_client {

/// The time line: the day of several channels on one axis, a dark island. A line a channel with what its recorder and
/// this computer have, the time that is played, the span that is marked, and the clock below.
///
/// A click asks for that time; a drag marks a span, or moves the shown part while marking is off; handles of the marked
/// span and the flag of the played time are dragged along. The wheel and a pinch come closer at the pointer, a drag of
/// the clock moves along. Hovering tells what lies below the pointer. By keyboard: Left and Right step through the
/// recordings and gaps of the current channel, Up and Down change the channel, Enter marks what is shown, Esc takes the
/// mark away, plus and minus zoom. GUI thread.
class DayAxisWt final : public QAbstractScrollArea
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(DayAxisWt)

public:
    explicit DayAxisWt(QWidget* parent = nullptr);

    void setDay(const vemo_base::DayAxis& axis);
    void setChannels(const QVector<ChannelDay>& channels);
    void setSpan(const std::optional<vemo_base::TimeSpan>& span);
    /// The time that is played; 0: none. Stays in view when it was.
    void setCursorMs(qint64 ms);
    /// The channel that is named strongly.
    void setSelectedChannel(const ChannelRef& channel);
    /// What a drag does.
    void setMarking(bool marking) { m_isMarking = marking; }

    const TimeView& view() const { return m_view; }
    /// Around a place of the shown width, 0 to 1.
    void zoom(double factor, double place);
    /// By so many of its widths.
    void pan(double places);
    void showAll();

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

    /// Where a time lies in the viewport, also when that is out of view; for tests and for drawing beside the axis.
    int xOf(qint64 ms) const;

signals:
    /// The person marked a span or took the mark away.
    void signalSpanMarked(const std::optional<vemo_base::TimeSpan>& span);
    void signalSeekRequested(qint64 ms);

protected:
    bool viewportEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    /// What the pressed mouse moves.
    enum class Drag : int { None = 0, Pressed, Span, View, Cursor };

    QRect axisRect() const; ///< of all rows, in the viewport
    QRect rowRect(int row) const;
    double positionAt(int x) const;
    qint64 timeAt(int x) const;
    double reach() const;
    int rowAt(int y) const;
    bool isOnFlag(const QPoint& position) const;
    const TimeLinePainter::Row& line(int row, int pixels);
    void addZoomButtons();
    void changeView(const TimeView& view);
    void lay();
    void reveal(qint64 ms);
    void updateScroll();
    void describe();

    void paintRows(TimeLinePainter& painter, int pixels);

    void showTip(const QPoint& position, int row, qint64 ms);
    vemo_base::TimeSpan stretchAt(int row, qint64 ms) const;
    void step(int direction);
    void mark(const std::optional<vemo_base::TimeSpan>& span);

    vemo_base::DayAxis m_axis;
    TimeView m_view;
    QVector<ChannelDay> m_channels;
    ChannelRef m_selected;
    /// Of a channel, whatever part of the day is shown.
    struct Stretches
    {
        QVector<vemo_base::AxisRow::Stretch> recordings;
        QVector<vemo_base::AxisRow::Stretch> chosen;
        QVector<vemo_base::AxisRow::Stretch> owned;
    };
    QVector<Stretches> m_stretches;
    QVector<TimeLinePainter::Row> m_lines; ///< made when first painted
    QVector<bool> m_isLaid;                ///< whether the line at the same place was made
    int m_linePixels = 0;
    SpanPick m_pick;
    bool m_isMarking = true;
    Drag m_drag = Drag::None;
    QPoint m_pressed;
    TimeView m_pressedView;
    qint64 m_cursorMs = 0;
    int m_pointerX = -1;
    int m_currentRow = 0;
    qint64 m_currentMs = 0; ///< where the keyboard is
    bool m_keyboardFocus = false;
    QTimer m_nowTimer;
    vemo_base::TransportButton* m_closer = nullptr;
    vemo_base::TransportButton* m_farther = nullptr;
    vemo_base::TransportButton* m_whole = nullptr;
};

} // namespace vemo_client

Q_DECLARE_METATYPE(std::optional<vemo_base::TimeSpan>)
