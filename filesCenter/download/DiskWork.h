#pragma once

#include <QObject>

#include <functional>

namespace vemo_filesCenter {

/// Work that waits for a disk, away from the GUI thread. Jobs run one after the other on one thread of the module.
namespace DiskWork {

/// Runs `job` on that thread, then `done` on this one: before run() returns when the job took at most `patienceMs`,
/// else by the event loop. `done` is not called once `context` is gone. `job` must own what it touches.
void run(std::function<void()> job, QObject* context, std::function<void()> done, int patienceMs);

/// For the end of the program, whose event loop does not go on: waits for the jobs that were given so far, at most so
/// long, and calls what they owe.
void finish(int mostMs);

} // namespace DiskWork

} // namespace vemo_filesCenter
