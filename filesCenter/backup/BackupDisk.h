#pragma once

#include <QString>

namespace vemo_filesCenter {

/// The disk that the backups go to, told from others by a mark in their folder. Used by one thread, the module's for
/// disks.
///
/// The first look takes the folder as it is, and makes the mark where there is none; from then on a folder without that
/// mark is another disk's, or the bare place on which the right one was mounted.
class BackupDisk final
{
public:
    /// Whether files may be written to the folder, or relied upon in it. `mountPoint` is the one at the last look of an
    /// earlier run, empty when unknown: a folder that lay on a disk of its own and does not any more is not there.
    bool look(const QString& root, const QString& mountPoint);
    QString mountPoint() const { return m_mountPoint; }

    static QString markName();

private:
    QString m_root;
    QString m_mark;
    QString m_mountPoint;
};

} // namespace vemo_filesCenter
