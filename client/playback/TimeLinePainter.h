#pragma once

#include "TimeView.h"

#include <axis/AxisRow.h>
#include <axis/DayAxis.h>
#include <axis/TimeSpan.h>

#include <QFont>
#include <QRect>
#include <QString>

class QPainter;

namespace vemo_client {

/// What is drawn on a time line of several channels: a dark island, the same in both themes. Made for one painting;
/// `axis` is the ground of all rows in the painter's coordinates, of which `view` is the shown part of the day. GUI
/// thread.
class TimeLinePainter final
{
public:
    struct Row
    {
        QVector<vemo_base::AxisRow::Run> runs;   ///< what the recorder has, in device pixels of the axis
        QVector<vemo_base::AxisRow::Run> chosen; ///< what is checked in the list
        QVector<vemo_base::AxisRow::Run> owned;  ///< what lies on this computer's disks
    };

    static constexpr int topRoom = 32; ///< flag and handles
    static constexpr int scaleRoom = 28;
    static constexpr int handle = 12;

    TimeLinePainter(QPainter* painter, const vemo_base::DayAxis& day, const TimeView& view, const QRect& axis,
                    const QFont& font);

    /// The whole day in the painter's coordinates; most of it lies outside when the view is a part.
    static QRect dayRect(const TimeView& view, const QRect& axis);

    void row(const QRect& rect, const Row& row) const;
    void name(const QRect& rect, const QString& text, bool isStrong) const;
    void words(const QRect& rect, const QString& text, bool isError) const;
    /// Hours that clocks skip or pass twice, and the line of now.
    void clock() const;
    void span(const vemo_base::TimeSpan& span) const;
    void pointer(int x, const QString& text) const;
    void cursor(qint64 ms, const QString& text) const;
    /// Ticks and labels below.
    void scale() const;

private:
    double xOf(qint64 ms) const;
    bool isShown(double x) const;
    /// A label on a filled box, pushed inside the axis' ends.
    void flag(double x, int top, const QString& text, const QColor& fill, const QColor& ink, bool isStrong) const;

    QPainter* m_painter;
    const vemo_base::DayAxis& m_day;
    const TimeView& m_view;
    const QRect m_axis;
    const QRect m_dayRect;
    const QFont m_font;
    const double m_ratio;
};

} // namespace vemo_client
