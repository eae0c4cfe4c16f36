#include "VCopyLocalFiles.h"

#include "FileCopier.h"
#include "PausePoint.h"

#include <QFileInfo>
#include <QThread>
#include <QVector>

namespace VCOMMON {

/// The list in hand, worked off on the thread; what it tells is queued to the owner.
class VCopyLocalFiles::Batch final
{
public:
    Batch(VCopyLocalFiles* owner, const QStringList& sources, const QStringList& destinations)
        : m_owner(owner)
        , m_sources(sources)
        , m_destinations(destinations)
    {}

    void run(const FileCopier::Options& options);

    PausePoint pausePoint;

private:
    template <typename Tell>
    void queue(Tell tell)
    {
        QMetaObject::invokeMethod(m_owner, std::move(tell), Qt::QueuedConnection);
    }
    void copy(FileCopier& copier, int index, qint64 sizeBytes);
    void report(int index, qint64 doneOfFile, qint64 sizeOfFile);

    VCopyLocalFiles* const m_owner;
    const QStringList m_sources;
    const QStringList m_destinations;
    QStringList m_succeeded;
    QStringList m_failed;
    qint64 m_totalBytes = 0;
    qint64 m_endedBytes = 0; ///< of the files before the one in hand
};

void VCopyLocalFiles::Batch::report(int index, qint64 doneOfFile, qint64 sizeOfFile)
{
    const bool isWhole = doneOfFile == sizeOfFile;
    const int finished = m_succeeded.size() + (isWhole ? 1 : 0);
    const qint64 done = qMin(m_endedBytes + doneOfFile, m_totalBytes);
    const int percent = m_totalBytes > 0 ? static_cast<int>(done * 100 / m_totalBytes) : 100;
    queue([owner = m_owner, number = index + 1, count = m_sources.size(), doneOfFile, sizeOfFile, finished, percent] {
        if (owner->m_batch->pausePoint.isCancelled())
            return;
        emit owner->signalCopyFileBytes(owner->m_id, doneOfFile, sizeOfFile, finished);
        emit owner->signalCopyFilesProgress(owner->m_id, number, count, percent);
    });
}

void VCopyLocalFiles::Batch::copy(FileCopier& copier, int index, qint64 sizeBytes)
{
    const QString& source = m_sources.at(index);
    const CopyResult result = copier.copy(source, m_destinations.at(index),
                                          [this, index](qint64 done, qint64 size) { report(index, done, size); });
    m_endedBytes += sizeBytes;
    if (result.end == CopyResult::End::Copied) {
        m_succeeded.append(source);
        queue([owner = m_owner, source, result] {
            emit owner->signalCopyFileSucceeded(owner->m_id, source, result.targetPath, result.sha256);
        });
    } else if (result.end == CopyResult::End::Failed) {
        m_failed.append(source);
        queue(
            [owner = m_owner, source, result] { emit owner->signalCopyFileFailed(owner->m_id, source, result.error); });
    }
}

void VCopyLocalFiles::Batch::run(const FileCopier::Options& options)
{
    QVector<qint64> sizes;
    sizes.reserve(m_sources.size());
    for (const QString& source : m_sources) {
        sizes.append(QFileInfo(source).size());
        m_totalBytes += sizes.last();
        if (!pausePoint.pass())
            break;
    }
    FileCopier copier(pausePoint, options);
    for (int i = 0; i < m_sources.size() && pausePoint.pass(); ++i)
        copy(copier, i, sizes.at(i));
    const bool isWhole = m_succeeded.size() + m_failed.size() == m_sources.size();
    queue([owner = m_owner, isWhole, succeeded = m_succeeded, failed = m_failed] {
        owner->end(isWhole, succeeded, failed);
    });
}

VCopyLocalFiles::VCopyLocalFiles(const QString& id, QObject* parent)
    : QObject(parent)
    , m_id(id)
{}

VCopyLocalFiles::~VCopyLocalFiles()
{
    if (!m_thread)
        return;
    m_batch->pausePoint.cancel();
    m_thread->wait();
}

void VCopyLocalFiles::setRoot(const QString& folder)
{
    m_root = folder;
}

void VCopyLocalFiles::setVerified(bool verified)
{
    m_verified = verified;
}

bool VCopyLocalFiles::copyFiles(const QStringList& sources, const QStringList& destinations)
{
    if (m_thread || sources.size() != destinations.size())
        return false;
    m_batch = std::make_unique<Batch>(this, sources, destinations);
    const FileCopier::Options options{m_root, m_verified};
    m_thread.reset(QThread::create([batch = m_batch.get(), options] { batch->run(options); }));
    m_thread->setObjectName(QStringLiteral("copies"));
    m_thread->start();
    return true;
}

void VCopyLocalFiles::pauseCopyFiles()
{
    if (m_batch)
        m_batch->pausePoint.setPaused(true);
}

void VCopyLocalFiles::continueCopyFiles()
{
    if (m_batch)
        m_batch->pausePoint.setPaused(false);
}

void VCopyLocalFiles::cancelCopyFiles()
{
    if (m_batch)
        m_batch->pausePoint.cancel();
}

bool VCopyLocalFiles::isCopyPausing() const
{
    return m_batch && m_batch->pausePoint.isPaused();
}

void VCopyLocalFiles::end(bool isWhole, const QStringList& succeeded, const QStringList& failed)
{
    m_thread->wait();
    m_thread.reset();
    m_batch.reset();
    if (isWhole)
        emit signalCopyFilesFinished(m_id, succeeded, failed);
    else
        emit signalCopyFilesCancelled(m_id);
}

} // namespace VCOMMON
