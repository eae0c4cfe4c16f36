#pragma once

#include "vemo_base_global.h"

#include <QFunctionPointer>
#include <QString>

namespace vemo_base {

/// Loads a library of the program's own at its first use: "lib/vemo" beside the folder of an installed program, "lib"
/// in a build tree, or the program's own folder. Plain function for any thread; what was loaded stays.
namespace OwnLibrary {

/// nullptr, with the system's words in `error`, where the library or the function is missing.
VEMO_BASE_EXPORT QFunctionPointer resolve(const QString& library, const char* function, QString& error);

} // namespace OwnLibrary

} // namespace vemo_base
