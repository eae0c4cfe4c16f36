#include "FileCopier.h"

#include "FileCacheHint.h"
#include "FileSync.h"
#include "KernelCopy.h"
#include "Sha256.h"
#include "ToolsCollection.h"
#include "WriteBehind.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <memory>

namespace VCOMMON {

namespace {

// Larger ones are slower: the system looks for large pages to hold them.
constexpr qint64 chunkBytes = 256 * 1024;
constexpr qint64 progressEveryMs = 100;
constexpr qint64 bytesOfMb = 1024 * 1024;
constexpr int mostNamesTried = 1000;

/// Some file systems keep times to 10 ms, to the second or to two.
bool isSameTime(const QDateTime& source, const QDateTime& copy)
{
    const qint64 differsMs = qAbs(source.msecsTo(copy));
    const bool isCoarse = copy.time().msec() % 10 == 0;
    const bool isWhole = copy.time().msec() == 0;
    return differsMs == 0 || (isCoarse && differsMs < 10) || (isWhole && differsMs <= 2000);
}

bool isEqual(const QFileInfo& source, const QFileInfo& copy)
{
    return !copy.isSymLink() && copy.isFile() && source.size() == copy.size() &&
           isSameTime(source.lastModified(), copy.lastModified());
}

/// A disk that is running full takes a part and tells why with the rest.
bool writeAll(QFile& file, const char* data, qint64 size)
{
    for (qint64 written = 0; written < size;) {
        const qint64 taken = file.write(data + written, size - written);
        if (taken <= 0)
            return false;
        written += taken;
    }
    return true;
}

} // namespace

/// One file on its way.
struct FileCopier::Job
{
    QString source;
    QString target;
    Progress progress;
    QFile from;
    QFile to; ///< under its temporary name
    bool hasTemporary = false;
    CopyFolder folder;
    FileStamp stamp; ///< of the source when copying began
    QElapsedTimer sinceProgress;
    CopyResult result;
};

FileCopier::FileCopier(PausePoint& pausePoint, const Options& options)
    : m_pausePoint(pausePoint)
    , m_options{options.root.isEmpty() ? QString() : QFileInfo(options.root).absoluteFilePath(), options.verify}
{}

bool FileCopier::fail(Job& job, const QString& text)
{
    job.result.error = text;
    return false;
}

bool FileCopier::failWriting(Job& job)
{
    const QString cause = qt_error_string();
    return fail(job, tr("%1 can't be written: %2.").arg(job.target, cause));
}

/// False when the copy was cancelled.
bool FileCopier::step(Job& job, qint64 doneBytes)
{
    const bool isDue = !job.sinceProgress.isValid() || job.sinceProgress.elapsed() >= progressEveryMs;
    if (job.progress && isDue && doneBytes < job.stamp.sizeBytes) {
        job.sinceProgress.start();
        job.progress(doneBytes, job.stamp.sizeBytes);
    }
    return m_pausePoint.pass();
}

CopyResult FileCopier::copy(const QString& source, const QString& target, const Progress& progress)
{
    Job job;
    job.source = source;
    job.target = QDir::cleanPath(QFileInfo(target).absoluteFilePath());
    job.progress = progress;
    const QString refused = PlainFile::open(job.from, source);
    bool ok = refused.isEmpty() || fail(job, refused);
    ok = ok && (PlainFile::readStamp(job.from, job.stamp) || fail(job, tr("%1 can't be read.").arg(source)));
    ok = ok && enterFolder(job);
    const bool isThere = ok && isThereAlready(job);
    if (ok && !isThere) {
        ok = fill(job) && finish(job) && publish(job);
        if (!ok && job.hasTemporary)
            job.folder.remove(job.to);
    }
    if (ok) {
        job.result.end = CopyResult::End::Copied;
        job.result.targetPath = job.target;
        if (job.progress && job.stamp.sizeBytes > 0)
            job.progress(job.stamp.sizeBytes, job.stamp.sizeBytes);
    } else {
        job.result.end = job.result.error.isEmpty() && m_pausePoint.isCancelled() ? CopyResult::End::Cancelled
                                                                                  : CopyResult::End::Failed;
    }
    return job.result;
}

bool FileCopier::enterFolder(Job& job)
{
    const QString path = QFileInfo(job.target).absolutePath();
    const QString start = m_options.root.isEmpty() ? path : m_options.root;
    const QString refused = job.folder.open(path, m_options.root, m_folders.value(start));
    if (!refused.isEmpty())
        return fail(job, refused);
    m_folders.insert(start, job.folder.rootId());
    if (!m_swept.contains(path)) {
        m_swept.insert(path);
        job.folder.removeAbandoned();
    }
    return true;
}

bool FileCopier::isThereAlready(Job& job)
{
    const QFileInfo info(job.target);
    if (m_made.contains(job.target.toCaseFolded()) || !isEqual(QFileInfo(job.source), info))
        return false;
    if (!m_options.verify)
        return true;
    QFile other;
    QByteArray here;
    QByteArray there;
    if (!PlainFile::open(other, job.target).isEmpty() || !sum(job.from, here) || !sum(other, there) || here != there)
        return false;
    job.result.sha256 = here;
    return true;
}

bool FileCopier::fill(Job& job)
{
    const qint64 freeBytes = job.folder.freeBytes();
    if (freeBytes >= 0 && freeBytes < job.stamp.sizeBytes)
        return fail(job, tr("There is not enough room for %1: it needs %2 MB, %3 MB are free.")
                             .arg(job.target)
                             .arg(job.stamp.sizeBytes / bytesOfMb + 1)
                             .arg(freeBytes / bytesOfMb));
    if (!job.folder.createTemporary(job.to, &job.from))
        return failWriting(job);
    job.hasTemporary = true;
    hintSequential(job.from);
    if (m_options.verify)
        return fillByProgram(job);
    const KernelCopy::Step onStep = [this, &job](qint64 doneBytes) { return step(job, doneBytes); };
    const KernelCopy::End end = KernelCopy::copy(job.from, job.source, job.to, job.stamp.sizeBytes, onStep);
    const QString cause = qt_error_string();
    switch (end) {
    case KernelCopy::End::Done:
        return true;
    case KernelCopy::End::Unsupported:
        return fillByProgram(job);
    case KernelCopy::End::Failed:
        return fail(job, tr("%1 can't be copied to %2: %3.").arg(job.source, job.target, cause));
    case KernelCopy::End::Stopped:
    case KernelCopy::End::Unknown:
        break;
    }
    return false;
}

bool FileCopier::fillByProgram(Job& job)
{
    const std::unique_ptr<char[]> chunk(new char[chunkBytes]);
    Sha256 sha256;
    WriteBehind disk(job.to);
    qint64 done = 0;
    job.from.seek(0);
    while (step(job, done) && done < job.stamp.sizeBytes) {
        const qint64 size = job.from.read(chunk.get(), qMin(chunkBytes, job.stamp.sizeBytes - done));
        if (size < 0)
            return fail(job, tr("%1 can't be read: %2.").arg(job.source, job.from.errorString()));
        if (size == 0)
            break;
        if (!writeAll(job.to, chunk.get(), size))
            return fail(job, tr("%1 can't be written: %2.").arg(job.target, job.to.errorString()));
        if (m_options.verify)
            sha256.add(chunk.get(), size);
        done += size;
        if (!disk.advance(done))
            return failWriting(job);
    }
    if (m_options.verify)
        job.result.sha256 = sha256.result();
    return !m_pausePoint.isCancelled();
}

/// From the beginning of an open file to its end.
bool FileCopier::sum(QFile& file, QByteArray& sha256)
{
    if (!file.seek(0))
        return false;
    hintSequential(file);
    const std::unique_ptr<char[]> chunk(new char[chunkBytes]);
    Sha256 sum;
    while (m_pausePoint.pass()) {
        const qint64 size = file.read(chunk.get(), chunkBytes);
        if (size < 0)
            return false;
        if (size == 0) {
            sha256 = sum.result();
            return !sha256.isEmpty();
        }
        sum.add(chunk.get(), size);
    }
    return false;
}

bool FileCopier::compare(Job& job)
{
    dropFromCache(job.to, 0, 0); // what is read next comes from the disk
    QByteArray readBack;
    if (!sum(job.to, readBack))
        return m_pausePoint.isCancelled()
                   ? false
                   : fail(job, tr("%1 can't be read back: %2.").arg(job.target, job.to.errorString()));
    return readBack == job.result.sha256 ||
           fail(job, tr("%1 did not come back from the disk as it was written.").arg(job.target));
}

/// Makes the copy last, and holds it against the source.
bool FileCopier::finish(Job& job)
{
    if (!PlainFile::setModified(job.to, job.stamp.modifiedNs) || !syncToDisk(job.to))
        return failWriting(job);
    FileStamp sourceNow;
    FileStamp copyNow;
    if (!PlainFile::readStamp(job.from, sourceNow) || !(sourceNow == job.stamp))
        return fail(job, tr("%1 changed while it was copied.").arg(job.source));
    if (!PlainFile::readStamp(job.to, copyNow) || copyNow.sizeBytes != job.stamp.sizeBytes)
        return fail(
            job, tr("%1 has %2 bytes instead of %3.").arg(job.target).arg(copyNow.sizeBytes).arg(job.stamp.sizeBytes));
    return (!m_options.verify || compare(job)) && m_pausePoint.pass();
}

bool FileCopier::publish(Job& job)
{
    QString path;
    auto published = CopyFolder::Published::Taken;
    for (int i = 0; i < mostNamesTried && published == CopyFolder::Published::Taken; ++i) {
        path = ToolsCollection::freeFileName(job.target);
        published = job.folder.publish(job.to, QFileInfo(path).fileName());
    }
    if (published != CopyFolder::Published::Done || !job.folder.sync())
        return failWriting(job);
    if (!job.folder.isPublished(job.to, QFileInfo(path).fileName()))
        return fail(job, tr("The folder of %1 was taken away or replaced while copying.").arg(job.target));
    job.to.close();
    job.target = path;
    m_made.insert(path.toCaseFolded());
    return true;
}

} // namespace VCOMMON
