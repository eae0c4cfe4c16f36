#include "BackupHourLabels.h"

#include <axis/AxisPainter.h>

#include <QLabel>

namespace vemo_filesCenter {

using vemo_base::AxisPainter;

namespace {

constexpr int hoursADay = 24;

} // namespace

BackupHourLabels::BackupHourLabels(QWidget* axisWidget)
    : m_axisWidget(axisWidget)
{}

void BackupHourLabels::make()
{
    for (int hour = 0; hour <= hoursADay; ++hour) {
        auto* label = new QLabel(QString::number(hour), m_axisWidget);
        label->setObjectName(QStringLiteral("timeLabel%1").arg(hour + 1));
        label->setAttribute(Qt::WA_TransparentForMouseEvents);
        label->setAlignment(Qt::AlignCenter);
        label->setFont(AxisPainter::labelFont(m_axisWidget->font()));
        label->setForegroundRole(QPalette::PlaceholderText);
        m_labels.append(label);
    }
}

void BackupHourLabels::place(const QRect& axis)
{
    const double ratio = m_axisWidget->devicePixelRatioF();
    for (int hour = 0; hour < m_labels.size(); ++hour) {
        m_labels.at(hour)->setGeometry(AxisPainter::labelRect(axis, hour, ratio).toRect());
        m_labels.at(hour)->setVisible(AxisPainter::hasLabel(axis, hour));
    }
}

} // namespace vemo_filesCenter
