#pragma once

class QThread;

namespace vemo_base {

/// The threads of players. A player's end must not hold up the GUI, so its thread outlives it for as long as the
/// library needs to let its file go; the program's end waits for the last ones. GUI thread.
class PlayerThreads final
{
public:
    PlayerThreads() = delete;

    /// A thread that deletes itself when it has finished. Not started yet.
    static QThread* make();

private:
    static void joinAll();
};

} // namespace vemo_base
