#pragma once

#include "CliCommand.h"
#include "VerbExit.h"

#include <DownloadTaskInfo.h>

#include <QElapsedTimer>
#include <QHash>
#include <QObject>
#include <QTimer>

#include <memory>

namespace vemo_base {
class BaseForm;
}

namespace vemo_client {

/// `vemo_client queue run`: works the stored tasks off as the window would, by the module's form that nobody sees, and
/// leaves the event loop when nothing is left to do. Needs a QApplication; the caller holds the folder's lock.
class QueueRun final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(QueueRun)

public:
    explicit QueueRun(const CliCommand& command, QObject* parent = nullptr);
    ~QueueRun() override;

    void run();
    /// Ends as the window does when it is closed: what arrived is kept, the rest waits.
    void interrupt();

private:
    struct Figures
    {
        int running = 0;
        int waiting = 0;
        int paused = 0;
        int retrying = 0;
    };

    void startQueue();
    void queueChanged(int running, int waiting, int paused, int retrying);
    void tasksChanged(const QList<vemo_data::DownloadTaskInfo>& tasks);
    bool isOver() const;
    /// The checksum of a file that this run finished is still to come.
    bool isSumming() const;
    void finish();
    ExitCode verdict();
    void showProgress();
    void leave(ExitCode code, const QString& sentence = {});

    const CliCommand m_command;
    std::unique_ptr<vemo_base::BaseForm> m_form;
    QHash<QString, int> m_stateBefore; ///< of the stored tasks, by id
    QHash<QString, int> m_stateTold;   ///< the same, as last printed
    QHash<QString, QString> m_summed;  ///< files, by task, that finished in this run and that the module sums
    QElapsedTimer m_sinceOver;
    Figures m_figures;
    bool m_told = false; ///< the module has told its figures
    qint64 m_kbitPerSecond = 0;
    QTimer m_progressTimer;
    QTimer m_overTimer;
    bool m_progressShown = false;
    VerbExit m_exit;
};

} // namespace vemo_client
