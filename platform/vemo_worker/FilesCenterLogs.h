#pragma once

#include "vemo_worker_global.h"

#include <QDateTime>
#include <QList>
#include <QObject>
#include <QString>

#include <functional>

namespace vemo_worker {

/// The files-center log: what happened to files, for audit. One object a process, on the GUI thread; writes go to the
/// database's thread and return at once. Entries beyond the days of the settings, and beyond a million, are removed
/// while others are written, the oldest first.
class VEMO_WORKER_EXPORT FilesCenterLogs final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(FilesCenterLogs)

public:
    enum Kind : int { Unknown = 0, Download = 1, LocalRecordDeletion = 2, LocalCaptureDeletion = 3, Backup = 4 };

    struct Entry
    {
        qint64 id = 0; ///< rises with time
        QDateTime time;
        Kind kind = Unknown;
        QString device;
        int channelNo = 0;
        QString channelName;
        QString text;
    };

    /// Which entries, newest first. What is left as it is does not restrict.
    struct Query
    {
        QDateTime begin; ///< included
        QDateTime end;   ///< not included
        Kind kind = Unknown;
        QString device; ///< with channelNo; empty: every channel
        int channelNo = 0;
        QString contains;    ///< in device, channel name or text
        qint64 beforeId = 0; ///< only those with a lower id, by their ids: the last id of the page before
        int limit = 200;     ///< of one page, at most 1000
        int offset = 0;      ///< so many newer ones that match are left out
    };

    struct Channel
    {
        QString device;
        int channelNo = 0;
        QString channelName; ///< of its last entry
    };

    using Page = std::function<void(const QList<Entry>& entries)>;
    using CountedPage = std::function<void(const QList<Entry>& entries, int total)>;
    using Channels = std::function<void(const QList<Channel>& channels)>;

    static constexpr qint64 mostKept = 1'000'000;

    static FilesCenterLogs& instance();

    /// Calls `page` on the GUI thread, all earlier entries included; not when `context` has gone by then.
    void query(const Query& query, QObject* context, Page page);

    /// The same, and how many match on all pages together.
    void queryCounted(const Query& query, QObject* context, CountedPage page);
    /// Those that have entries, by device and number; at most 2,000.
    void queryChannels(QObject* context, Channels channels);
    /// Removes what is kept too long; by itself after the first entry of a run and every thousand.
    void prune();

    void recordDownloadEventLog(const QString& device, int channelNo, const QString& channelName, const QString& text);
    void recordBackupEventLog(const QString& device, int channelNo, const QString& channelName, const QString& text);
    void deleteLocalRecordLog(const QString& device, int channelNo, const QString& channelName, const QString& text);
    void deleteLocalCaptureLog(const QString& device, int channelNo, const QString& channelName, const QString& text);

private:
    FilesCenterLogs();

    void post(Kind kind, const QString& device, int channelNo, const QString& channelName, const QString& text);

    int m_written = 0;
};

} // namespace vemo_worker
