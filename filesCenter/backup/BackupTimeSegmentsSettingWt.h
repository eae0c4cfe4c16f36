#pragma once

#include <BackupTaskInfo.h>

#include <QList>
#include <QWidget>

class QLabel;
class QToolButton;
class QVBoxLayout;

namespace vemo_filesCenter {

class BackupTimeSegmentWt;

/// The editor of the daily time segments, at most five. It starts with those that were used last. GUI thread.
class BackupTimeSegmentsSettingWt final : public QWidget
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(BackupTimeSegmentsSettingWt)

public:
    static constexpr int mostSegments = 5;

    explicit BackupTimeSegmentsSettingWt(QWidget* parent = nullptr);

    /// What is set, merged, ascending, from whole minute to the last second of a minute; stored for the next time.
    QList<vemo_data::BackupTimeSegment> getTimeSegments();

    /// Segments that overlap or touch become one; ascending; starts at second 0, ends at second 59.
    static QList<vemo_data::BackupTimeSegment> merged(const QList<vemo_data::BackupTimeSegment>& segments);

private:
    void load();
    void addRow();
    void deleteRow(int index);
    void renumber();

    QList<BackupTimeSegmentWt*> m_rows;
    QVBoxLayout* m_layout;
    QToolButton* m_add;
    QLabel* m_count;
};

} // namespace vemo_filesCenter
