#pragma once

#include "CopyFolder.h"
#include "PausePoint.h"
#include "PlainFile.h"

#include <QByteArray>
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QHash>
#include <QSet>
#include <QString>

#include <functional>

class QFile;

namespace VCOMMON {

/// What became of one file.
struct CopyResult
{
    enum class End : int { Unknown = 0, Copied, Failed, Cancelled };

    End end = End::Unknown;
    QString targetPath; ///< where the copy went
    QString error;      ///< a sentence, when it failed
    QByteArray sha256;  ///< when it was verified
};

/// Copies files, one call a file, on the thread that calls; one object for all files of one wish.
///
/// The bytes go into a temporary file of the target's folder, by the kernel where it can. The copy gets the source's
/// modification time, is synced, held against the source's size and time, and then renamed, never over another file:
/// an equal one (size and time) that was there before counts as the copy, beside another one the copy takes a name
/// with " (2)". A failed or cancelled copy leaves nothing. A folder that stops being the one it was when the first
/// file went there is a failure for all files to it. The source is only read, and never waited for when it is no file.
class FileCopier final
{
    Q_DECLARE_TR_FUNCTIONS(FileCopier)
    Q_DISABLE_COPY_MOVE(FileCopier)

public:
    struct Options
    {
        /// Below it missing folders of targets are made, links are not followed; empty: folders must be there.
        QString root;
        /// Sums the source while it is copied, reads the copy back from the disk and compares.
        bool verify = false;
    };
    /// Comes about ten times a second while bytes are copied, and with `done` equal to `total` only when the copy is
    /// whole in its place; never for an empty file.
    using Progress = std::function<void(qint64 doneBytes, qint64 totalBytes)>;

    FileCopier(PausePoint& pausePoint, const Options& options);

    CopyResult copy(const QString& source, const QString& target, const Progress& progress = {});

private:
    struct Job;

    bool isThereAlready(Job& job);
    bool enterFolder(Job& job);
    bool fill(Job& job);
    bool fillByProgram(Job& job);
    bool compare(Job& job);
    bool sum(QFile& file, QByteArray& sha256);
    bool finish(Job& job);
    bool publish(Job& job);
    bool step(Job& job, qint64 doneBytes);
    static bool fail(Job& job, const QString& text);
    static bool failWriting(Job& job);

    PausePoint& m_pausePoint;
    const Options m_options;
    QHash<QString, CopyFolder::Id> m_folders; ///< what the root's path, or each folder's, led to at first
    QSet<QString> m_swept;                    ///< folders without abandoned files
    QSet<QString> m_made;                     ///< files that this object has made, case folded
};

} // namespace VCOMMON
