#pragma once

#include <QCoreApplication>
#include <QString>

#include <memory>

class QFile;

namespace VCOMMON {

/// The folder that copies are written to, held open from open() to the end, so that a folder or a disk that is put in
/// its place meanwhile gets nothing. For one worker thread. Errors are left in the system's error code.
class CopyFolder final
{
    Q_DECLARE_TR_FUNCTIONS(CopyFolder)
    Q_DISABLE_COPY_MOVE(CopyFolder)

public:
    /// Which folder it is, whatever its path.
    struct Id
    {
        quint64 disk = 0;
        quint64 number = 0;

        bool isKnown() const { return disk != 0 || number != 0; }
        bool operator==(const Id& other) const { return disk == other.disk && number == other.number; }
    };
    enum class Published : int { Failed = 0, Done, Taken };

    CopyFolder();
    ~CopyFolder();

    /// Opens the folder. With a `root` that holds `path`, folders that are missing below the root are made, and none
    /// of them may be a link. Nothing is made when a known id is not that of what is found: the root's, or the folder's
    /// own without one. Empty when it went well, else a sentence.
    QString open(const QString& path, const QString& root, const Id& known);

    /// Of the root, or of the folder itself without one.
    Id rootId() const;
    qint64 freeBytes() const;

    /// Makes and opens a new file with a temporary name, for reading and writing, with the permissions of the open file
    /// `like`; without one, with those that the system gives new files.
    bool createTemporary(QFile& file, const QFile* like = nullptr);
    /// Gives a temporary file its name; never over anything else.
    Published publish(QFile& file, const QString& name);
    /// Whether the file stands under this name when one comes by the folder's path.
    bool isPublished(const QFile& file, const QString& name) const;
    /// Removes an open file of this folder under its temporary or its published name, if it stands there.
    void remove(QFile& file);
    /// Makes names and renames last.
    bool sync();
    /// Removes temporary files of copies whose program is no more.
    void removeAbandoned();

private:
    struct Handles;

    static QString temporaryName();
    QString notThere() const;
    static QString replaced(const QString& path);
    bool isOther(const Id& known) const;

    QString m_path;
    QString m_name; ///< of the file in hand
    std::unique_ptr<Handles> m_handles;
};

} // namespace VCOMMON
