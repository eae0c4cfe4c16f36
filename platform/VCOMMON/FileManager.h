#pragma once

#include <QString>

namespace VCOMMON {

/// The desktop's file manager. Asking it can take seconds (it may have to be started), so that happens on a thread of
/// its own, one request a thread, which ends by itself; requests beyond a few at a time are dropped. Any thread.
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
