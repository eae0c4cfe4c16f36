#pragma once

#include <QTime>
#include <QWidget>

class QLabel;
class QTimeEdit;

namespace vemo_filesCenter {

/// One daily time segment in the editor of them: its name, start and end to the minute, a button that deletes it. A
/// start behind its end is told below the fields and stands. GUI thread; owned by BackupTimeSegmentsSettingWt.
class BackupTimeSegmentWt final : public QWidget
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(BackupTimeSegmentWt)

public:
    explicit BackupTimeSegmentWt(QWidget* parent = nullptr);

    /// From 0; the name counts from 1.
    void setIndex(int index);
    void setTimes(const QTime& start, const QTime& end);
    QTime startTime() const;
    QTime endTime() const;

signals:
    void signalDeleteBtClicked(int index);

private:
    QTimeEdit* makeField(const QString& objectName);
    void showOrder();

    int m_index = 0;
    QLabel* m_name;
    QTimeEdit* m_start;
    QTimeEdit* m_end;
    QLabel* m_warning;
};

} // namespace vemo_filesCenter
