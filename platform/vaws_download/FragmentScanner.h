#pragma once

#include "MediaFile.h"
#include "MovieAssembly.h"
#include "Mp4Finalizer.h"

#include <cstdint>
#include <string>
#include <vector>

namespace vaws {

enum class FileState : std::uint8_t {
    Unknown = 0, ///< not one of ours
    Empty,       ///< no bytes, or not one whole fragment
    Growing,     ///< fragments, perhaps with an index behind them
    Finished,    ///< header switched and an index where it says
    Broken,      ///< header switched, no index there
};

struct ScanResult
{
    FileState state = FileState::Unknown;
    HeaderRecord header;
    std::vector<TrackFormat> formats;
    MovieAssembly assembly;
    std::uint64_t fragmentsEnd = 0; ///< behind the last whole fragment
    int error = 0;                  ///< errno of a read that failed
};

/// Reads a growing or finished file back: the file's beginning, then fragment after fragment. A fragment whose data is
/// cut, or whose data was not yet safely on disk and does not have the signature that it was written with, ends the
/// file. Reads one block a fragment and the data behind the last sync only; trusts no number in the file.
class FragmentScanner final
{
public:
    explicit FragmentScanner(MediaFile& file)
        : m_file(file)
    {}

    ScanResult scan(const MovieTags& tags);

private:
    bool readHeader(ScanResult& result);
    void readFragments(ScanResult& result, const MovieTags& tags);
    bool dataIntact(const FragmentInfo& info);

    MediaFile& m_file;
    std::uint64_t m_length = 0;
    std::uint64_t m_headerBytes = 0;
};

} // namespace vaws
