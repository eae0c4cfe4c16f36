#include "FolderCheck.h"

#include "DiskCall.h"
#include "DiskManager.h"

#include <FileSync.h>

#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QRandomGenerator>
#include <QStorageInfo>
#include <QTemporaryFile>

namespace vemo_worker {

namespace {

constexpr qint64 mebibyte = 1024 * 1024;
constexpr qint64 fullBytes = 1024 * mebibyte;
constexpr qint64 lowBytes = 10 * fullBytes;
constexpr qint64 slowBytesPerSecond = 10 * 1000 * 1000;
// A quick disk is measured in a blink, a slow one for not much longer than a second.
constexpr int pieceBytes = int(2 * mebibyte);
constexpr int pieces = 4;
constexpr int measureMs = 1200;

/// Content that no file system can compress away.
QByteArray noise(int bytes)
{
    QByteArray content(bytes, Qt::Uninitialized);
    QRandomGenerator::global()->generate(reinterpret_cast<quint32*>(content.data()),
                                         reinterpret_cast<quint32*>(content.data() + bytes));
    return content;
}

/// -1 when a piece could not be written.
qint64 writingRate(QTemporaryFile& file, const std::atomic<bool>& isGivenUp)
{
    const QByteArray piece = noise(pieceBytes);
    qint64 written = 0;
    QElapsedTimer timer;
    timer.start();
    for (int i = 0; i < pieces && timer.elapsed() < measureMs && !isGivenUp; ++i) {
        if (file.write(piece) != pieceBytes || !VCOMMON::syncToDisk(file))
            return -1;
        written += pieceBytes;
    }
    return written * 1000 / qMax<qint64>(1, timer.elapsed());
}

/// Folders in which the desktop and people make the places of disks that come and go.
bool holdsOtherDisks(const QString& folder)
{
    for (const char* place : {"/media", "/run/media", "/mnt", "/Volumes"}) {
        const QString start = QLatin1String(place);
        if (folder == start)
            return true;
        const QString rest = folder.startsWith(start + QLatin1Char('/')) ? folder.mid(start.size() + 1) : QString();
        // /media/USER and /run/media/USER hold the disks of a person.
        if (!rest.isEmpty() && !rest.contains(QLatin1Char('/')) && start.endsWith(QLatin1String("media")) &&
            !QStorageInfo(folder).rootPath().startsWith(folder))
            return true;
    }
    return false;
}

QString cleaned(const QString& folder)
{
    return QDir::cleanPath(QDir::fromNativeSeparators(folder.trimmed()));
}

} // namespace

bool FolderCheck::isNested(const QString& folder, const QString& other)
{
#if defined(Q_OS_WIN)
    constexpr Qt::CaseSensitivity sensitivity = Qt::CaseInsensitive;
#else
    constexpr Qt::CaseSensitivity sensitivity = Qt::CaseSensitive;
#endif
    const QString one = cleaned(folder) + QLatin1Char('/');
    const QString two = cleaned(other) + QLatin1Char('/');
    return one.startsWith(two, sensitivity) || two.startsWith(one, sensitivity);
}

void FolderCheck::start(const QString& folder, QObject* context, const std::function<void(const Result&)>& answer)
{
    const auto work = [folder, answer](const std::atomic<bool>& isGivenUp) -> DiskCall::Answer {
        const Result result = check(folder, isGivenUp);
        return [answer, result] { answer(result); };
    };
    DiskCall::start(context, giveUpMs, work, [answer] {
        Result result;
        result.state = State::NoAnswer;
        result.sentence = tr("The disk or network place does not answer. Choose another folder or connect it.");
        answer(result);
    });
}

FolderCheck::Result FolderCheck::check(const QString& folder)
{
    return check(folder, false);
}

FolderCheck::Result FolderCheck::check(const QString& folder, const std::atomic<bool>& isGivenUp)
{
    const QString path = cleaned(folder);
    const QFileInfo info(path);
    if (folder.trimmed().isEmpty() || !info.isAbsolute() || folder.contains(QChar(0)))
        return problem(State::NotAFolder, tr("Give the whole path of a folder."));
    if (info.exists() && !info.isDir())
        return problem(State::NotAFolder, tr("This is a file. Choose a folder."));
    if (!info.exists())
        return missing(path);

    Result result;
    result.diskName = DiskManager::instance().getDiskName(path);
    QTemporaryFile probe(path + QStringLiteral("/.vemo-XXXXXX"));
    const bool isOpen = probe.open();
    const QStorageInfo storage(path);
    result.freeBytes = storage.bytesAvailable();
    result.totalBytes = storage.bytesTotal();
    if (!isOpen) {
        result.state = State::NotWritable;
        result.sentence =
            storage.isReadOnly()
                ? tr("The disk is read-only. Choose another folder.")
                : tr("Files can't be made in this folder. Choose another one or have its access rights changed.");
        return result;
    }
    if (result.freeBytes >= 0 && result.freeBytes < fullBytes) {
        result.state = State::Full;
        result.sentence = tr("Less than 1 GB is free on this disk. Make room or choose another folder.");
        return result;
    }
    result.bytesPerSecond = writingRate(probe, isGivenUp);
    if (result.bytesPerSecond < 0) {
        result.state = State::NotWritable;
        result.sentence = tr("Writing a file in this folder failed: %1").arg(probe.errorString());
    } else if (result.freeBytes >= 0 && result.freeBytes < lowBytes) {
        result.state = State::Low;
        result.sentence = tr("Less than 10 GB is free on this disk.");
    } else if (result.bytesPerSecond < slowBytesPerSecond) {
        result.state = State::Slow;
        result.sentence = tr("Writing here is slow: %1 MB/s. Downloads may have to wait for this disk.")
                              .arg(double(result.bytesPerSecond) / 1e6, 0, 'f', 1);
    } else {
        result.state = State::Good;
    }
    return result;
}

FolderCheck::Result FolderCheck::problem(State state, const QString& sentence)
{
    Result result;
    result.state = state;
    result.sentence = sentence;
    return result;
}

FolderCheck::Result FolderCheck::missing(const QString& path)
{
    if (path.startsWith(QLatin1String("//")))
        return problem(State::NotConnected,
                       tr("The network place can't be reached. Choose another folder or connect it."));
    if (path.size() >= 2 && path.at(1) == QLatin1Char(':') && !QFileInfo::exists(path.left(2) + QLatin1Char('/')))
        return problem(
            State::NotConnected,
            tr("Drive %1 is not connected. Choose another folder or connect the drive.").arg(path.left(2).toUpper()));
    const QString existing = DiskManager::existingFolderOf(path);
    if (existing.startsWith(QLatin1Char('/')) && holdsOtherDisks(existing))
        return problem(State::NotConnected,
                       tr("The disk of this folder is not connected. Choose another folder or connect the disk."));
    for (QFileInfo above(QFileInfo(path).path()); above.absoluteFilePath() != existing; above.setFile(above.path())) {
        if (above.exists())
            return problem(State::NotAFolder, tr("%1 is a file. Choose a folder.").arg(above.absoluteFilePath()));
    }
    return problem(State::Missing, tr("This folder is not there yet."));
}

} // namespace vemo_worker
