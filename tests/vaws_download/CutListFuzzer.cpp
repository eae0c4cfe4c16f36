#include "CutList.h"

#include <cstddef>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    vaws::CutList list;
    std::string error;
    if (!list.parse(std::string(reinterpret_cast<const char*>(data), size), error) && error.empty())
        std::abort();
    return 0;
}
