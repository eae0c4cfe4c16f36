#include "VCopyLocalFile.h"

#include "FileCopier.h"
#include "PausePoint.h"

#include <QThread>

namespace VCOMMON {

VCopyLocalFile::VCopyLocalFile(const QString& id, QObject* parent)
    : QObject(parent)
    , m_id(id)
{}

VCopyLocalFile::~VCopyLocalFile()
{
    if (!m_thread)
        return;
    m_pausePoint->cancel();
    m_thread->wait();
}

void VCopyLocalFile::setVerified(bool verified)
{
    m_verified = verified;
}

bool VCopyLocalFile::copyFile(const QString& source, const QString& target)
{
    if (m_thread)
        return false;
    m_source = source;
    m_targetPath.clear();
    m_errorText.clear();
    m_sha256.clear();
    m_pausePoint = std::make_unique<PausePoint>();
    m_thread.reset(QThread::create([this, pausePoint = m_pausePoint.get(), source, target, verify = m_verified] {
        FileCopier copier(*pausePoint, {QString(), verify});
        const CopyResult result = copier.copy(source, target, [this](qint64 done, qint64 total) {
            QMetaObject::invokeMethod(
                this, [this, done, total] { report(done, total); }, Qt::QueuedConnection);
        });
        QMetaObject::invokeMethod(
            this, [this, result] { end(result); }, Qt::QueuedConnection);
    }));
    m_thread->setObjectName(QStringLiteral("copy"));
    m_thread->start();
    return true;
}

void VCopyLocalFile::pauseCopyFile()
{
    if (m_pausePoint)
        m_pausePoint->setPaused(true);
}

void VCopyLocalFile::continueCopyFile()
{
    if (m_pausePoint)
        m_pausePoint->setPaused(false);
}

void VCopyLocalFile::cancelCopyFile()
{
    if (m_pausePoint)
        m_pausePoint->cancel();
}

bool VCopyLocalFile::isCopyPausing() const
{
    return m_pausePoint && m_pausePoint->isPaused();
}

void VCopyLocalFile::report(qint64 done, qint64 total)
{
    if (!m_pausePoint->isCancelled())
        emit signalCopyFileProgress(m_id, done, total);
}

void VCopyLocalFile::end(const CopyResult& result)
{
    m_thread->wait();
    m_thread.reset();
    m_pausePoint.reset();
    if (result.end == CopyResult::End::Cancelled) {
        emit signalCopyFileCancelled(m_id);
        return;
    }
    m_targetPath = result.targetPath;
    m_errorText = result.error;
    m_sha256 = result.sha256;
    emit signalCopyFileFinished(m_source, m_id, result.end == CopyResult::End::Copied);
}

} // namespace VCOMMON
