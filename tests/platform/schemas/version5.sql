-- A database as version 5 of the schema left it, with two devices.
BEGIN TRANSACTION;
CREATE TABLE backup_files (
                task_id TEXT NOT NULL REFERENCES backup_tasks (task_id) ON DELETE CASCADE,
                place INTEGER NOT NULL,
                start_ms INTEGER NOT NULL CHECK (start_ms BETWEEN 0 AND 86399999),
                end_ms INTEGER NOT NULL CHECK (end_ms BETWEEN 0 AND 86399999),
                file_path TEXT NOT NULL,                       -- empty: no recording, or not fetched yet
                finished INTEGER NOT NULL CHECK (finished IN (0, 1)),
                starts_in_second_pass INTEGER NOT NULL CHECK (starts_in_second_pass IN (0, 1)),
                ends_in_first_pass INTEGER NOT NULL CHECK (ends_in_first_pass IN (0, 1)),
                PRIMARY KEY (task_id, place)
            ) WITHOUT ROWID;
CREATE TABLE backup_held (
                task_id TEXT NOT NULL REFERENCES backup_tasks (task_id) ON DELETE CASCADE,
                place INTEGER NOT NULL,
                begin_utc_ms INTEGER NOT NULL,                 -- since 1970
                end_utc_ms INTEGER NOT NULL CHECK (end_utc_ms >= begin_utc_ms),
                PRIMARY KEY (task_id, place)
            ) WITHOUT ROWID;
CREATE TABLE backup_segments (
                task_id TEXT NOT NULL REFERENCES backup_tasks (task_id) ON DELETE CASCADE,
                place INTEGER NOT NULL,
                start_ms INTEGER NOT NULL CHECK (start_ms BETWEEN 0 AND 86399999),
                end_ms INTEGER NOT NULL CHECK (end_ms BETWEEN 0 AND 86399999),
                PRIMARY KEY (task_id, place)
            ) WITHOUT ROWID;
CREATE TABLE backup_tasks (
                seq INTEGER PRIMARY KEY AUTOINCREMENT,         -- order of adding
                task_id TEXT NOT NULL UNIQUE,
                day TEXT NOT NULL CHECK (length(day) = 10),    -- yyyy-MM-dd
                channel_id TEXT NOT NULL,
                channel_name TEXT NOT NULL,
                device_no TEXT NOT NULL,
                channel_no INTEGER NOT NULL,
                searched INTEGER NOT NULL DEFAULT 0 CHECK (searched IN (0, 1)) -- backup_held tells what was found
            );
CREATE TABLE backup_unlisted (
                seq INTEGER PRIMARY KEY AUTOINCREMENT,
                file_path TEXT NOT NULL UNIQUE,
                device_no TEXT NOT NULL,
                channel_no INTEGER NOT NULL,
                channel_name TEXT NOT NULL
            );
CREATE TABLE device_channels (
                dev_id TEXT NOT NULL REFERENCES devices (dev_id) ON DELETE CASCADE,
                channel_no INTEGER NOT NULL,
                name TEXT NOT NULL,
                recording_token TEXT NOT NULL,
                profile_token TEXT NOT NULL,
                PRIMARY KEY (dev_id, channel_no)
            ) WITHOUT ROWID;
INSERT INTO "device_channels" VALUES('{a}',1,'North','rec1','pro1');
INSERT INTO "device_channels" VALUES('{a}',2,'','rec2','');
CREATE TABLE devices (
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
            );
INSERT INTO "devices" VALUES(1,'{a}','Gate','http://127.0.0.1:8080/onvif','someone',X'0707070707070707070707070707070707070707070707070707070707070707','','M1','','',0,1);
INSERT INTO "devices" VALUES(2,'{b}','','rtsp://127.0.0.1/{channel}','',NULL,'','','','',0,0);
CREATE TABLE download_tasks (
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
            );
CREATE TABLE files_center_logs (
                id INTEGER PRIMARY KEY AUTOINCREMENT,
                time_utc_ms INTEGER NOT NULL,
                kind INTEGER NOT NULL,
                device TEXT NOT NULL,
                channel_no INTEGER NOT NULL,
                channel_name TEXT NOT NULL,
                text TEXT NOT NULL
            );
CREATE TABLE local_channels (
                id INTEGER PRIMARY KEY,
                dev_id TEXT NOT NULL,                          -- empty: the files don't tell
                channel_no INTEGER NOT NULL,
                channel_id TEXT NOT NULL,
                channel_name TEXT NOT NULL,
                dev_name TEXT NOT NULL,
                UNIQUE (dev_id, channel_no, channel_id, channel_name, dev_name)
            );
CREATE TABLE local_folders (
                folder TEXT PRIMARY KEY NOT NULL,              -- that was scanned
                volume TEXT NOT NULL,                          -- the file system it lay on
                scanned_utc_ms INTEGER NOT NULL
            ) WITHOUT ROWID;
CREATE TABLE local_recordings (
                begin_utc_ms INTEGER NOT NULL,                 -- since 1970
                file_path TEXT NOT NULL UNIQUE,
                end_utc_ms INTEGER NOT NULL CHECK (end_utc_ms >= begin_utc_ms),
                channel INTEGER NOT NULL REFERENCES local_channels (id),
                bytes INTEGER NOT NULL,                        -- size and time when the file was read, 0: never
                written_utc_ms INTEGER NOT NULL,
                problem TEXT NOT NULL,                         -- what is wrong with the file, empty: nothing
                span_guessed INTEGER NOT NULL CHECK (span_guessed IN (0, 1)),
                PRIMARY KEY (begin_utc_ms, file_path)
            ) WITHOUT ROWID;
CREATE TABLE local_snapshots (
                capture_utc_ms INTEGER NOT NULL,
                file_path TEXT NOT NULL UNIQUE,
                channel INTEGER NOT NULL REFERENCES local_channels (id),
                bytes INTEGER NOT NULL,
                written_utc_ms INTEGER NOT NULL,
                problem TEXT NOT NULL,
                PRIMARY KEY (capture_utc_ms, file_path)
            ) WITHOUT ROWID;
CREATE TABLE task_facts (
                task_id TEXT PRIMARY KEY NOT NULL,
                report TEXT NOT NULL DEFAULT '',               -- JSON, empty: none
                reason TEXT NOT NULL DEFAULT '',               -- of the failure, one sentence
                sha256 BLOB CHECK (sha256 IS NULL OR length(sha256) = 32),
                sha256_bytes INTEGER NOT NULL DEFAULT 0 CHECK (sha256_bytes >= 0),
                seconds REAL NOT NULL DEFAULT 0
            );
CREATE UNIQUE INDEX download_tasks_request ON download_tasks (request_key) WHERE request_key IS NOT NULL;
CREATE INDEX files_center_logs_time ON files_center_logs (time_utc_ms);
CREATE TRIGGER download_tasks_facts AFTER DELETE ON download_tasks BEGIN
                DELETE FROM task_facts WHERE task_id = old.task_id;
            END;
CREATE INDEX backup_tasks_day ON backup_tasks (day);
CREATE INDEX local_recordings_channel ON local_recordings (channel, begin_utc_ms);
CREATE INDEX local_recordings_length ON local_recordings (end_utc_ms - begin_utc_ms);
DELETE FROM "sqlite_sequence";
INSERT INTO "sqlite_sequence" VALUES('devices',2);
COMMIT;
PRAGMA user_version = 5;
