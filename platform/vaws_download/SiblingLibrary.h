#pragma once

#include <string>

namespace vaws {

/// A function of a library that lies in the folder of this code's own library or program, or in `../lib` of that. The
/// library is loaded and stays. nullptr, with the system's words in `error`, where it or the function is missing.
void* siblingFunction(const std::string& library, const char* function, std::string& error);

} // namespace vaws
