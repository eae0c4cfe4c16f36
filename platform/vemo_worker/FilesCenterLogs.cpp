#include "FilesCenterLogs.h"

#include "SystemConfig.h"

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
constexpr int mostChannels = 2000;
constexpr int mostRemoved = 20'000;
constexpr int writesBetweenPrunes = 1000;

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

/// What is asked for, as SQL with its values in order.
struct Conditions
{
    explicit Conditions(const FilesCenterLogs::Query& wanted)
    {
        if (wanted.begin.isValid())
            demand("time_utc_ms >= ?", wanted.begin.toMSecsSinceEpoch());
        if (wanted.end.isValid())
            demand("time_utc_ms < ?", wanted.end.toMSecsSinceEpoch());
        if (wanted.kind != FilesCenterLogs::Unknown)
            demand("kind = ?", static_cast<int>(wanted.kind));
        if (!wanted.device.isEmpty()) {
            demand("device = ?", wanted.device);
            demand("channel_no = ?", wanted.channelNo);
        }
        if (wanted.beforeId > 0)
            demand("id < ?", wanted.beforeId);
        if (!wanted.contains.isEmpty())
            demandWords(pattern(wanted.contains));
    }

    QString where() const
    {
        return all.isEmpty() ? QString() : QString(QStringLiteral(" WHERE ") % all.join(QStringLiteral(" AND ")));
    }

    void bind(QSqlQuery* query) const
    {
        for (const QVariant& value : values)
            query->addBindValue(value);
    }

private:
    void demand(const char* condition, const QVariant& value)
    {
        all.append(QString::fromLatin1(condition));
        values.append(value);
    }

    void demandWords(const QString& words)
    {
        all.append(QStringLiteral("(text LIKE ? ESCAPE '\\' OR channel_name LIKE ? ESCAPE '\\' "
                                  "OR device LIKE ? ESCAPE '\\')"));
        for (int column = 0; column < 3; ++column)
            values.append(words);
    }

    QStringList all;
    QVariantList values;
};

bool execute(QSqlQuery* query)
{
    if (query->exec())
        return true;
    qWarning().noquote() << "files-center log:" << query->lastError().text();
    return false;
}

bool read(QSqlDatabase& db, const FilesCenterLogs::Query& wanted, QList<FilesCenterLogs::Entry>* entries)
{
    const Conditions conditions(wanted);
    QSqlQuery query(db);
    query.setForwardOnly(true);
    query.prepare(QStringLiteral("SELECT id, time_utc_ms, kind, device, channel_no, channel_name, text "
                                 "FROM files_center_logs") %
                  conditions.where() % // An index has the entries in the order of time; those with an id below another
                                       // are asked for in that of ids.
                  (wanted.beforeId > 0 ? QStringLiteral(" ORDER BY id DESC")
                                       : QStringLiteral(" ORDER BY time_utc_ms DESC, id DESC")) %
                  QStringLiteral(" LIMIT ? OFFSET ?"));
    conditions.bind(&query);
    query.addBindValue(qBound(1, wanted.limit, mostEntries));
    query.addBindValue(qMax(0, wanted.offset));
    if (!execute(&query))
        return false;
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

bool count(QSqlDatabase& db, const FilesCenterLogs::Query& wanted, int* total)
{
    const Conditions conditions(wanted);
    QSqlQuery query(db);
    query.prepare(QStringLiteral("SELECT count(*) FROM files_center_logs") % conditions.where());
    conditions.bind(&query);
    if (!execute(&query) || !query.next())
        return false;
    *total = query.value(0).toInt();
    return true;
}

bool readChannels(QSqlDatabase& db, QList<FilesCenterLogs::Channel>* channels)
{
    QSqlQuery query(db);
    query.setForwardOnly(true);
    query.prepare(QStringLiteral("SELECT device, channel_no, channel_name FROM files_center_logs WHERE id IN "
                                 "(SELECT max(id) FROM files_center_logs WHERE device <> '' "
                                 "GROUP BY device, channel_no) ORDER BY device, channel_no LIMIT ?"));
    query.addBindValue(mostChannels);
    if (!execute(&query))
        return false;
    while (query.next())
        channels->append({query.value(0).toString(), query.value(1).toInt(), query.value(2).toString()});
    return true;
}

/// A part at a time, so that nobody waits long for the database.
bool removeOld(QSqlDatabase& db, qint64 beforeUtcMs, bool* isDone)
{
    QSqlQuery query(db);
    query.prepare(QStringLiteral("DELETE FROM files_center_logs WHERE id IN (SELECT id FROM files_center_logs "
                                 "WHERE time_utc_ms < ? LIMIT ?)"));
    query.addBindValue(beforeUtcMs);
    query.addBindValue(mostRemoved);
    if (!execute(&query))
        return false;
    qint64 removed = query.numRowsAffected();
    query.prepare(QStringLiteral("DELETE FROM files_center_logs WHERE id IN (SELECT id FROM files_center_logs "
                                 "WHERE id <= (SELECT max(id) FROM files_center_logs) - ? ORDER BY id LIMIT ?)"));
    query.addBindValue(FilesCenterLogs::mostKept);
    query.addBindValue(mostRemoved);
    if (!execute(&query))
        return false;
    removed = qMax<qint64>(removed, query.numRowsAffected());
    *isDone = removed < mostRemoved;
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
    if (m_written++ % writesBetweenPrunes == 0)
        prune();
}

void FilesCenterLogs::prune()
{
    const int days = SystemConfig::instance().logDays();
    const qint64 before = days == 0 ? 0 : QDateTime::currentDateTime().addDays(-days).toMSecsSinceEpoch();
    auto isDone = std::make_shared<bool>(true);
    vemo_data::Database::instance().post(
        [before, isDone](QSqlDatabase& db) { return removeOld(db, before, isDone.get()); },
        [this, isDone](bool stored) {
            if (stored && !*isDone)
                prune();
        });
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

void FilesCenterLogs::queryCounted(const Query& query, QObject* context, CountedPage page)
{
    struct Found
    {
        QList<Entry> entries;
        int total = 0;
    };
    auto found = std::make_shared<Found>();
    vemo_data::Database::instance().post(
        [query, found](QSqlDatabase& db) {
            return count(db, query, &found->total) && (found->total == 0 || read(db, query, &found->entries));
        },
        [found, guard = QPointer<QObject>(context), page = std::move(page)](bool) {
            if (guard)
                page(found->entries, found->total);
        });
}

void FilesCenterLogs::queryChannels(QObject* context, Channels channels)
{
    auto found = std::make_shared<QList<Channel>>();
    vemo_data::Database::instance().post(
        [found](QSqlDatabase& db) { return readChannels(db, found.get()); },
        [found, guard = QPointer<QObject>(context), channels = std::move(channels)](bool) {
            if (guard)
                channels(*found);
        });
}

} // namespace vemo_worker
