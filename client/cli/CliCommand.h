#pragma once

#include "ExitCode.h"

#include <VmsTypes.h>

#include <QDateTime>
#include <QList>
#include <QString>
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

/// What the person asked for, checked as far as it can be without asking the recorder or the disk.
struct CliCommand
{
    enum class Verb : int {
        Unknown = 0,
        Window,
        Search,
        Download,
        Tell, ///< nothing to be done: help, version, or what is wrong with the command
    };

    Verb verb = Verb::Unknown;
    QString dataDir; ///< empty: the platform's folders
    QString theme;   ///< "dark", "light" or empty

    DeviceOptions device;
    QList<int> channels; ///< each once, in the order given
    QDateTime begin;
    QDateTime end;
    QString out;
    bool json = false;
    bool verbose = false;

    ExitCode exitCode = ExitCode::Done; ///< with Verb::Tell
    QString text;                       ///< with Verb::Tell
};

} // namespace vemo_client
