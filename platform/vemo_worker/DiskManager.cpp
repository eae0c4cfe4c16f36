#include "DiskManager.h"

#include "DiskCall.h"

#include <QFileInfo>
#include <QStorageInfo>
#include <QTemporaryFile>

namespace vemo_worker {

namespace {

constexpr int giveUpMs = 5000;

} // namespace

DiskManager::DiskManager() = default;

DiskManager& DiskManager::instance()
{
    static DiskManager manager;
    return manager;
}

QString DiskManager::existingFolderOf(const QString& path)
{
    QFileInfo info(path);
    while (!info.isDir()) {
        const QString parent = info.absolutePath();
        if (parent == info.absoluteFilePath())
            break;
        info.setFile(parent);
    }
    return info.absoluteFilePath();
}

QString DiskManager::getDiskName(const QString& path) const
{
    const QString folder = existingFolderOf(path);
    QString root = QStorageInfo(folder).rootPath();
    if (root.isEmpty()) // a drive that is not there
        root = folder;
    if (root.size() == 3 && root.endsWith(QLatin1String(":/")))
        root.chop(1);
    return root;
}

bool DiskManager::isPathAvailable(const QString& path, bool forWriting) const
{
    if (path.isEmpty() || !QFileInfo(path).isDir())
        return false;
    if (!forWriting)
        return true;
    // Access rights alone say too much on network and read-only disks.
    QTemporaryFile probe(path + QStringLiteral("/.vemo-XXXXXX"));
    return probe.open();
}

void DiskManager::askFigures(const QString& path, QObject* context,
                             const std::function<void(const Figures&)>& answer) const
{
    const auto ask = [this, path, answer](const std::atomic<bool>&) -> DiskCall::Answer {
        const QStorageInfo storage(existingFolderOf(path));
        const Figures figures{getDiskName(path), storage.bytesAvailable(), storage.bytesTotal()};
        return [answer, figures] { answer(figures); };
    };
    DiskCall::start(context, giveUpMs, ask, [answer] { answer(Figures()); });
}

} // namespace vemo_worker
