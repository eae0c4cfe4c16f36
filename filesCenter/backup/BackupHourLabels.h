#pragma once

#include <QRect>
#include <QVector>

class QLabel;
class QWidget;

namespace vemo_filesCenter {

/// The 25 hour labels of a backup task's axis, "0" to "24", named "timeLabel1" to "timeLabel25". They are children of
/// the axis widget, made when it comes into view, since a day may have two hundred axes; pointer and keyboard pass
/// through them. GUI thread.
class BackupHourLabels final
{
public:
    explicit BackupHourLabels(QWidget* axisWidget);

    bool isMade() const { return !m_labels.isEmpty(); }
    void make();
    /// Centres the labels on the hours of an axis that lies at this place of the widget; hides those without room.
    void place(const QRect& axis);

private:
    QWidget* const m_axisWidget;
    QVector<QLabel*> m_labels;
};

} // namespace vemo_filesCenter
