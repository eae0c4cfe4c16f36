#pragma once

#include "ExitCode.h"

#include <BackupTaskInfo.h>

#include <VmsTypes.h>

#include <QDateTime>
#include <QList>
#include <QString>
#include <QStringList>
#include <QUrl>

namespace vemo_client {

/// A recorder as a command line names it.
struct DeviceOptions
{
    QUrl address;
    QString user;
    QString password;
    vms_sdk::TlsPolicy tls;
};

/// What `queue` is to do, and with which tasks.
struct QueueOptions
{
    enum class Action : int { Unknown = 0, List, Add, Pause, Resume, Cancel, Retry, Clear, Run };

    Action action = Action::Unknown;
    QStringList ids; ///< braced UUID texts
    bool all = false;
    bool waitForRetries = true;
    QString fileName;         ///< Add: the recording to fetch as a whole; empty: the span
    bool hasPassword = false; ///< Add: a password was given; otherwise the stored one counts
};

/// What `local` is to do, and with which files.
struct LocalOptions
{
    enum class Kind : int { Unknown = 0, Recordings, Snapshots };
    enum class Action : int { Unknown = 0, List, SaveAs, Delete, Rescan };

    Kind kind = Kind::Unknown;
    Action action = Action::Unknown;
    QString channel; ///< its name; empty: every channel
    QString folder;  ///< Rescan: what to look through; empty: the client's own folders
    QString target;  ///< SaveAs: folder
};

/// What `backup` is to do.
struct BackupOptions
{
    enum class Action : int { Unknown = 0, List, Add, Run, Stop, Export };

    Action action = Action::Unknown;
    QDate date;   ///< invalid: not given
    int days = 1; ///< Add: so many from that day on
    QList<vemo_data::BackupTimeSegment> segments;
    int tries = 3; ///< Run
    QString to;    ///< Export
};

/// What `user` is to do, and with whom.
struct UserOptions
{
    enum class Action : int { Unknown = 0, Add, List, Password, Remove };

    Action action = Action::Unknown;
    QString name;
    QString password;   ///< Add, Password
    int powers = 0;     ///< Add
    bool stays = false; ///< Add, Password: the window opens for this user
};

/// What the person asked for, checked as far as it can be without asking the recorder or the disk.
struct CliCommand
{
    enum class Verb : int {
        Unknown = 0,
        Window,
        Search,
        Download,
        Queue,
        Backup,
        Local,
        User,
        Tell, ///< nothing to be done: help, version, or what is wrong with the command
    };

    Verb verb = Verb::Unknown;
    QString dataDir;                           ///< empty: the platform's folders
    QString theme;                             ///< "dark", "light" or empty
    QString logLevel = QStringLiteral("info"); ///< a name of ProgramLog's

    DeviceOptions device;
    QList<int> channels; ///< each once, in the order given
    QDateTime begin;
    QDateTime end;
    QString out;
    QueueOptions queue;   ///< with Verb::Queue
    BackupOptions backup; ///< with Verb::Backup
    LocalOptions local;   ///< with Verb::Local; begin and end may be invalid, for every time
    UserOptions user;     ///< with Verb::User
    bool json = false;
    bool verbose = false;

    /// A run of the queue: the module's pages do the work, unseen.
    bool needsWidgets() const { return verb == Verb::Queue && queue.action == QueueOptions::Action::Run; }

    ExitCode exitCode = ExitCode::Done; ///< with Verb::Tell
    QString text;                       ///< with Verb::Tell
};

} // namespace vemo_client
