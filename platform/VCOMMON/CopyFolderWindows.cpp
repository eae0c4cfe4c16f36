#include "CopyFolder.h"
#include "WindowsPath.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <io.h>
#include <windows.h>

namespace VCOMMON {

namespace {

CopyFolder::Id idOf(HANDLE handle)
{
    BY_HANDLE_FILE_INFORMATION info;
    if (!GetFileInformationByHandle(handle, &info))
        return {};
    return {info.dwVolumeSerialNumber, static_cast<quint64>(info.nFileIndexHigh) << 32 | info.nFileIndexLow};
}

/// Without sharing deletion, so that the folder can be neither renamed nor removed while it is open.
HANDLE openFolder(const QString& path)
{
    return CreateFileW(windowsPath(path).c_str(), FILE_LIST_DIRECTORY, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                       OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr);
}

bool isLink(const QString& path)
{
    const DWORD attributes = GetFileAttributesW(windowsPath(path).c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0;
}

} // namespace

struct CopyFolder::Handles
{
    HANDLE folder = INVALID_HANDLE_VALUE;
    Id root;

    Handles() = default;
    ~Handles() { step(INVALID_HANDLE_VALUE); }
    Q_DISABLE_COPY_MOVE(Handles)

    void step(HANDLE next)
    {
        if (folder != INVALID_HANDLE_VALUE)
            CloseHandle(folder);
        folder = next;
    }
};

CopyFolder::CopyFolder()
    : m_handles(std::make_unique<Handles>())
{}

CopyFolder::~CopyFolder() = default;

QString CopyFolder::open(const QString& path, const QString& root, const Id& known)
{
    m_path = QDir::cleanPath(path);
    QString at = root.isEmpty() ? m_path : QDir::cleanPath(root);
    m_handles->step(openFolder(at));
    if (m_handles->folder == INVALID_HANDLE_VALUE)
        return notThere();
    m_handles->root = idOf(m_handles->folder);
    if (isOther(known))
        return replaced(at);
    if (at == m_path)
        return {};
    const QString below = at.endsWith(QLatin1Char('/')) ? at : QString(at + QLatin1Char('/'));
    if (!m_path.startsWith(below)) {
        SetLastError(ERROR_BAD_PATHNAME);
        return notThere();
    }
    const QStringList names = m_path.mid(below.size()).split(QLatin1Char('/'));
    at = below.chopped(1);
    for (const QString& name : names) {
        at += QLatin1Char('/') + name;
        if (!CreateDirectoryW(windowsPath(at).c_str(), nullptr) && GetLastError() != ERROR_ALREADY_EXISTS)
            return notThere();
        if (isLink(at)) {
            SetLastError(ERROR_DIRECTORY);
            return notThere();
        }
        m_handles->step(openFolder(at));
        if (m_handles->folder == INVALID_HANDLE_VALUE)
            return notThere();
    }
    return {};
}

CopyFolder::Id CopyFolder::rootId() const
{
    return m_handles->root;
}

qint64 CopyFolder::freeBytes() const
{
    ULARGE_INTEGER bytes;
    return GetDiskFreeSpaceExW(windowsPath(m_path).c_str(), &bytes, nullptr, nullptr)
               ? static_cast<qint64>(bytes.QuadPart)
               : -1;
}

bool CopyFolder::createTemporary(QFile& file, const QFile*)
{
    m_name = temporaryName();
    file.setFileName(m_path + QLatin1Char('/') + m_name);
    return file.open(QIODevice::ReadWrite | QIODevice::NewOnly | QIODevice::Unbuffered);
}

CopyFolder::Published CopyFolder::publish(QFile& file, const QString& name)
{
    file.close(); // an open file can't be renamed
    const QString to = m_path + QLatin1Char('/') + name;
    if (!MoveFileExW(windowsPath(file.fileName()).c_str(), windowsPath(to).c_str(), MOVEFILE_WRITE_THROUGH)) {
        const DWORD error = GetLastError();
        return error == ERROR_ALREADY_EXISTS || error == ERROR_FILE_EXISTS ? Published::Taken : Published::Failed;
    }
    m_name = name;
    file.setFileName(to);
    return file.open(QIODevice::ReadOnly | QIODevice::Unbuffered) ? Published::Done : Published::Failed;
}

bool CopyFolder::isPublished(const QFile& file, const QString&) const
{
    // The folder's handle keeps its path; the disk may have gone.
    return QFileInfo::exists(file.fileName());
}

void CopyFolder::remove(QFile& file)
{
    file.close();
    QFile::remove(m_path + QLatin1Char('/') + m_name);
}

bool CopyFolder::sync()
{
    return true; // the rename was written through
}

void CopyFolder::removeAbandoned()
{
    const QStringList names = QDir(m_path).entryList({QStringLiteral(".vemo-*.part")}, QDir::Files | QDir::Hidden);
    for (const QString& name : names) {
        const QString path = m_path + QLatin1Char('/') + name;
        if (name.size() != temporaryName().size() || isLink(path))
            continue;
        // Refused as long as a program has it open.
        HANDLE file = CreateFileW(windowsPath(path).c_str(), DELETE, 0, nullptr, OPEN_EXISTING,
                                  FILE_FLAG_DELETE_ON_CLOSE, nullptr);
        if (file != INVALID_HANDLE_VALUE)
            CloseHandle(file);
    }
}

} // namespace VCOMMON
