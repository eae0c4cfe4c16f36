#include "FilesCenterLogs.h"

#include <Database.h>

#include <QDateTime>
#include <QDebug>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QVariant>

namespace vemo_worker {

namespace {

struct Line
{
    qint64 timeUtcMs = 0;
    FilesCenterLogs::Kind kind = FilesCenterLogs::Unknown;
    QString device;
    int channelNo = 0;
    QString channelName;
    QString text;
};

QString notNull(const QString& text)
{
    return text.isNull() ? QStringLiteral("") : text;
}

bool write(QSqlDatabase& db, const Line& line)
{
    QSqlQuery query(db);
    query.prepare(QStringLiteral("INSERT INTO files_center_logs (time_utc_ms, kind, device, channel_no, channel_name, "
                                 "text) VALUES (?, ?, ?, ?, ?, ?)"));
    query.addBindValue(line.timeUtcMs);
    query.addBindValue(static_cast<int>(line.kind));
    query.addBindValue(notNull(line.device));
    query.addBindValue(line.channelNo);
    query.addBindValue(notNull(line.channelName));
    query.addBindValue(notNull(line.text));
    if (query.exec())
        return true;
    qWarning().noquote() << "files-center log:" << query.lastError().text();
    return false;
}

} // namespace

FilesCenterLogs::FilesCenterLogs() = default;

FilesCenterLogs& FilesCenterLogs::instance()
{
    static FilesCenterLogs logs;
    return logs;
}

void FilesCenterLogs::recordDownloadEventLog(const QString& device, int channelNo, const QString& channelName,
                                             const QString& text)
{
    const Line line{QDateTime::currentMSecsSinceEpoch(), Download, device, channelNo, channelName, text};
    vemo_data::Database::instance().post([line](QSqlDatabase& db) { return write(db, line); });
}

} // namespace vemo_worker
