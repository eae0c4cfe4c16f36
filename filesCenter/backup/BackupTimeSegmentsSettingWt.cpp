#include "BackupTimeSegmentsSettingWt.h"

#include "BackupTimeSegmentWt.h"

#include <Icons.h>
#include <UiSettings.h>

#include <QHBoxLayout>
#include <QLabel>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>

namespace vemo_filesCenter {

using vemo_data::BackupTimeSegment;

namespace {

constexpr int spacing = 12;
constexpr int addSize = 18;
constexpr int smallPixels = 12;
constexpr int lastSecond = 59;

QString settingKey()
{
    return QStringLiteral("backup_time_segments");
}

} // namespace

BackupTimeSegmentsSettingWt::BackupTimeSegmentsSettingWt(QWidget* parent)
    : QWidget(parent)
    , m_layout(new QVBoxLayout(this))
    , m_add(new QToolButton(this))
    , m_count(new QLabel(this))
{
    m_add->setObjectName(QStringLiteral("addBt"));
    m_add->setIcon(vemo_base::Icons::icon(QStringLiteral("add")));
    m_add->setIconSize(QSize(addSize, addSize));
    m_add->setFixedSize(addSize, addSize);
    m_add->setFocusPolicy(Qt::NoFocus);
    m_add->setAutoRaise(true);
    m_add->setToolTip(tr("add time segment"));
    m_add->setAccessibleName(m_add->toolTip());
    connect(m_add, &QToolButton::clicked, this, [this] {
        addRow();
        renumber();
    });
    QFont small = m_count->font();
    small.setPixelSize(smallPixels);
    m_count->setFont(small);
    m_count->setForegroundRole(QPalette::PlaceholderText);

    auto* addRowLayout = new QHBoxLayout;
    addRowLayout->setSpacing(8);
    addRowLayout->addWidget(m_add);
    addRowLayout->addWidget(m_count, 1);
    m_layout->setContentsMargins(0, spacing, 0, 0);
    m_layout->setSpacing(spacing);
    m_layout->addLayout(addRowLayout);
    m_layout->addStretch();
    load();
}

void BackupTimeSegmentsSettingWt::load()
{
    const QVariantList stored = vemo_worker::UiSettings::instance().value(settingKey()).toList();
    if (stored.isEmpty())
        addRow();
    const int most = qMin(stored.size(), 2 * mostSegments);
    for (int i = 0; i < most; ++i) {
        if (i % 2 == 0)
            addRow();
        else
            m_rows.last()->setTimes(stored.at(i - 1).toTime(), stored.at(i).toTime());
    }
    if (most % 2 != 0)
        delete m_rows.takeLast();
    renumber();
}

void BackupTimeSegmentsSettingWt::addRow()
{
    auto* row = new BackupTimeSegmentWt(this);
    m_layout->insertWidget(m_rows.size(), row);
    m_rows.append(row);
    connect(row, &BackupTimeSegmentWt::signalDeleteBtClicked, this, &BackupTimeSegmentsSettingWt::deleteRow);
}

void BackupTimeSegmentsSettingWt::deleteRow(int index)
{
    if (index < 0 || index >= m_rows.size())
        return;
    BackupTimeSegmentWt* row = m_rows.takeAt(index);
    m_layout->removeWidget(row);
    row->hide();
    row->deleteLater(); // its button is telling this
    renumber();
}

void BackupTimeSegmentsSettingWt::renumber()
{
    for (int i = 0; i < m_rows.size(); ++i)
        m_rows.at(i)->setIndex(i);
    m_add->setVisible(m_rows.size() < mostSegments);
    m_count->setText(tr("%1 of %2 segments. Overlapping ones are merged.").arg(m_rows.size()).arg(mostSegments));
}

QList<BackupTimeSegment> BackupTimeSegmentsSettingWt::merged(const QList<BackupTimeSegment>& segments)
{
    QList<BackupTimeSegment> result;
    for (BackupTimeSegment segment : segments) {
        for (int i = result.size() - 1; i >= 0; --i) {
            if (segment.start > result.at(i).end || segment.end < result.at(i).start)
                continue;
            segment.start = qMin(segment.start, result.at(i).start);
            segment.end = qMax(segment.end, result.at(i).end);
            result.removeAt(i);
        }
        result.append(segment);
    }
    std::sort(result.begin(), result.end(),
              [](const BackupTimeSegment& a, const BackupTimeSegment& b) { return a.start < b.start; });
    for (BackupTimeSegment& segment : result) {
        segment.start = QTime(segment.start.hour(), segment.start.minute());
        segment.end = QTime(segment.end.hour(), segment.end.minute(), lastSecond);
    }
    return result;
}

QList<BackupTimeSegment> BackupTimeSegmentsSettingWt::getTimeSegments()
{
    QList<BackupTimeSegment> segments;
    for (const BackupTimeSegmentWt* row : qAsConst(m_rows))
        segments.append({row->startTime(), row->endTime()});
    segments = merged(segments);
    QVariantList stored;
    for (const BackupTimeSegment& segment : qAsConst(segments))
        stored << segment.start << segment.end;
    vemo_worker::UiSettings::instance().setValue(settingKey(), stored);
    return segments;
}

} // namespace vemo_filesCenter
