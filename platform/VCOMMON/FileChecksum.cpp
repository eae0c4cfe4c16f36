#include "FileChecksum.h"

#include "FileCacheHint.h"
#include "PausePoint.h"
#include "PlainFile.h"
#include "Sha256.h"

#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QThread>

namespace VCOMMON {

namespace {

constexpr qint64 progressEveryMs = 100;

} // namespace

/// The reading, carried out on the thread; pause and cancel may be called from any.
class FileChecksum::Summer final
{
public:
    Summer(FileChecksum* owner, int run, const QString& path, bool paused)
        : pausePoint(paused)
        , m_owner(owner)
        , m_run(run)
        , m_path(path)
    {}

    void run();

    PausePoint pausePoint;

private:
    bool sum();
    bool fail(Failure failure, const QString& text);
    void report();

    FileChecksum* const m_owner;
    const int m_run; ///< tells what an earlier, cancelled run still has in the owner's event queue
    const QString m_path;
    QByteArray m_sum;
    QByteArray m_marks;
    Failure m_failure = Failure::Unknown;
    QString m_error;
    qint64 m_doneBytes = 0;
    qint64 m_totalBytes = 0;
    QElapsedTimer m_sinceReport;
};

void FileChecksum::Summer::report()
{
    if (m_doneBytes < m_totalBytes && m_sinceReport.isValid() && m_sinceReport.elapsed() < progressEveryMs)
        return;
    m_sinceReport.start();
    QMetaObject::invokeMethod(
        m_owner,
        [owner = m_owner, run = m_run, done = m_doneBytes, total = m_totalBytes] {
            if (owner->m_run == run)
                emit owner->signalProgress(done, total);
        },
        Qt::QueuedConnection);
}

bool FileChecksum::Summer::fail(Failure failure, const QString& text)
{
    m_failure = failure;
    m_error = text;
    return false;
}

bool FileChecksum::Summer::sum()
{
    QFile file;
    const QString refused = PlainFile::open(file, m_path);
    if (!refused.isEmpty())
        return fail(QFileInfo(m_path).isFile() ? Failure::Unreadable : Failure::Missing, refused);
    hintSequential(file);
    m_totalBytes = file.size();
    Sha256 sha256;
    QByteArray chunk(chunkBytes, Qt::Uninitialized);
    while (pausePoint.pass()) {
        const qint64 size = file.read(chunk.data(), chunk.size());
        if (size < 0)
            return fail(Failure::Unreadable, FileChecksum::tr("%1 can't be read: %2.").arg(m_path, file.errorString()));
        if (size == 0) {
            m_sum = sha256.result();
            return !m_sum.isEmpty() || fail(Failure::Unknown, FileChecksum::tr("SHA-256 is not available."));
        }
        sha256.add(chunk.constData(), size);
        m_marks += sha256.soFar().left(markBytes);
        dropFromCache(file, m_doneBytes, size);
        m_doneBytes += size;
        report();
    }
    return false;
}

void FileChecksum::Summer::run()
{
    if (!sum())
        m_sum.clear();
    QMetaObject::invokeMethod(
        m_owner,
        [owner = m_owner, run = m_run, sum = m_sum, marks = m_marks, bytes = m_doneBytes, failure = m_failure,
         error = m_error] {
            if (owner->m_run != run)
                return;
            owner->join();
            if (sum.isEmpty())
                emit owner->signalFailed(failure, error);
            else
                emit owner->signalFinished(sum, bytes, marks);
        },
        Qt::QueuedConnection);
}

FileChecksum::FileChecksum(QObject* parent)
    : QObject(parent)
{}

FileChecksum::~FileChecksum()
{
    cancel();
}

bool FileChecksum::start(const QString& path)
{
    if (m_thread)
        return false;
    m_path = path;
    m_summer = std::make_unique<Summer>(this, m_run, path, m_paused);
    m_thread.reset(QThread::create([summer = m_summer.get()] { summer->run(); }));
    m_thread->setObjectName(QStringLiteral("checksum"));
    m_thread->start(QThread::IdlePriority);
    return true;
}

void FileChecksum::cancel()
{
    if (!m_thread)
        return;
    m_summer->pausePoint.cancel();
    join();
}

void FileChecksum::setPaused(bool paused)
{
    m_paused = paused;
    if (m_summer)
        m_summer->pausePoint.setPaused(paused);
}

void FileChecksum::join()
{
    ++m_run;
    // On a busy machine an idle thread would not even get to its end.
    if (m_thread->isRunning())
        m_thread->setPriority(QThread::NormalPriority);
    m_thread->wait();
    m_thread.reset();
    m_summer.reset();
}

QString FileChecksum::checkLine(const QByteArray& sha256, const QString& path)
{
    QString name = QFileInfo(path).fileName();
    const QString plain = name;
    name.replace(QLatin1Char('\\'), QLatin1String("\\\\"));
    name.replace(QLatin1Char('\n'), QLatin1String("\\n"));
    name.replace(QLatin1Char('\r'), QLatin1String("\\r"));
    const QString escape = name == plain ? QString() : QStringLiteral("\\");
    return escape + QString::fromLatin1(sha256.toHex()) + QStringLiteral("  ") + name;
}

} // namespace VCOMMON
