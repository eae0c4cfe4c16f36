#pragma once

#include <DownloadTaskInfo.h>

#include <QHash>
#include <QObject>

namespace vemo_client {

/// Watches the download queue for the shell: its figures, and the moment when it has run empty, with what became of the
/// downloads since it began. GUI thread.
class QueueWatch final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(QueueWatch)

public:
    struct Figures
    {
        int running = 0;
        int waiting = 0;
        int paused = 0;
        int retrying = 0;

        bool isBusy() const { return running + waiting + retrying > 0; }
    };

    explicit QueueWatch(QObject* parent = nullptr);

    const Figures& figures() const { return m_figures; }
    /// "5 running, 5 waiting", "2 paused", "empty"
    static QString words(const Figures& figures);
    /// The same with all four figures.
    static QString allWords(const Figures& figures);

signals:
    void signalChanged();
    /// Nothing is left to do but what is paused. Both zero: everything that was queued was taken out again.
    void signalEmptied(int done, int failed);

private:
    void takeFigures(int running, int waiting, int paused, int retrying);
    void takeTasks(const QList<vemo_data::DownloadTaskInfo>& tasks);

    Figures m_figures;
    QHash<QString, int> m_ended; ///< the last state of tasks that ended since the queue began
};

} // namespace vemo_client
