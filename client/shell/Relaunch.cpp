// platform file: how a program takes the place of another
#include "Relaunch.h"

#include <QFile>

#include <cstdlib>
#include <string>
#include <vector>

#if defined(Q_OS_WIN)
#include <process.h>
#else
#include <unistd.h>
#endif

namespace vemo_client {

namespace {

#if defined(Q_OS_WIN)
using Text = std::wstring;

/// The system's own parser takes the line apart again: a quote and the backslashes before it are escaped.
Text textOf(const QString& argument)
{
    Text quoted = L"\"";
    int backslashes = 0;
    for (const wchar_t character : argument.toStdWString()) {
        if (character == L'"')
            quoted.append(std::size_t(backslashes) + 1, L'\\');
        backslashes = character == L'\\' ? backslashes + 1 : 0;
        quoted.push_back(character);
    }
    quoted.append(std::size_t(backslashes), L'\\');
    return quoted + L"\"";
}

Text programOf(const QString& program)
{
    return program.toStdWString();
}

void run(const Text& program, std::vector<Text::value_type*>& arguments)
{
    _wspawnv(_P_NOWAIT, program.c_str(), arguments.data());
}
#else
using Text = std::string;

Text textOf(const QString& argument)
{
    return QFile::encodeName(argument).toStdString();
}

Text programOf(const QString& program)
{
    return textOf(program);
}

void run(const Text& program, std::vector<Text::value_type*>& arguments)
{
    execv(program.c_str(), arguments.data());
}
#endif

/// Never freed: it is read when everything else has gone.
struct Asked
{
    Text program;
    std::vector<Text> arguments;
};
Asked* asked = nullptr;

} // namespace

void Relaunch::prepare()
{
    std::atexit(&Relaunch::carryOut);
}

void Relaunch::ask(const QString& program, const QStringList& arguments)
{
    asked = new Asked;
    asked->program = programOf(program);
    for (const QString& argument : arguments)
        asked->arguments.push_back(textOf(argument));
}

void Relaunch::carryOut()
{
    if (asked == nullptr)
        return;
    std::vector<Text::value_type*> arguments;
    for (Text& argument : asked->arguments)
        arguments.push_back(argument.data());
    arguments.push_back(nullptr);
    run(asked->program, arguments);
}

} // namespace vemo_client
