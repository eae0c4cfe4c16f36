#pragma once

#include <BackupSafety.h>
#include <BackupTaskInfo.h>

#include <QWidget>

class QLabel;
class QMovie;
class QToolButton;

namespace vemo_filesCenter {

class BackupAxisWt;
class BackupExport;

/// One backup task of the day: its channel, state and safety, the time axis, the buttons that start or stop, export,
/// delete and apply it, and its message line. A start goes by BackupStarts to the BackupWorker, whose
/// signals the row follows by the task's id. GUI thread; owned by the BackupTasksBox.
///
/// The property "task_state" of the indicator `taskState` tells what it shows: 0 the search, 2 finished, -1 nothing.
class BackupTaskTimeAxisWt final : public QWidget
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(BackupTaskTimeAxisWt)

public:
    static constexpr int rowHeight = 90;

    explicit BackupTaskTimeAxisWt(const vemo_data::BackupTaskInfo& task, QWidget* parent = nullptr);

    const vemo_data::BackupTaskInfo& task() const { return m_task; }
    const vemo_data::BackupSafety& safety() const { return m_safety; }
    /// As a click on the start button, where that is shown and up.
    void pressStart();
    /// Ends the search or, as a click, the backup.
    void releaseStart();
    void setFileInfos(const QList<vemo_data::BackupTaskInfo::FileInfo>& fileInfos);
    bool isSearching() const;
    bool isExporting() const;

    BackupAxisWt* axis() const { return m_axis; }
    /// The channel's name and whether it still exists may have changed.
    void refreshChannel();
    /// What the row tells of the time may have changed.
    void refreshTime();

signals:
    void signalExportProgress(const QString& taskId, int finishedCnt, qint64 curSize);
    void signalExportFinished();
    /// What safety() tells is another.
    void signalSafetyChanged();

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    /// What the state line says.
    struct StateWords
    {
        QString icon;
        QString text;
        int token = 0;
    };

    QToolButton* makeButton(const QString& objectName, const QString& icon, const QString& tip);
    QLabel* makeLabel(const QString& objectName, int pixels);
    void toggleStart(bool down);
    void takeSearching();
    void takeNotStarted(bool isEmpty);
    void putUp();
    void showIndicator(int state);
    void takeWorker();
    void takeProgress(const QTime& curTime);
    void takeMessage(const QString& message);

    /// Or, while it is at work, cancels.
    void exportFiles();
    void showExportButton();
    void removeTask();
    void applyToDay();

    void showAxis();
    void showState();
    void showStartButton();
    void showMessage();
    StateWords stateWords() const;
    void arrange();

    vemo_data::BackupTaskInfo m_task;
    QDateTime m_curTime;
    QString m_message;
    vemo_data::BackupSafety m_safety;
    bool m_isChannelThere = true;
    int m_percent = 0;        ///< of the segments, settled or fetched
    int m_exportPercent = -1; ///< below 0: nothing is exported

    BackupExport* m_export = nullptr; ///< made by the first export
    QLabel* m_name;
    QLabel* m_state;
    QLabel* m_safe;
    QLabel* m_errorMsg;
    QLabel* m_indicator;
    QMovie* m_waiting = nullptr; ///< only while searching
    BackupAxisWt* m_axis;
    QToolButton* m_start;
    QToolButton* m_exportBt;
    QToolButton* m_delete;
    QToolButton* m_apply;
};

} // namespace vemo_filesCenter
