#include "VCopyLocalFiles.h"

#include "VCopyLocalFile.h"

#include <QFileInfo>
#include <QThread>

namespace VCOMMON {

/// The list in hand, worked off by one VCopyLocalFile.
class VCopyLocalFiles::Batch final
{
public:
    Batch(VCopyLocalFiles* owner, const QStringList& sources, const QStringList& destinations);

    void next();
    void end(bool ok);
    void report(qint64 done, qint64 size);

    VCopyLocalFiles* const m_owner;
    const QStringList m_sources;
    const QStringList m_destinations;
    QStringList m_succeeded;
    QStringList m_failed;
    VCopyLocalFile m_copy;
    int m_index = -1;
    qint64 m_totalBytes = 0;
    qint64 m_endedBytes = 0;
};

VCopyLocalFiles::Batch::Batch(VCopyLocalFiles* owner, const QStringList& sources, const QStringList& destinations)
    : m_owner(owner)
    , m_sources(sources)
    , m_destinations(destinations)
    , m_copy({})
{
    for (const QString& source : sources)
        m_totalBytes += QFileInfo(source).size();
    QObject::connect(&m_copy, &VCopyLocalFile::signalCopyFileProgress, owner,
                     [this](const QString&, qint64 done, qint64 size) { report(done, size); });
    QObject::connect(
        &m_copy, &VCopyLocalFile::signalCopyFileFinished, owner,
        [this](const QString&, const QString&, bool ok) { end(ok); }, Qt::QueuedConnection);
    QObject::connect(
        &m_copy, &VCopyLocalFile::signalCopyFileCancelled, owner,
        [owner] {
            owner->m_batch.reset();
            emit owner->signalCopyFilesCancelled(owner->m_id);
        },
        Qt::QueuedConnection);
}

void VCopyLocalFiles::Batch::report(qint64 done, qint64 size)
{
    emit m_owner->signalCopyFileBytes(m_owner->m_id, done, size, m_succeeded.size());
    const qint64 percent = m_totalBytes > 0 ? (m_endedBytes + done) * 100 / m_totalBytes : 100;
    emit m_owner->signalCopyFilesProgress(m_owner->m_id, m_index + 1, m_sources.size(), static_cast<int>(percent));
}

void VCopyLocalFiles::Batch::end(bool ok)
{
    const QString source = m_sources.at(m_index);
    (ok ? m_succeeded : m_failed).append(source);
    m_endedBytes += QFileInfo(source).size();
    if (!ok)
        emit m_owner->signalCopyFileFailed(m_owner->m_id, source, m_copy.errorText());
    next();
}

void VCopyLocalFiles::Batch::next()
{
    if (++m_index < m_sources.size()) {
        m_copy.copyFile(m_sources.at(m_index), m_destinations.at(m_index));
        return;
    }
    const QStringList succeeded = m_succeeded;
    const QStringList failed = m_failed;
    VCopyLocalFiles* const owner = m_owner;
    owner->m_batch.reset();
    emit owner->signalCopyFilesFinished(owner->m_id, succeeded, failed);
}

VCopyLocalFiles::VCopyLocalFiles(const QString& id, QObject* parent)
    : QObject(parent)
    , m_id(id)
{}

VCopyLocalFiles::~VCopyLocalFiles() = default;

bool VCopyLocalFiles::copyFiles(const QStringList& sources, const QStringList& destinations)
{
    if (m_batch || sources.size() != destinations.size())
        return false;
    m_batch = std::make_unique<Batch>(this, sources, destinations);
    QMetaObject::invokeMethod(
        this,
        [this] {
            if (m_batch)
                m_batch->next();
        },
        Qt::QueuedConnection);
    return true;
}

void VCopyLocalFiles::pauseCopyFiles()
{
    if (m_batch)
        m_batch->m_copy.pauseCopyFile();
}

void VCopyLocalFiles::continueCopyFiles()
{
    if (m_batch)
        m_batch->m_copy.continueCopyFile();
}

void VCopyLocalFiles::cancelCopyFiles()
{
    if (m_batch)
        m_batch->m_copy.cancelCopyFile();
}

bool VCopyLocalFiles::isCopyPausing() const
{
    return m_batch && m_batch->m_copy.isCopyPausing();
}

} // namespace VCOMMON
