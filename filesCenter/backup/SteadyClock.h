#pragma once

#include <QtGlobal>

namespace vemo_filesCenter {

/// A clock that nobody sets and that goes on while the computer sleeps.
namespace SteadyClock {

/// Since an arbitrary moment; any thread.
qint64 nowMs();

} // namespace SteadyClock

} // namespace vemo_filesCenter
