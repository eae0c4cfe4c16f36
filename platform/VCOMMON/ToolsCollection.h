#pragma once

#include "VCOMMON_global.h"

#include <QString>

namespace VCOMMON {

/// Small tools for names, files and folders.
class VCOMMON_EXPORT ToolsCollection final
{
public:
    ToolsCollection() = delete;

    static constexpr int maxFileNameBytes = 255;

    /// Makes `name` usable as one component of a path on every desktop, and returns it: separators and the characters
    /// that Windows refuses, control, format and bidirectional characters become `substitute`; dots and spaces at the
    /// ends go; a name that Windows reserves for a device gets "_" in front; at most 255 bytes of UTF-8, cut at a
    /// character's edge. Empty when nothing is left.
    static QString formatLegalFileName(QString& name, const QString& substitute);

    /// Cuts the text behind the last whole character that fits into so many bytes of UTF-8.
    static void cutToBytes(QString& text, int limitBytes);

    /// `path` itself when nothing stands there, else the same with " (2)", " (3)", ... before the suffix; the name is
    /// cut where it would get too long.
    static QString freeFileName(const QString& path);

    /// Copies a small file before it returns, as VCopyLocalFile does; beside another file of that name the copy takes
    /// a free one. False when it failed; nothing is left then. Waits for the disk; any thread.
    static bool copyFile(const QString& source, const QString& destination);

    /// Shows a folder in the desktop's file manager. Returns at once, whatever the desktop does; any thread.
    static void openFolder(const QString& path);
    /// Shows the folder of a file with the file selected; where the desktop can't select, the folder alone. Returns at
    /// once; any thread.
    static void openFolderAndSelectFile(const QString& path);
};

} // namespace VCOMMON
