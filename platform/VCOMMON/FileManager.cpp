#include "FileManager.h"

#include <QDebug>
#include <QFileInfo>
#include <QMutex>
#include <QMutexLocker>
#include <QThread>

#include <atomic>

namespace VCOMMON {

namespace {

constexpr int mostRequests = 4; ///< someone who clicks on while the file manager starts
std::atomic_int requests{0};

} // namespace

void FileManager::show(const QString& path, Target target)
{
    if (path.isEmpty())
        return;
    if (requests.fetch_add(1) >= mostRequests) {
        requests.fetch_sub(1);
        return;
    }
    QThread* thread = QThread::create([path, target] {
        static QMutex oneByOne; // the bus connection is named, and shared by what runs at the same time
        const QMutexLocker lock(&oneByOne);
        QString error;
        if (!showNow(QFileInfo(path).absoluteFilePath(), target, error))
            qWarning().noquote() << "The file manager can't be opened at" << path << ":" << error;
        requests.fetch_sub(1);
    });
    thread->setObjectName(QStringLiteral("file manager"));
    QObject::connect(thread, &QThread::finished, thread, &QObject::deleteLater);
    thread->start();
}

} // namespace VCOMMON
