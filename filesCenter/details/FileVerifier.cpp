#include "FileVerifier.h"

#include <FileChecksum.h>
#include <TaskFactsData.h>
#include <vaws_download.h>

#include <QCoreApplication>
#include <QFileInfo>
#include <QPointer>

#include <algorithm>
#include <utility>

namespace vemo_filesCenter {

using vemo_data::DownloadTaskInfo;
using vemo_data::TaskFacts;
using vemo_data::TaskFactsData;

namespace {

constexpr int closingMs = 200;

bool isBeingClosed(const QString& taskId)
{
    return vaws_download_get_status(taskId.toUtf8().constData()) == VAWS_STATUS_FINISHING;
}

} // namespace

FileVerifier::FileVerifier(QObject* parent)
    : QObject(parent)
    , m_checksum(new VCOMMON::FileChecksum(this))
{
    m_closingTimer.setSingleShot(true);
    m_closingTimer.setInterval(closingMs);
    connect(&m_closingTimer, &QTimer::timeout, this, &FileVerifier::startNext);
    connect(m_checksum, &VCOMMON::FileChecksum::signalProgress, this, [this](qint64 done, qint64 total) {
        constexpr qint64 whole = 100;
        emit signalProgress(m_current.taskId, total > 0 ? static_cast<int>(done * whole / total) : 0);
    });
    connect(m_checksum, &VCOMMON::FileChecksum::signalFinished, this,
            [this](const QByteArray& sha256, qint64 bytes, const QByteArray& marks) {
                judge({sha256, bytes, marks});
            });
    connect(m_checksum, &VCOMMON::FileChecksum::signalFailed, this,
            [this](VCOMMON::FileChecksum::Failure failure, const QString& text) {
                const bool missing = failure == VCOMMON::FileChecksum::Failure::Missing;
                end(missing ? Outcome::Missing : Outcome::Failed, text);
            });
}

FileVerifier::~FileVerifier() = default;

FileVerifier& FileVerifier::instance()
{
    // Goes with the application, whose threads and event loop it needs.
    static QPointer<FileVerifier> verifier;
    if (!verifier)
        verifier = new FileVerifier(QCoreApplication::instance());
    return *verifier;
}

void FileVerifier::keepSum(const DownloadTaskInfo& task)
{
    if (m_waiting.size() < queueLimit)
        add({task.taskId, task.savePath, Wish::KeepSum, {}});
}

void FileVerifier::catchUpLater(int afterMs)
{
    if (!std::exchange(m_hasCaughtUp, true))
        QTimer::singleShot(afterMs, this, &FileVerifier::catchUp);
}

void FileVerifier::catchUp()
{
    TaskFactsData::instance().getUnsummed(catchUpLimit, this, [this](const QVector<vemo_data::UnsummedFile>& files) {
        for (const vemo_data::UnsummedFile& file : files)
            add({file.taskId, file.path, Wish::CatchUp, {}});
    });
}

void FileVerifier::verify(const DownloadTaskInfo& task)
{
    add({task.taskId, task.savePath, Wish::Verify, {}});
}

void FileVerifier::forget(const QString& taskId)
{
    m_waiting.erase(
        std::remove_if(m_waiting.begin(), m_waiting.end(), [&taskId](const Job& job) { return job.taskId == taskId; }),
        m_waiting.end());
    if (m_current.taskId != taskId)
        return;
    m_checksum->cancel();
    m_current = {};
    startNext();
}

void FileVerifier::setDownloadsRunning(bool running)
{
    m_downloadsRunning = running;
    updatePause();
}

bool FileVerifier::isVerifying(const QString& taskId) const
{
    const auto isIt = [&taskId](const Job& job) { return job.taskId == taskId && job.wish == Wish::Verify; };
    return isIt(m_current) || std::any_of(m_waiting.cbegin(), m_waiting.cend(), isIt);
}

void FileVerifier::add(const Job& job)
{
    if (job.taskId.isEmpty())
        return;
    if (m_current.taskId == job.taskId) {
        // A person asks for what is being summed up for the store: there is nothing yet to compare it with.
        m_current.wish = std::max(m_current.wish, job.wish);
        updatePause();
        return;
    }
    const auto same = std::find_if(m_waiting.begin(), m_waiting.end(),
                                   [&job](const Job& other) { return other.taskId == job.taskId; });
    if (same != m_waiting.end()) {
        if (job.wish <= same->wish)
            return;
        m_waiting.erase(same);
    }
    enqueue(job);
    // What only the store waits for makes room for a person, what is late for what is new.
    if (job.wish > m_current.wish && m_checksum->isRunning()) {
        m_checksum->cancel();
        enqueue(m_current);
        m_current = {};
    }
    startNext();
}

void FileVerifier::enqueue(const Job& job)
{
    m_waiting.insert(
        std::find_if(m_waiting.begin(), m_waiting.end(), [&job](const Job& other) { return other.wish < job.wish; }),
        job);
}

void FileVerifier::startNext()
{
    if (!m_current.taskId.isEmpty() || m_waiting.isEmpty())
        return;
    const auto next =
        std::find_if(m_waiting.begin(), m_waiting.end(), [](const Job& job) { return !isBeingClosed(job.taskId); });
    if (next == m_waiting.end()) {
        m_closingTimer.start();
        return;
    }
    m_current = *next;
    m_waiting.erase(next);
    updatePause();
    TaskFactsData::instance().get(m_current.taskId, this, [this, taskId = m_current.taskId](const TaskFacts& facts) {
        // Forgotten meanwhile, or asked for twice.
        if (m_current.taskId != taskId || m_checksum->isRunning())
            return;
        m_current.kept = {facts.sha256, facts.sha256Bytes, facts.marks};
        if (m_current.wish != Wish::Verify && !facts.sha256.isEmpty())
            end(Outcome::Unknown, {});
        else
            m_checksum->start(m_current.path);
    });
}

void FileVerifier::judge(const FileSum& found)
{
    const FileSum kept = m_current.kept;
    if (kept.sha256.isEmpty()) {
        keep(found);
        end(Outcome::NoSumYet, {});
    } else if (kept.sha256 == found.sha256) {
        if (kept.marks.isEmpty()) // summed by an earlier version
            keep(found);
        end(Outcome::Same, {});
    } else if (kept.bytes != found.bytes) {
        end(Outcome::Changed,
            tr("It had %L1 bytes when it was finished and has %L2 now").arg(kept.bytes).arg(found.bytes));
    } else {
        end(Outcome::Changed, whereDifferent(kept.marks, found.marks, found.bytes));
    }
}

QString FileVerifier::whereDifferent(const QByteArray& kept, const QByteArray& found, qint64 bytes)
{
    using VCOMMON::FileChecksum;
    const auto [mark, other] = std::mismatch(kept.cbegin(), kept.cend(), found.cbegin(), found.cend());
    if (mark == kept.cend() || other == found.cend())
        return tr("Its length is the same, its content is not");
    const qint64 first = (mark - kept.cbegin()) / FileChecksum::markBytes * FileChecksum::chunkBytes;
    return tr("Its length is the same, its content is not: the first change is between byte %L1 and byte %L2")
        .arg(first)
        .arg(std::min(first + FileChecksum::chunkBytes, bytes) - 1);
}

void FileVerifier::keep(const FileSum& found)
{
    m_current.kept = found;
    TaskFactsData::instance().setSha256(m_current.taskId, found.sha256, found.bytes, found.marks);
}

void FileVerifier::end(Outcome outcome, const QString& cause)
{
    const Job job = m_current;
    m_current = {};
    if (outcome == Outcome::NoSumYet)
        emit signalSumKept(job.taskId, job.kept.sha256, job.kept.bytes);
    if (job.wish == Wish::Verify)
        emit signalVerified(job.taskId, outcome, sentence(outcome, job.path, cause));
    startNext();
}

void FileVerifier::updatePause()
{
    m_checksum->setPaused(m_downloadsRunning && m_current.wish != Wish::Verify);
}

QString FileVerifier::sentence(Outcome outcome, const QString& path, const QString& cause)
{
    const QString name = QFileInfo(path).fileName();
    switch (outcome) {
    case Outcome::Same:
        return tr("%1 is what was downloaded: its SHA-256 is the one kept when it was finished.").arg(name);
    case Outcome::Changed:
        return tr("%1 is not what was downloaded. %2. Download it again if the recorder still has it.")
            .arg(name, cause);
    case Outcome::Missing:
        return tr("%1 is not there any more, so nothing can be compared.").arg(name);
    case Outcome::NoSumYet:
        return tr("No SHA-256 of %1 was kept when it was finished. Its present one is kept from now on.").arg(name);
    case Outcome::Failed:
        return tr("%1 can't be verified: %2").arg(name, cause);
    case Outcome::Unknown:
        break;
    }
    return {};
}

} // namespace vemo_filesCenter
