// platform file: Windows; the POSIX branch is InterruptPosix.cpp
#include "ExitCode.h"
#include "Interrupt.h"

#include <QCoreApplication>

#include <atomic>
#include <windows.h>

namespace vemo_client {

namespace {

std::atomic<Interrupt*> target{nullptr};
std::atomic<bool> requested{false};

/// Called on a thread of the system's own.
BOOL WINAPI onControl(DWORD)
{
    if (requested.exchange(true))
        ExitProcess(static_cast<UINT>(ExitCode::Interrupted));
    Interrupt* interrupt = target.load();
    if (!interrupt)
        return FALSE;
    QMetaObject::invokeMethod(interrupt, &Interrupt::signalInterrupted, Qt::QueuedConnection);
    return TRUE;
}

} // namespace

class Interrupt::Private
{};

Interrupt::Interrupt(QObject* parent)
    : QObject(parent)
    , d(std::make_unique<Private>())
{
    target = this;
    SetConsoleCtrlHandler(onControl, TRUE);
}

Interrupt::~Interrupt()
{
    SetConsoleCtrlHandler(onControl, FALSE);
    target = nullptr;
}

} // namespace vemo_client
