#pragma once

#include <QDir>
#include <QString>

#include <string>

namespace VCOMMON {

/// An absolute path as the calls of Windows take it when it is longer than 260 characters.
inline std::wstring windowsPath(const QString& path)
{
    const QString native = QDir::toNativeSeparators(path);
    if (native.startsWith(QLatin1String("\\\\?\\")))
        return native.toStdWString();
    if (native.startsWith(QLatin1String("\\\\")))
        return QString(QLatin1String("\\\\?\\UNC") + native.mid(1)).toStdWString();
    return QString(QLatin1String("\\\\?\\") + native).toStdWString();
}

} // namespace VCOMMON
