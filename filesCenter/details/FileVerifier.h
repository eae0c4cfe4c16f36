#pragma once

#include <DownloadTaskInfo.h>

#include <QList>
#include <QObject>
#include <QString>
#include <QTimer>

namespace VCOMMON {
class FileChecksum;
}

namespace vemo_filesCenter {

/// Keeps the SHA-256 of finished downloads and compares files with it. One object a process on the GUI thread, made at
/// the first use.
///
/// How the tables use it: keepSum() when a download has finished (records of state 3); verify() for "Verify", then
/// signalVerified; setDownloadsRunning() whenever the number of running downloads goes to 0 or leaves it, because sums
/// that nobody waits for stand back while downloads need the disk. A file that the download library is still closing
/// waits until that is done. One file is read at a time, what a person asked for
/// first; at most `queueLimit` wait, further keepSum() calls are left out (their first verify() then says that no sum
/// was kept, and keeps one). The sums themselves lie in vemo_data::TaskFactsData.
class FileVerifier final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(FileVerifier)

public:
    enum class Outcome : int { Unknown = 0, Same, Changed, Missing, NoSumYet, Failed };
    Q_ENUM(Outcome)

    static constexpr int queueLimit = 4096;
    static constexpr int catchUpLimit = 1000;
    static constexpr int catchUpAfterMs = 10'000;

    explicit FileVerifier(QObject* parent = nullptr);
    ~FileVerifier() override;

    static FileVerifier& instance();

    /// Sums up the finished file in the background and stores the sum. Returns at once.
    void keepSum(const vemo_data::DownloadTaskInfo& task);
    /// Sums up, behind everything else and some time from now, the newest finished files whose sums an earlier run of
    /// the program did not get to. The first call in a process counts.
    void catchUpLater(int afterMs = catchUpAfterMs);
    /// Reads the file now and compares; ends in signalVerified. Asking again for a task that waits does nothing.
    void verify(const vemo_data::DownloadTaskInfo& task);
    /// Forgets what is waiting or running for the task, without a signal.
    void forget(const QString& taskId);
    void setDownloadsRunning(bool running);

    bool isVerifying(const QString& taskId) const;

    /// What an outcome means, as a sentence with the file's name.
    static QString sentence(Outcome outcome, const QString& path, const QString& cause = QString());

signals:
    void signalProgress(const QString& taskId, int percent);
    /// The sum of a finished download of so many bytes was stored.
    void signalSumKept(const QString& taskId, const QByteArray& sha256, qint64 bytes);
    void signalVerified(const QString& taskId, vemo_filesCenter::FileVerifier::Outcome outcome,
                        const QString& sentence);

private:
    /// A greater one goes first.
    enum class Wish : int { Nothing = 0, CatchUp, KeepSum, Verify };

    struct FileSum
    {
        QByteArray sha256;
        qint64 bytes = 0;
        QByteArray marks;
    };

    struct Job
    {
        QString taskId; ///< empty: no job
        QString path;
        Wish wish = Wish::Nothing;
        FileSum kept; ///< of the store; empty: none
    };

    void add(const Job& job);
    void enqueue(const Job& job);
    void catchUp();
    void startNext();
    void judge(const FileSum& found);
    /// `cause` is a part of a sentence.
    void end(Outcome outcome, const QString& cause);
    void keep(const FileSum& found);
    static QString whereDifferent(const QByteArray& keptMarks, const QByteArray& foundMarks, qint64 bytes);
    void updatePause();

    VCOMMON::FileChecksum* const m_checksum;
    QList<Job> m_waiting; ///< by their wishes
    QTimer m_closingTimer;
    Job m_current;
    bool m_downloadsRunning = false;
    bool m_hasCaughtUp = false;
};

} // namespace vemo_filesCenter
