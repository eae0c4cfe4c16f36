#pragma once

#include <QStringList>

namespace vemo_client {

/// Starts the program anew once it has wholly come to its end, with the same data folder: nothing of the first run is
/// left then, and no lock is held. Where the system can, the new one takes the place of the process.
class Relaunch final
{
public:
    Relaunch() = delete;

    /// First of all in main(), so that everything else is gone before it.
    static void prepare();
    static void ask(const QString& program, const QStringList& arguments);
    /// What the end of the program does; for a program that ends without its usual clean-up.
    static void carryOut();
};

} // namespace vemo_client
