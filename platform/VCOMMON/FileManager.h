#pragma once

#include <QString>

namespace VCOMMON {

/// The desktop's file manager. Asking it can take seconds (it may have to be started), so each request has a thread
/// that ends by itself; they are carried out one after the other, and those beyond a few are dropped. Any thread.
class FileManager final
{
public:
    FileManager() = delete;

    enum class Target : int { Unknown = 0, Folder, FileInFolder };

    static void show(const QString& path, Target target);

private:
    /// On the request's thread. False, with the cause in `error`, when the desktop has nothing that could show it.
    static bool showNow(const QString& absolutePath, Target target, QString& error);
};

} // namespace VCOMMON
