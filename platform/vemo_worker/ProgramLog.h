#pragma once

#include "vemo_worker_global.h"

#include <QString>
#include <QtGlobal>

#include <memory>

namespace vemo_worker {

/// The program's own log: everything that is told to Qt's categories, and what other libraries hand in, in files of the
/// folder of logs: "vemo.log" and four older ones of 5 MiB each, open to their owner alone.
///
/// One object a process. start() takes the place of Qt's message handler and passes every message on to the one before,
/// stop() gives it back. Lines come from any thread; they are masked (SecretMask), put into a bounded queue and written
/// by a thread of its own, so that nobody waits for the disk. Lines beyond the queue are counted and left out, repeats
/// of a line are counted. A fatal message waits until it is written. Only one process may write to a folder.
class VEMO_WORKER_EXPORT ProgramLog final
{
public:
    enum class Level : int { Unknown = 0, Debug, Information, Warning, Error };

    ProgramLog(const ProgramLog&) = delete;
    ProgramLog& operator=(const ProgramLog&) = delete;
    ~ProgramLog();

    static ProgramLog& instance();
    /// Of "debug", "info", "warning" or "error".
    static Level levelOf(const QString& name);

    static constexpr qint64 defaultFileBytes = 5 * 1024 * 1024;
    static constexpr int files = 5;

    /// Lines below `level` are not written. False when the file can't be opened; then nothing is written.
    bool start(const QString& folder, Level level, qint64 fileBytes = defaultFileBytes);
    /// What was told before is in the file when it returns.
    void stop();
    /// The file that is being written; empty when none is.
    QString path() const;

    /// A line of a library that doesn't speak to Qt.
    void write(Level level, const char* category, const QString& text);

private:
    class Writer;

    ProgramLog();
    static void take(QtMsgType type, const QMessageLogContext& context, const QString& text);

    std::unique_ptr<Writer> m_writer;
};

} // namespace vemo_worker
