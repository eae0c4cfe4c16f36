-- A database as version 2 of the schema left it, with two downloads and a local recording.
BEGIN TRANSACTION;
CREATE TABLE device_channels (
                dev_id TEXT NOT NULL REFERENCES devices (dev_id) ON DELETE CASCADE,
                channel_no INTEGER NOT NULL,
                name TEXT NOT NULL,
                recording_token TEXT NOT NULL,
                profile_token TEXT NOT NULL,
                PRIMARY KEY (dev_id, channel_no)
            ) WITHOUT ROWID;
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
INSERT INTO "download_tasks" VALUES(1,'{t1}','{dev}|3','Ramp','Recorder',3,1768032000250,1768033860250,'Europe/Berlin',1,3,2,100,6000000000,'token/1','done.mp4',1860000,1860000,NULL);
INSERT INTO "download_tasks" VALUES(2,'{t2}','{dev}|4','','Recorder',4,1768032000250,1768033860250,'UTC',1,2,0,37,5,'','open.mp4',700000,1860000,'key');
CREATE TABLE files_center_logs (
                id INTEGER PRIMARY KEY AUTOINCREMENT,
                time_utc_ms INTEGER NOT NULL,
                kind INTEGER NOT NULL,
                device TEXT NOT NULL,
                channel_no INTEGER NOT NULL,
                channel_name TEXT NOT NULL,
                text TEXT NOT NULL
            );
CREATE TABLE local_recordings (
                file_path TEXT PRIMARY KEY NOT NULL,
                dev_id TEXT NOT NULL,
                channel_no INTEGER NOT NULL,
                channel_id TEXT NOT NULL,
                channel_name TEXT NOT NULL,
                dev_name TEXT NOT NULL,
                begin_utc_ms INTEGER NOT NULL,
                end_utc_ms INTEGER NOT NULL CHECK (end_utc_ms >= begin_utc_ms)
            ) WITHOUT ROWID;
INSERT INTO "local_recordings" VALUES('/v/a.mp4','{dev}',3,'{dev}|3','Ramp','Recorder',1768032000000,1768033860000);
CREATE TABLE task_facts (
                task_id TEXT PRIMARY KEY NOT NULL,
                report TEXT NOT NULL DEFAULT '',               -- JSON, empty: none
                reason TEXT NOT NULL DEFAULT '',               -- of the failure, one sentence
                sha256 BLOB CHECK (sha256 IS NULL OR length(sha256) = 32),
                sha256_bytes INTEGER NOT NULL DEFAULT 0 CHECK (sha256_bytes >= 0),
                seconds REAL NOT NULL DEFAULT 0
            );
INSERT INTO "task_facts" VALUES('{t1}','{}','',X'0707070707070707070707070707070707070707070707070707070707070707',6000000000,12.5);
CREATE UNIQUE INDEX download_tasks_request ON download_tasks (request_key) WHERE request_key IS NOT NULL;
CREATE INDEX local_recordings_span ON local_recordings (dev_id, channel_no, begin_utc_ms);
CREATE INDEX files_center_logs_time ON files_center_logs (time_utc_ms);
CREATE TRIGGER download_tasks_facts AFTER DELETE ON download_tasks BEGIN
                DELETE FROM task_facts WHERE task_id = old.task_id;
            END;
DELETE FROM "sqlite_sequence";
INSERT INTO "sqlite_sequence" VALUES('download_tasks',2);
COMMIT;
PRAGMA user_version = 2;
