#pragma once

#include "vemo_worker_global.h"

#include <QObject>
#include <QString>

namespace vemo_worker {

/// The files-center log: what happened to files, for audit. One object a process; writes go to the database's thread
/// and return at once.
class VEMO_WORKER_EXPORT FilesCenterLogs final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(FilesCenterLogs)

public:
    enum Kind : int { Unknown = 0, Download = 1 };

    static FilesCenterLogs& instance();

    void recordDownloadEventLog(const QString& device, int channelNo, const QString& channelName, const QString& text);

private:
    FilesCenterLogs();
};

} // namespace vemo_worker
