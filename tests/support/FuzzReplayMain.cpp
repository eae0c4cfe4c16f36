// Drives a fuzz target's entry point once over every file of the folders and files given as arguments, so that builds
// without libFuzzer check the seed corpora too. Arguments that start with '-' are libFuzzer's options and are passed
// over, but for --starved: then the target meets every file once for each of its allocations, which is refused.
#include "Starvation.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <system_error>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

bool isStarved = false;
long refusals = 0;
long kept = 0;

bool runFile(const std::filesystem::path& path)
{
    std::ifstream file(path, std::ios::binary);
    if (!file) {
        std::fprintf(stderr, "cannot read %s\n", path.string().c_str());
        return false;
    }
    const std::vector<char> bytes((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
    // An allocation of exactly the input's size, so that a sanitizer sees each read past its end.
    const std::unique_ptr<std::uint8_t[]> exact(new std::uint8_t[bytes.size()]);
    std::copy(bytes.begin(), bytes.end(), exact.get());
    if (!isStarved) {
        LLVMFuzzerTestOneInput(exact.get(), bytes.size());
        return true;
    }
    const starvation::Outcome outcome = starvation::everyAllocation(
        path.filename().string(), [&] { LLVMFuzzerTestOneInput(exact.get(), bytes.size()); });
    refusals += outcome.cases;
    kept += outcome.kept;
    return true;
}

} // namespace

int main(int argc, char** argv)
{
    std::size_t files = 0;
    bool good = true;
    isStarved = std::any_of(argv + 1, argv + argc, [](const char* each) { return !std::strcmp(each, "--starved"); });
    for (int i = 1; i < argc; ++i) {
        if (argv[i][0] == '-')
            continue;
        std::error_code error;
        const std::filesystem::path path(argv[i]);
        if (std::filesystem::is_regular_file(path, error)) {
            good = runFile(path) && good;
            ++files;
            continue;
        }
        std::filesystem::recursive_directory_iterator walk(path, error);
        if (error) {
            std::fprintf(stderr, "cannot open %s: %s\n", path.string().c_str(), error.message().c_str());
            return 1;
        }
        for (const auto& entry : walk) {
            if (!entry.is_regular_file())
                continue;
            good = runFile(entry.path()) && good;
            ++files;
        }
    }
    std::printf("%zu inputs\n", files);
    if (isStarved)
        std::printf("%ld refusals, %ld kept a block\n", refusals, kept);
    return good && files > 0 ? 0 : 1;
}
