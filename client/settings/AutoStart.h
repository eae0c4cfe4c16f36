#pragma once

#include <QString>

namespace vemo_client {

/// Whether the client starts when the user of this computer logs in: an entry among the desktop's autostart files, or
/// in the user's registry on Windows. A client on a data folder of its own starts on that. GUI thread; a small file.
class AutoStart final
{
public:
    AutoStart() = delete;

    static bool isOn();
    /// False when the entry can't be written.
    static bool set(bool on);

    /// A command line as the Exec key of a desktop file takes it: each argument in quotes, its own signs escaped.
    static QString execLine(const QStringList& arguments);
};

} // namespace vemo_client
