// platform file: the Windows shell; other desktops are FileManagerPosix.cpp.
#include "FileManager.h"

#include <QDir>
#include <QFileInfo>

#include <objbase.h>
#include <shellapi.h>
#include <shlobj.h>
#include <windows.h>

namespace VCOMMON {

namespace {

QString codeText(long code)
{
    return QStringLiteral("Windows error 0x%1").arg(static_cast<ulong>(code), 8, 16, QLatin1Char('0'));
}

/// The shell's own call takes any name; "explorer /select," stumbles over commas.
long select(const QString& path)
{
    const std::wstring native = QDir::toNativeSeparators(path).toStdWString();
    PIDLIST_ABSOLUTE item = nullptr;
    HRESULT result = SHParseDisplayName(native.c_str(), nullptr, &item, 0, nullptr);
    if (SUCCEEDED(result)) {
        result = SHOpenFolderAndSelectItems(item, 0, nullptr, 0);
        CoTaskMemFree(item);
    }
    return result;
}

bool openFolder(const QString& path, QString& error)
{
    const std::wstring native = QDir::toNativeSeparators(path).toStdWString();
    const auto result =
        reinterpret_cast<INT_PTR>(ShellExecuteW(nullptr, L"explore", native.c_str(), nullptr, nullptr, SW_SHOWNORMAL));
    constexpr INT_PTR firstGood = 33;
    if (result >= firstGood)
        return true;
    error = codeText(static_cast<long>(result));
    return false;
}

} // namespace

bool FileManager::showNow(const QString& absolutePath, Target target, QString& error)
{
    const HRESULT com = CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED | COINIT_DISABLE_OLE1DDE);
    bool done = false;
    if (target == Target::FileInFolder) {
        const long result = select(absolutePath);
        done = SUCCEEDED(result);
        if (!done)
            error = codeText(result);
    }
    if (!done)
        done = openFolder(target == Target::Folder ? absolutePath : QFileInfo(absolutePath).absolutePath(), error);
    if (SUCCEEDED(com))
        CoUninitialize();
    return done;
}

} // namespace VCOMMON
