#include "FragmentScanner.h"
#include "MemoryFile.h"
#include "Mp4Finalizer.h"
#include "Mp4Reader.h"

#include <cstdlib>

/// Scans any bytes as a file that a crash left, and finishes what the scan takes for a growing one. Whatever the bytes
/// were, the outcome must then read back.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    MemoryFile file;
    file.bytes.assign(data, data + size);
    vaws::Mp4Reader(file).readIndex();
    const vaws::ScanResult scan = vaws::FragmentScanner(file).scan({"channel", "recorder"});
    if (scan.state != vaws::FileState::Growing && scan.state != vaws::FileState::Broken)
        return 0;
    const vaws::Movie movie = scan.assembly.movie();
    vaws::IndexPlace place;
    if (vaws::Mp4Finalizer::finish(file, scan.fragmentsEnd, movie, vaws::SyncOrder::EveryStep, place) != 0)
        std::abort();
    vaws::Mp4Reader reader(file);
    if (!reader.agrees(movie, place))
        std::abort();
    return 0;
}
