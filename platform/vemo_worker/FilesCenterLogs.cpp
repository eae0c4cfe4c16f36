#include "FilesCenterLogs.h"

#include <Database.h>

#include <QDateTime>
#include <QDebug>
#include <QPointer>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QVariant>

#include <memory>

namespace vemo_worker {

namespace {

constexpr int mostEntries = 1000;

QString notNull(const QString& text)
{
    return text.isNull() ? QStringLiteral("") : text;
}

bool write(QSqlDatabase& db, const FilesCenterLogs::Entry& line)
{
    QSqlQuery query(db);
    query.prepare(QStringLiteral("INSERT INTO files_center_logs (time_utc_ms, kind, device, channel_no, channel_name, "
                                 "text) VALUES (?, ?, ?, ?, ?, ?)"));
    query.addBindValue(line.time.toMSecsSinceEpoch());
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

/// The text as a pattern of LIKE, its own wildcards taken literally.
QString pattern(QString text)
{
    for (const char* wildcard : {"\\", "%", "_"})
        text.replace(QLatin1String(wildcard), QLatin1Char('\\') + QLatin1String(wildcard));
    return QLatin1Char('%') + text + QLatin1Char('%');
}

bool read(QSqlDatabase& db, const FilesCenterLogs::Query& wanted, QList<FilesCenterLogs::Entry>* entries)
{
    QStringList conditions;
    QVariantList values;
    const auto demand = [&conditions, &values](const char* condition, const QVariant& value) {
        conditions.append(QString::fromLatin1(condition));
        values.append(value);
    };
    if (wanted.begin.isValid())
        demand("time_utc_ms >= ?", wanted.begin.toMSecsSinceEpoch());
    if (wanted.end.isValid())
        demand("time_utc_ms < ?", wanted.end.toMSecsSinceEpoch());
    if (wanted.kind != FilesCenterLogs::Unknown)
        demand("kind = ?", static_cast<int>(wanted.kind));
    if (wanted.beforeId > 0)
        demand("id < ?", wanted.beforeId);
    if (!wanted.contains.isEmpty())
        demand("device || char(10) || channel_name || char(10) || text LIKE ? ESCAPE '\\'", pattern(wanted.contains));

    QString statement = QStringLiteral("SELECT id, time_utc_ms, kind, device, channel_no, channel_name, text "
                                       "FROM files_center_logs");
    if (!conditions.isEmpty())
        statement += QStringLiteral(" WHERE ") + conditions.join(QStringLiteral(" AND "));
    QSqlQuery query(db);
    query.setForwardOnly(true);
    query.prepare(statement + QStringLiteral(" ORDER BY id DESC LIMIT ?"));
    for (const QVariant& value : qAsConst(values))
        query.addBindValue(value);
    query.addBindValue(qBound(1, wanted.limit, mostEntries));
    if (!query.exec()) {
        qWarning().noquote() << "files-center log:" << query.lastError().text();
        return false;
    }
    while (query.next()) {
        FilesCenterLogs::Entry entry;
        entry.id = query.value(0).toLongLong();
        entry.time = QDateTime::fromMSecsSinceEpoch(query.value(1).toLongLong());
        entry.kind = static_cast<FilesCenterLogs::Kind>(query.value(2).toInt());
        entry.device = query.value(3).toString();
        entry.channelNo = query.value(4).toInt();
        entry.channelName = query.value(5).toString();
        entry.text = query.value(6).toString();
        entries->append(entry);
    }
    return true;
}

} // namespace

FilesCenterLogs::FilesCenterLogs() = default;

FilesCenterLogs& FilesCenterLogs::instance()
{
    static FilesCenterLogs logs;
    return logs;
}

void FilesCenterLogs::post(Kind kind, const QString& device, int channelNo, const QString& channelName,
                           const QString& text)
{
    Entry line;
    line.time = QDateTime::currentDateTime();
    line.kind = kind;
    line.device = device;
    line.channelNo = channelNo;
    line.channelName = channelName;
    line.text = text;
    vemo_data::Database::instance().post([line](QSqlDatabase& db) { return write(db, line); });
}

void FilesCenterLogs::recordDownloadEventLog(const QString& device, int channelNo, const QString& channelName,
                                             const QString& text)
{
    post(Download, device, channelNo, channelName, text);
}

void FilesCenterLogs::recordBackupEventLog(const QString& device, int channelNo, const QString& channelName,
                                           const QString& text)
{
    post(Backup, device, channelNo, channelName, text);
}

void FilesCenterLogs::deleteLocalRecordLog(const QString& device, int channelNo, const QString& channelName,
                                           const QString& text)
{
    post(LocalRecordDeletion, device, channelNo, channelName, text);
}

void FilesCenterLogs::deleteLocalCaptureLog(const QString& device, int channelNo, const QString& channelName,
                                            const QString& text)
{
    post(LocalCaptureDeletion, device, channelNo, channelName, text);
}

void FilesCenterLogs::query(const Query& query, QObject* context, Page page)
{
    auto entries = std::make_shared<QList<Entry>>();
    vemo_data::Database::instance().post([query, entries](QSqlDatabase& db) { return read(db, query, entries.get()); },
                                         [entries, guard = QPointer<QObject>(context), page = std::move(page)](bool) {
                                             if (guard)
                                                 page(*entries);
                                         });
}

} // namespace vemo_worker
