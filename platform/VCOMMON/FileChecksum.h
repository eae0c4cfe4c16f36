#pragma once

#include "VCOMMON_global.h"

#include <QByteArray>
#include <QObject>
#include <QString>

#include <memory>

class QThread;

namespace VCOMMON {

/// The SHA-256 of one file, summed up on a thread of its own at the lowest priority. Lives on the GUI thread, owned by
/// its parent; needs a running event loop.
///
/// Reads in chunks of 1 MiB, keeps a mark behind each, and lets them go from the system's cache again, so that neither
/// memory nor what others have cached is used up. Every accepted start() ends in exactly one of signalFinished and
/// signalFailed, unless it is cancelled: then nothing more comes. Destroying the object cancels and waits for the chunk
/// in hand.
class VCOMMON_EXPORT FileChecksum final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(FileChecksum)

public:
    enum class Failure : int { Unknown = 0, Missing, Unreadable };
    Q_ENUM(Failure)

    static constexpr qint64 chunkBytes = 1024 * 1024;
    static constexpr int markBytes = 4;

    explicit FileChecksum(QObject* parent = nullptr);
    ~FileChecksum() override;

    /// False when a file is in hand already.
    bool start(const QString& path);
    void cancel();
    /// Stops reading until it is set to false again; may be called before start().
    void setPaused(bool paused);

    bool isRunning() const { return m_thread != nullptr; }
    QString path() const { return m_path; }

    /// A line as `sha256sum -c` reads it: hex digits, two spaces, the file's name without its folder. A name with a
    /// backslash or a line break is escaped as GNU coreutils do, with a backslash in front of the line.
    static QString checkLine(const QByteArray& sha256, const QString& path);

signals:
    /// About ten times a second and at the end.
    void signalProgress(qint64 doneBytes, qint64 totalBytes);
    /// 32 bytes, and how many bytes were summed. `marks` has the first four bytes of the SHA-256 of the file up to the
    /// end of each of its chunks: where the marks of two files differ for the first time, the files do.
    void signalFinished(const QByteArray& sha256, qint64 bytes, const QByteArray& marks);
    /// `text` is a sentence.
    void signalFailed(VCOMMON::FileChecksum::Failure failure, const QString& text);

private:
    class Summer;

    void join();

    QString m_path;
    bool m_paused = false;
    int m_run = 0; ///< counts the files
    std::unique_ptr<Summer> m_summer;
    std::unique_ptr<QThread> m_thread; ///< set while a file is in hand
};

} // namespace VCOMMON
