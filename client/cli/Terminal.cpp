// platform file: terminal or not, and how wide
#include "Terminal.h"

#include <cstdio>

#if defined(Q_OS_WIN)
#include <io.h>
#include <windows.h>
#else
#include <sys/ioctl.h>
#include <unistd.h>
#endif

namespace vemo_client {

namespace {

constexpr int usualColumns = 80;

void write(std::FILE* stream, const QString& text)
{
    const QByteArray bytes = text.toLocal8Bit();
    std::fwrite(bytes.constData(), 1, static_cast<size_t>(bytes.size()), stream);
    std::fflush(stream);
}

} // namespace

#if defined(Q_OS_WIN)
bool Terminal::isErrorTerminal()
{
    return _isatty(_fileno(stderr)) != 0;
}

int Terminal::errorColumns()
{
    CONSOLE_SCREEN_BUFFER_INFO info;
    if (!GetConsoleScreenBufferInfo(GetStdHandle(STD_ERROR_HANDLE), &info))
        return usualColumns;
    return info.srWindow.Right - info.srWindow.Left + 1;
}
#else
bool Terminal::isErrorTerminal()
{
    return isatty(STDERR_FILENO) != 0;
}

int Terminal::errorColumns()
{
    struct winsize size = {};
    if (ioctl(STDERR_FILENO, TIOCGWINSZ, &size) != 0 || size.ws_col == 0)
        return usualColumns;
    return size.ws_col;
}
#endif

QString Terminal::printable(const QString& text)
{
    QString result = text;
    for (QChar& character : result) {
        const QChar::Category category = character.category();
        if (category == QChar::Other_Control || category == QChar::Other_Format)
            character = QLatin1Char('?');
    }
    return result;
}

void Terminal::out(const QString& line)
{
    write(stdout, printable(line) + QLatin1Char('\n'));
}

void Terminal::error(const QString& line)
{
    write(stderr, printable(line) + QLatin1Char('\n'));
}

void Terminal::text(const QString& text)
{
    write(stdout, text.endsWith(QLatin1Char('\n')) ? text : QString(text + QLatin1Char('\n')));
}

void Terminal::errorStatus(const QString& text)
{
    const int columns = errorColumns() - 1;
    const QString line = printable(text).left(columns);
    // Blanks up to the edge instead of an escape sequence: every terminal knows them.
    write(stderr, QLatin1Char('\r') + line.leftJustified(columns) + QLatin1Char('\r'));
    if (!text.isEmpty())
        write(stderr, line);
}

} // namespace vemo_client
