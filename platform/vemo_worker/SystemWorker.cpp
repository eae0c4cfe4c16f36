#include "SystemWorker.h"

#include "DiskManager.h"

#include <QStorageInfo>

namespace vemo_worker {

SystemWorker::SystemWorker()
    : m_userName(QStringLiteral("admin"))
{}

SystemWorker& SystemWorker::instance()
{
    static SystemWorker worker;
    return worker;
}

bool SystemWorker::isCurUserHasPower(int power) const
{
    return (m_powers & power) == power;
}

void SystemWorker::setCurUser(const QString& name, int powers)
{
    m_userName = name;
    m_powers = powers;
    emit signalCurUserChanged();
}

QString SystemWorker::curUserName() const
{
    return m_userName;
}

qint64 SystemWorker::getDiskFreeSpace(const QString& path) const
{
    const QStorageInfo disk(DiskManager::existingFolderOf(path));
    if (!disk.isValid() || !disk.isReady() || disk.bytesAvailable() < 0)
        return -1;
    return disk.bytesAvailable() / (1024 * 1024);
}

} // namespace vemo_worker
