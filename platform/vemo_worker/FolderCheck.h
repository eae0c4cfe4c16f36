#pragma once

#include "vemo_worker_global.h"

#include <QCoreApplication>
#include <QString>

#include <atomic>
#include <functional>

class QObject;

namespace vemo_worker {

/// Whether a folder will do for what the client writes: there, writable by a real file, with room, and quick enough.
/// The disk is asked on a thread of its own and given up after some seconds, since a network path may never answer.
/// Without state; GUI thread.
class VEMO_WORKER_EXPORT FolderCheck final
{
    Q_DECLARE_TR_FUNCTIONS(vemo_worker::FolderCheck)

public:
    enum class State : int {
        Unknown = 0,
        Good,
        Missing,      ///< its disk is there: it can be made
        NotConnected, ///< the disk or the network place is not there
        NotAFolder,   ///< something else has this name, or it is no name of a folder
        NotWritable,  ///< no file can be made in it
        Full,         ///< less than 1 GiB is free
        NoAnswer,     ///< given up
        Low,          ///< will do: less than 10 GiB is free
        Slow          ///< will do: writing is slower than 10 MB/s
    };

    struct Result
    {
        State state = State::Unknown;
        QString sentence; ///< for the person, with a way out; empty when all is well
        QString diskName;
        qint64 freeBytes = -1; ///< -1: can't be told
        qint64 totalBytes = -1;
        qint64 bytesPerSecond = -1; ///< of writing; -1: not measured

        bool isUsable() const { return state == State::Good || state == State::Low || state == State::Slow; }
    };

    FolderCheck() = delete;

    static constexpr int giveUpMs = 5000;

    /// `answer` is called once, on the GUI thread, and never when `context` has gone by then.
    static void start(const QString& folder, QObject* context, const std::function<void(const Result&)>& answer);

    /// The check itself, on the calling thread.
    static Result check(const QString& folder);
    /// One lies in the other, or they are the same.
    static bool isNested(const QString& folder, const QString& other);

private:
    static Result check(const QString& folder, const std::atomic<bool>& isGivenUp);
    static Result missing(const QString& path);
    static Result problem(State state, const QString& sentence);
};

} // namespace vemo_worker
