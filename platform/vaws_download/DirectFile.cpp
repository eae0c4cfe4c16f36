#include "DirectFile.h"

#include <system_error>

namespace vaws {

std::string errorText(int code)
{
    return std::generic_category().message(code);
}

std::filesystem::path findByIdentity(const std::filesystem::path& folder, const FileIdentity& identity)
{
    constexpr std::size_t maxEntries = 100'000;
    for (const std::filesystem::path& path : entriesOf(folder, maxEntries)) {
        if (identityOf(path) == identity)
            return path;
    }
    return {};
}

} // namespace vaws
