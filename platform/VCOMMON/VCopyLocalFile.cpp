#include "VCopyLocalFile.h"

#include "FileSync.h"
#include "ToolsCollection.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QMutex>
#include <QMutexLocker>
#include <QRandomGenerator>
#include <QStorageInfo>
#include <QThread>
#include <QWaitCondition>

namespace VCOMMON {

namespace {

constexpr qint64 chunkBytes = 4 * 1024 * 1024;
constexpr qint64 progressEveryMs = 100;

QString say(const char* text)
{
    return QCoreApplication::translate("VCOMMON::VCopyLocalFile", text);
}

bool isSameFile(const QFileInfo& a, const QFileInfo& b)
{
    // Some file systems keep times to two seconds.
    return b.isFile() && a.size() == b.size() && qAbs(a.lastModified().msecsTo(b.lastModified())) <= 2000;
}

QString temporaryName(const QString& target)
{
    const quint64 number = QRandomGenerator::global()->generate64();
    return QFileInfo(target).absolutePath() + QStringLiteral("/.vemo-%1.part").arg(number, 16, 16, QLatin1Char('0'));
}

} // namespace

/// The copy itself, carried out on the thread; pause and cancel may be called from any.
class VCopyLocalFile::Copier final
{
public:
    Copier(VCopyLocalFile* owner, const QString& source, const QString& target)
        : m_owner(owner)
        , m_source(source)
        , m_target(target)
    {}

    void run();

    void setPaused(bool paused)
    {
        const QMutexLocker lock(&m_mutex);
        m_paused = paused;
        m_changed.wakeAll();
    }

    void cancel()
    {
        const QMutexLocker lock(&m_mutex);
        m_cancelled = true;
        m_changed.wakeAll();
    }

    bool isPaused() const
    {
        const QMutexLocker lock(&m_mutex);
        return m_paused;
    }

    bool isCancelled() const
    {
        const QMutexLocker lock(&m_mutex);
        return m_cancelled;
    }

private:
    bool copy();
    bool copyBytes(QFile& from, QFile& to);
    bool waitWhilePaused();
    bool fail(const QString& text);
    void report(qint64 done);

    VCopyLocalFile* const m_owner;
    const QString m_source;
    QString m_target;
    QString m_error;
    qint64 m_totalBytes = 0;
    QElapsedTimer m_sinceReport;

    mutable QMutex m_mutex;
    QWaitCondition m_changed;
    bool m_paused = false;    ///< guarded by m_mutex
    bool m_cancelled = false; ///< guarded by m_mutex
};

bool VCopyLocalFile::Copier::fail(const QString& text)
{
    m_error = text;
    return false;
}

/// False when the copy was cancelled.
bool VCopyLocalFile::Copier::waitWhilePaused()
{
    QMutexLocker lock(&m_mutex);
    while (m_paused && !m_cancelled)
        m_changed.wait(&m_mutex);
    return !m_cancelled;
}

void VCopyLocalFile::Copier::report(qint64 done)
{
    if (done < m_totalBytes && m_sinceReport.isValid() && m_sinceReport.elapsed() < progressEveryMs)
        return;
    m_sinceReport.start();
    QMetaObject::invokeMethod(
        m_owner,
        [owner = m_owner, done, total = m_totalBytes] {
            if (owner->m_copier && !owner->m_copier->isCancelled())
                emit owner->signalCopyFileProgress(owner->m_id, done, total);
        },
        Qt::QueuedConnection);
}

bool VCopyLocalFile::Copier::copyBytes(QFile& from, QFile& to)
{
    QByteArray chunk(static_cast<int>(qMin(chunkBytes, qMax<qint64>(m_totalBytes, 1))), Qt::Uninitialized);
    qint64 done = 0;
    while (waitWhilePaused()) {
        const qint64 size = from.read(chunk.data(), chunk.size());
        if (size < 0)
            return fail(say("%1 can't be read: %2.").arg(m_source, from.errorString()));
        if (size == 0)
            return done == m_totalBytes || fail(say("%1 changed while it was copied.").arg(m_source));
        if (to.write(chunk.constData(), size) != size)
            return fail(say("%1 can't be written: %2.").arg(m_target, to.errorString()));
        done += size;
        report(done);
    }
    return fail({});
}

bool VCopyLocalFile::Copier::copy()
{
    const QFileInfo sourceInfo(m_source);
    if (!sourceInfo.isFile())
        return fail(say("%1 is not there.").arg(m_source));
    m_totalBytes = sourceInfo.size();
    if (isSameFile(sourceInfo, QFileInfo(m_target)))
        return true;
    const QStorageInfo disk(QFileInfo(m_target).absolutePath());
    if (!disk.isValid())
        return fail(say("The folder of %1 is not there.").arg(m_target));
    if (disk.bytesAvailable() < m_totalBytes)
        return fail(say("There is not enough room on %1.").arg(disk.rootPath()));

    QFile from(m_source);
    if (!from.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        return fail(say("%1 can't be read: %2.").arg(m_source, from.errorString()));
    QFile to(temporaryName(m_target));
    if (!to.open(QIODevice::WriteOnly | QIODevice::NewOnly | QIODevice::Unbuffered))
        return fail(say("%1 can't be written: %2.").arg(m_target, to.errorString()));

    bool ok = copyBytes(from, to);
    if (ok && !syncToDisk(to))
        ok = fail(say("%1 can't be written: %2.").arg(m_target, to.errorString()));
    if (ok)
        to.setFileTime(sourceInfo.lastModified(), QFileDevice::FileModificationTime);
    to.close();
    if (ok) {
        m_target = ToolsCollection::freeFileName(m_target);
        ok = to.rename(m_target) || fail(say("%1 can't be written: %2.").arg(m_target, to.errorString()));
    }
    if (!ok)
        to.remove();
    return ok;
}

void VCopyLocalFile::Copier::run()
{
    const bool ok = copy();
    QMetaObject::invokeMethod(
        m_owner, [owner = m_owner, ok, target = m_target, error = m_error] { owner->end(ok, target, error); },
        Qt::QueuedConnection);
}

VCopyLocalFile::VCopyLocalFile(const QString& id, QObject* parent)
    : QObject(parent)
    , m_id(id)
{}

VCopyLocalFile::~VCopyLocalFile()
{
    if (!m_thread)
        return;
    m_copier->cancel();
    m_thread->wait();
}

bool VCopyLocalFile::copyFile(const QString& source, const QString& target)
{
    if (m_thread)
        return false;
    m_source = source;
    m_targetPath.clear();
    m_errorText.clear();
    m_copier = std::make_unique<Copier>(this, source, target);
    m_thread.reset(QThread::create([copier = m_copier.get()] { copier->run(); }));
    m_thread->setObjectName(QStringLiteral("copy"));
    m_thread->start();
    return true;
}

void VCopyLocalFile::pauseCopyFile()
{
    if (m_copier)
        m_copier->setPaused(true);
}

void VCopyLocalFile::continueCopyFile()
{
    if (m_copier)
        m_copier->setPaused(false);
}

void VCopyLocalFile::cancelCopyFile()
{
    if (m_copier)
        m_copier->cancel();
}

bool VCopyLocalFile::isCopyPausing() const
{
    return m_copier && m_copier->isPaused();
}

void VCopyLocalFile::end(bool ok, const QString& targetPath, const QString& errorText)
{
    m_thread->wait();
    const bool cancelled = m_copier->isCancelled() && !ok;
    m_thread.reset();
    m_copier.reset();
    if (cancelled) {
        emit signalCopyFileCancelled(m_id);
        return;
    }
    m_targetPath = ok ? targetPath : QString();
    m_errorText = errorText;
    emit signalCopyFileFinished(m_source, m_id, ok);
}

} // namespace VCOMMON
