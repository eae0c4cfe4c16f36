#pragma once

#include <FilesCenterLogs.h>

#include <QFile>
#include <QObject>
#include <QSaveFile>

#include <memory>

class QThread;

namespace vemo_client {

/// Writes the entries that a query matches into a CSV file, newest first: read page by page from the store, written on
/// a thread of its own into a temporary file beside the target, which takes the target's name at the end. A file of
/// that name is replaced only then. Ends exactly once by signalEnded; after a failure or cancel() nothing is left
/// behind. GUI thread.
class LogExport final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(LogExport)

public:
    LogExport(const QString& path, const vemo_worker::FilesCenterLogs::Query& query, int total,
              QObject* parent = nullptr);
    ~LogExport() override;

    void start();
    void cancel();

signals:
    void signalProgress(int written, int total);
    /// `problem` is empty when the file is complete; `entries` were written.
    void signalEnded(const QString& problem, int entries);

private:
    class Writer;

    void askPage();
    void takePage(const QList<vemo_worker::FilesCenterLogs::Entry>& entries);
    void takeWritten(bool ok, const QString& error);
    void end(const QString& problem);

    const QString m_path;
    vemo_worker::FilesCenterLogs::Query m_query;
    const int m_total;
    std::unique_ptr<QThread> m_thread;
    Writer* m_writer = nullptr; ///< lives on the thread
    int m_written = 0;
    int m_underWay = 0; ///< entries of the page that is being written
    bool m_isLast = false;
    bool m_isOver = false;
};

} // namespace vemo_client
