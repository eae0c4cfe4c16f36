#include "DatabaseSchema.h"

#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QVariant>

#include <vector>

namespace vemo_data {

namespace {

using Step = std::vector<const char*>;

/// Step n leads from version n to n + 1. A step that was released is never changed.
const std::vector<Step>& steps()
{
    static const std::vector<Step> all{
        {
            R"(CREATE TABLE download_tasks (
                seq INTEGER PRIMARY KEY AUTOINCREMENT,        -- order of adding
                task_id TEXT NOT NULL UNIQUE,
                channel_id TEXT NOT NULL,
                channel_name TEXT NOT NULL,
                dev_label TEXT NOT NULL,
                channel_no INTEGER NOT NULL,
                begin_utc_ms INTEGER,                          -- since 1970
                end_utc_ms INTEGER,
                zone TEXT NOT NULL,                            -- IANA id of the zone in which the span was asked for
                download_mode INTEGER NOT NULL CHECK (download_mode IN (0, 1)),
                state INTEGER NOT NULL,
                location INTEGER NOT NULL,
                progress INTEGER NOT NULL,                     -- percent
                downloaded_bytes INTEGER NOT NULL CHECK (downloaded_bytes >= 0),
                file_name TEXT NOT NULL,
                save_path TEXT NOT NULL,
                downloaded_ms INTEGER NOT NULL CHECK (downloaded_ms >= -1),
                duration_ms INTEGER NOT NULL,
                request_key TEXT                               -- set while the task waits, runs or is paused
            ))",
            "CREATE UNIQUE INDEX download_tasks_request ON download_tasks (request_key) WHERE request_key IS NOT NULL",
            R"(CREATE TABLE devices (
                seq INTEGER PRIMARY KEY AUTOINCREMENT,
                dev_id TEXT NOT NULL UNIQUE,
                name TEXT NOT NULL,
                address TEXT NOT NULL,                         -- without user and password
                user_name TEXT NOT NULL,
                key_sha256 BLOB CHECK (key_sha256 IS NULL OR length(key_sha256) = 32),
                manufacturer TEXT NOT NULL DEFAULT '',         -- from here on as last told by the device
                model TEXT NOT NULL DEFAULT '',
                firmware TEXT NOT NULL DEFAULT '',
                serial_number TEXT NOT NULL DEFAULT '',
                type INTEGER NOT NULL DEFAULT 0,
                supports_backup INTEGER NOT NULL DEFAULT 0 CHECK (supports_backup IN (0, 1))
            ))",
            R"(CREATE TABLE device_channels (
                dev_id TEXT NOT NULL REFERENCES devices (dev_id) ON DELETE CASCADE,
                channel_no INTEGER NOT NULL,
                name TEXT NOT NULL,
                recording_token TEXT NOT NULL,
                profile_token TEXT NOT NULL,
                PRIMARY KEY (dev_id, channel_no)
            ) WITHOUT ROWID)",
            R"(CREATE TABLE local_recordings (
                file_path TEXT PRIMARY KEY NOT NULL,
                dev_id TEXT NOT NULL,
                channel_no INTEGER NOT NULL,
                channel_id TEXT NOT NULL,
                channel_name TEXT NOT NULL,
                dev_name TEXT NOT NULL,
                begin_utc_ms INTEGER NOT NULL,
                end_utc_ms INTEGER NOT NULL CHECK (end_utc_ms >= begin_utc_ms)
            ) WITHOUT ROWID)",
            "CREATE INDEX local_recordings_span ON local_recordings (dev_id, channel_no, begin_utc_ms)",
            R"(CREATE TABLE files_center_logs (
                id INTEGER PRIMARY KEY AUTOINCREMENT,
                time_utc_ms INTEGER NOT NULL,
                kind INTEGER NOT NULL,
                device TEXT NOT NULL,
                channel_no INTEGER NOT NULL,
                channel_name TEXT NOT NULL,
                text TEXT NOT NULL
            ))",
            "CREATE INDEX files_center_logs_time ON files_center_logs (time_utc_ms)",
        },
        {
            // Without a reference: facts may be stored before their task. The trigger lets them go with it.
            R"(CREATE TABLE task_facts (
                task_id TEXT PRIMARY KEY NOT NULL,
                report TEXT NOT NULL DEFAULT '',               -- JSON, empty: none
                reason TEXT NOT NULL DEFAULT '',               -- of the failure, one sentence
                sha256 BLOB CHECK (sha256 IS NULL OR length(sha256) = 32),
                sha256_bytes INTEGER NOT NULL DEFAULT 0 CHECK (sha256_bytes >= 0),
                seconds REAL NOT NULL DEFAULT 0
            ))",
            R"(CREATE TRIGGER download_tasks_facts AFTER DELETE ON download_tasks BEGIN
                DELETE FROM task_facts WHERE task_id = old.task_id;
            END)",
        },
        {
            R"(CREATE TABLE backup_tasks (
                seq INTEGER PRIMARY KEY AUTOINCREMENT,         -- order of adding
                task_id TEXT NOT NULL UNIQUE,
                day TEXT NOT NULL CHECK (length(day) = 10),    -- yyyy-MM-dd
                channel_id TEXT NOT NULL,
                channel_name TEXT NOT NULL,
                device_no TEXT NOT NULL,
                channel_no INTEGER NOT NULL,
                searched INTEGER NOT NULL DEFAULT 0 CHECK (searched IN (0, 1)) -- backup_held tells what was found
            ))",
            "CREATE INDEX backup_tasks_day ON backup_tasks (day)",
            // Times of day in ms since midnight by the clock, 0 to 86 399 999.
            R"(CREATE TABLE backup_segments (
                task_id TEXT NOT NULL REFERENCES backup_tasks (task_id) ON DELETE CASCADE,
                place INTEGER NOT NULL,
                start_ms INTEGER NOT NULL CHECK (start_ms BETWEEN 0 AND 86399999),
                end_ms INTEGER NOT NULL CHECK (end_ms BETWEEN 0 AND 86399999),
                PRIMARY KEY (task_id, place)
            ) WITHOUT ROWID)",
            R"(CREATE TABLE backup_files (
                task_id TEXT NOT NULL REFERENCES backup_tasks (task_id) ON DELETE CASCADE,
                place INTEGER NOT NULL,
                start_ms INTEGER NOT NULL CHECK (start_ms BETWEEN 0 AND 86399999),
                end_ms INTEGER NOT NULL CHECK (end_ms BETWEEN 0 AND 86399999),
                file_path TEXT NOT NULL,                       -- empty: no recording, or not fetched yet
                finished INTEGER NOT NULL CHECK (finished IN (0, 1)),
                starts_in_second_pass INTEGER NOT NULL CHECK (starts_in_second_pass IN (0, 1)),
                ends_in_first_pass INTEGER NOT NULL CHECK (ends_in_first_pass IN (0, 1)),
                PRIMARY KEY (task_id, place)
            ) WITHOUT ROWID)",
            // What the device held at the last search.
            R"(CREATE TABLE backup_held (
                task_id TEXT NOT NULL REFERENCES backup_tasks (task_id) ON DELETE CASCADE,
                place INTEGER NOT NULL,
                begin_utc_ms INTEGER NOT NULL,                 -- since 1970
                end_utc_ms INTEGER NOT NULL CHECK (end_utc_ms >= begin_utc_ms),
                PRIMARY KEY (task_id, place)
            ) WITHOUT ROWID)",
        },
        {
            // Recordings lie in the order of their begins, so that a span is read from front to back.
            R"(CREATE TABLE local_channels (
                id INTEGER PRIMARY KEY,
                dev_id TEXT NOT NULL,                          -- empty: the files don't tell
                channel_no INTEGER NOT NULL,
                channel_id TEXT NOT NULL,
                channel_name TEXT NOT NULL,
                dev_name TEXT NOT NULL,
                UNIQUE (dev_id, channel_no, channel_id, channel_name, dev_name)
            ))",
            "INSERT INTO local_channels (dev_id, channel_no, channel_id, channel_name, dev_name) "
            "SELECT DISTINCT dev_id, channel_no, channel_id, channel_name, dev_name FROM local_recordings",
            "ALTER TABLE local_recordings RENAME TO local_recordings_before",
            R"(CREATE TABLE local_recordings (
                begin_utc_ms INTEGER NOT NULL,                 -- since 1970
                file_path TEXT NOT NULL UNIQUE,
                end_utc_ms INTEGER NOT NULL CHECK (end_utc_ms >= begin_utc_ms),
                channel INTEGER NOT NULL REFERENCES local_channels (id),
                bytes INTEGER NOT NULL,                        -- size and time when the file was read, 0: never
                written_utc_ms INTEGER NOT NULL,
                problem TEXT NOT NULL,                         -- what is wrong with the file, empty: nothing
                span_guessed INTEGER NOT NULL CHECK (span_guessed IN (0, 1)),
                PRIMARY KEY (begin_utc_ms, file_path)
            ) WITHOUT ROWID)",
            "INSERT INTO local_recordings SELECT begin_utc_ms, file_path, end_utc_ms, id, 0, 0, '', 0 "
            "FROM local_recordings_before JOIN local_channels USING (dev_id, channel_no, channel_id, channel_name, "
            "dev_name)",
            "DROP TABLE local_recordings_before",
            "CREATE INDEX local_recordings_channel ON local_recordings (channel, begin_utc_ms)",
            "CREATE INDEX local_recordings_length ON local_recordings (end_utc_ms - begin_utc_ms)",
            R"(CREATE TABLE local_snapshots (
                capture_utc_ms INTEGER NOT NULL,
                file_path TEXT NOT NULL UNIQUE,
                channel INTEGER NOT NULL REFERENCES local_channels (id),
                bytes INTEGER NOT NULL,
                written_utc_ms INTEGER NOT NULL,
                problem TEXT NOT NULL,
                PRIMARY KEY (capture_utc_ms, file_path)
            ) WITHOUT ROWID)",
            R"(CREATE TABLE local_folders (
                folder TEXT PRIMARY KEY NOT NULL,              -- that was scanned
                volume TEXT NOT NULL,                          -- the file system it lay on
                scanned_utc_ms INTEGER NOT NULL
            ) WITHOUT ROWID)",
        },
        {
            // Finished files of backups that are not in their manifest yet.
            R"(CREATE TABLE backup_unlisted (
                seq INTEGER PRIMARY KEY AUTOINCREMENT,
                file_path TEXT NOT NULL UNIQUE,
                device_no TEXT NOT NULL,
                channel_no INTEGER NOT NULL,
                channel_name TEXT NOT NULL
            ))",
        },
        {
            "ALTER TABLE devices ADD COLUMN group_name TEXT NOT NULL DEFAULT ''",
            "ALTER TABLE devices ADD COLUMN enabled INTEGER NOT NULL DEFAULT 1 CHECK (enabled IN (0, 1))",
            // 1 recorder, 2 source for live view alone
            "ALTER TABLE devices ADD COLUMN kind INTEGER NOT NULL DEFAULT 1 CHECK (kind IN (1, 2))",
            "ALTER TABLE devices ADD COLUMN channel_count INTEGER NOT NULL DEFAULT 0 "
            "CHECK (channel_count BETWEEN 0 AND 1024)",
            "ALTER TABLE devices ADD COLUMN endpoint TEXT NOT NULL DEFAULT ''",
            // Since 1970.
            "ALTER TABLE devices ADD COLUMN last_seen_utc_ms INTEGER",
            // The names that a person gave; what the device calls its channels comes and goes with device_channels.
            R"(CREATE TABLE device_channel_names (
                dev_id TEXT NOT NULL REFERENCES devices (dev_id) ON DELETE CASCADE,
                channel_no INTEGER NOT NULL,
                name TEXT NOT NULL CHECK (name != ''),
                PRIMARY KEY (dev_id, channel_no)
            ) WITHOUT ROWID)",
        },
        {
            "CREATE INDEX files_center_logs_channel ON files_center_logs (device, channel_no)",
        },
        {
            // Searches behind the end of the day, one after the other, that found nothing of it on the device.
            "ALTER TABLE backup_tasks ADD COLUMN empty_looks INTEGER NOT NULL DEFAULT 0 CHECK (empty_looks >= 0)",
        },
        {
            // What tells where a file differs from what it was, see VCOMMON::FileChecksum.
            "ALTER TABLE task_facts ADD COLUMN sha256_marks BLOB",
        },
    };
    return all;
}

bool fail(const QSqlQuery& query, QSqlError* error)
{
    *error = query.lastError();
    return false;
}

bool carryOut(QSqlDatabase& db, const Step& step, int newVersion, QSqlError* error)
{
    QSqlQuery query(db);
    if (!query.exec(QStringLiteral("BEGIN IMMEDIATE")))
        return fail(query, error);
    bool ok = true;
    for (const char* statement : step) {
        ok = query.exec(QString::fromLatin1(statement)) || fail(query, error);
        if (!ok)
            break;
    }
    // A pragma takes no bound value.
    ok = ok && (query.exec(QStringLiteral("PRAGMA user_version = %1").arg(newVersion)) || fail(query, error));
    ok = ok && (query.exec(QStringLiteral("COMMIT")) || fail(query, error));
    if (!ok)
        query.exec(QStringLiteral("ROLLBACK"));
    return ok;
}

} // namespace

int DatabaseSchema::newestVersion()
{
    return static_cast<int>(steps().size());
}

DatabaseSchema::Outcome DatabaseSchema::upgrade(QSqlDatabase& db, QSqlError* error)
{
    QSqlQuery query(db);
    if (!query.exec(QStringLiteral("PRAGMA user_version")) || !query.next()) {
        fail(query, error);
        return Outcome::Failed;
    }
    const int version = query.value(0).toInt();
    query.finish();
    if (version > newestVersion() || version < 0)
        return Outcome::Newer;
    for (int from = version; from < newestVersion(); ++from) {
        if (!carryOut(db, steps().at(static_cast<std::size_t>(from)), from + 1, error))
            return Outcome::Failed;
    }
    return Outcome::UpToDate;
}

} // namespace vemo_data
