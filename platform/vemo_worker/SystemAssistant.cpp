#include "SystemAssistant.h"

#include "SystemConfig.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QPointer>
#include <QStandardPaths>
#include <QTextStream>
#include <QThreadPool>

#include <cstdio>

namespace vemo_worker {

namespace {

bool isThere(const QString& path)
{
    const QFileInfo info(path);
    return info.exists() || info.isSymLink();
}

/// Qt makes the bin of a home folder, but not the folder that it lies in, and takes a home without one for one without
/// a bin.
void makeRoomForBin()
{
    QDir().mkpath(QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation));
}

/// Deleting for good is what is left on disks without a bin.
void discard(const QString& path, bool useBin)
{
    const QFileInfo info(path);
    const bool isPlainFile = info.isSymLink() || info.isFile();
    if (isPlainFile && !(useBin && QFile::moveToTrash(path)))
        QFile::remove(path);
}

} // namespace

SystemAssistant::SystemAssistant()
    : m_disk(std::make_unique<QThreadPool>())
{
    m_disk->setMaxThreadCount(1);
    qAddPostRoutine([] { SystemAssistant::instance().finishRemovals(); });
}

SystemAssistant::~SystemAssistant() = default;

SystemAssistant& SystemAssistant::instance()
{
    static SystemAssistant assistant;
    return assistant;
}

void SystemAssistant::setPresenter(Presenter presenter)
{
    m_presenter = std::move(presenter);
}

void SystemAssistant::messageAlert(const QString& title, const QString& text)
{
    if (m_presenter) {
        const Presenter present = m_presenter; // may be replaced while the box is open
        present(title, text);
        return;
    }
    QTextStream(stderr) << title << ": " << text << QLatin1Char('\n');
}

void SystemAssistant::removeFiles(const QStringList& paths, QObject* context, const Removed& removed)
{
    const bool useBin = SystemConfig::instance().useRecycleBin();
    m_disk->start([this, paths, removed, useBin, guard = QPointer<QObject>(context), hasContext = context != nullptr] {
        QStringList remaining;
        if (useBin)
            makeRoomForBin();
        for (const QString& path : paths) {
            discard(path, useBin);
            if (isThere(path))
                remaining.append(path);
        }
        if (!removed)
            return;
        QMetaObject::invokeMethod(
            this,
            [remaining, removed, guard, hasContext] {
                if (guard || !hasContext)
                    removed(remaining);
            },
            Qt::QueuedConnection);
    });
}

QString SystemAssistant::vdxPath(const QString& mediaPath)
{
    const QFileInfo info(mediaPath);
    return info.path() + QLatin1Char('/') + info.completeBaseName() + QStringLiteral(".vdx");
}

void SystemAssistant::removeVdxFiles(const QStringList& mediaPaths)
{
    m_disk->start([mediaPaths] {
        // They are made anew from the media at need, so the bin is not for them.
        for (const QString& path : mediaPaths)
            QFile::remove(vdxPath(path));
    });
}

void SystemAssistant::finishRemovals()
{
    m_disk->waitForDone();
}

} // namespace vemo_worker
