#pragma once

#include <QString>

namespace vemo_client {

/// The streams of a program without a window.
class Terminal final
{
public:
    /// Somebody may be watching the standard error stream.
    static bool isErrorTerminal();
    static int errorColumns();

    /// Whole lines; the text is printed as it is, save that control characters (which may come from a recorder) become
    /// "?".
    static void out(const QString& line);
    static void error(const QString& line);
    /// Text of our own with line breaks, such as a help text.
    static void text(const QString& text);
    /// Replaces the line under the cursor of the standard error stream; an empty text clears it.
    static void errorStatus(const QString& text);

    static QString printable(const QString& text);
};

} // namespace vemo_client
