// platform file: loading a library at run time, both branches.
#include "SiblingLibrary.h"

#if defined(_WIN32)
#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#include <windows.h>
#else
#include <dlfcn.h>
#endif

namespace vaws {

#if defined(_WIN32)

void* siblingFunction(const std::string& library, const char* function, std::string& error)
{
    HMODULE self = nullptr;
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                       reinterpret_cast<LPCWSTR>(&siblingFunction), &self);
    wchar_t path[32768];
    const DWORD length = GetModuleFileNameW(self, path, 32768);
    std::wstring file(path, length);
    file.resize(file.find_last_of(L"\\/") + 1);
    file += std::wstring(library.begin(), library.end()) + L".dll";
    const HMODULE module = LoadLibraryExW(file.c_str(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH);
    if (!module) {
        error = "Windows error " + std::to_string(GetLastError());
        return nullptr;
    }
    const FARPROC found = GetProcAddress(module, function);
    if (!found)
        error = "it lacks " + std::string(function);
    return reinterpret_cast<void*>(found);
}

#else

void* siblingFunction(const std::string& library, const char* function, std::string& error)
{
    Dl_info self{};
    if (dladdr(reinterpret_cast<void*>(&siblingFunction), &self) == 0 || !self.dli_fname) {
        error = "the program's own folder is not known";
        return nullptr;
    }
    std::string folder(self.dli_fname);
    const std::size_t slash = folder.rfind('/');
    folder = slash == std::string::npos ? "." : folder.substr(0, slash);
    const std::string name = "/lib" + library + ".so";
    void* handle = dlopen((folder + name).c_str(), RTLD_NOW | RTLD_LOCAL);
    if (!handle)
        handle = dlopen((folder + "/../lib" + name).c_str(), RTLD_NOW | RTLD_LOCAL);
    void* found = handle ? dlsym(handle, function) : nullptr;
    if (!found) {
        const char* words = dlerror();
        error = words ? words : "it lacks " + std::string(function);
    }
    return found;
}

#endif

} // namespace vaws
