#pragma once

#include <QObject>
#include <QSet>
#include <QString>

namespace vemo_filesCenter {

/// How the queue stands, put together of what the tables tell, and announced to the client by
/// SystemMsg::signalDownloadQueueChanged. A task on its way from one table over the store to another is in none of
/// them: while one is, nothing is announced, so that no one takes the moment for the end of the queue. One object a
/// process, on the GUI thread.
class DownloadQueueStatus final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(DownloadQueueStatus)

public:
    static DownloadQueueStatus& instance();

    void setQueueCounts(int running, int waiting, int paused);
    void setRetryCount(int retrying);
    /// The task was given to the store and comes back by an announcement.
    void expect(const QString& taskId);
    void arrived(const QString& taskId);
    /// The stored tasks are in their tables; nothing is announced before.
    void setHandedOut();

private:
    struct Counts
    {
        int running = 0;
        int waiting = 0;
        int paused = 0;
        int retrying = 0;
    };

    DownloadQueueStatus();

    void tellLater();
    void tell();

    Counts m_counts;
    Counts m_told;
    QSet<QString> m_expected;
    bool m_isHandedOut = false;
    bool m_everTold = false;
    bool m_isTellDue = false;
};

} // namespace vemo_filesCenter
