#include "DirectFile.h"

#include <system_error>

namespace vaws {

std::string errorText(int code)
{
    return std::generic_category().message(code);
}

std::filesystem::path findByIdentity(const std::filesystem::path& folder, const FileIdentity& identity)
{
    constexpr int maxEntries = 100'000;
    std::error_code error;
    int entries = 0;
    for (std::filesystem::directory_iterator entry(folder, error), end;
         !error && entry != end && ++entries < maxEntries; entry.increment(error)) {
        if (identityOf(entry->path()) == identity)
            return entry->path();
    }
    return {};
}

} // namespace vaws
