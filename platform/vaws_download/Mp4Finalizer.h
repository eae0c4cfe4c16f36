#pragma once

#include "MediaFile.h"
#include "MovieWriter.h"

#include <cstdint>

namespace vaws {

enum class SyncOrder : std::uint8_t {
    Unknown = 0,
    EveryStep,  ///< the file can be played as it is after a power cut at any moment
    Afterwards, ///< the caller syncs later; until then a power cut may need the repair
};

/// Where the index of a finished file lies.
struct IndexPlace
{
    std::uint64_t offset = 0;
    std::uint64_t bytes = 0;
    std::uint64_t signature = 0; ///< chained dataSignature() of parts of partBytes

    static constexpr std::size_t partBytes = 1024 * 1024;
};

/// Turns a growing file into an ordinary one, in place: appends the index, then makes one `mdat` of everything between
/// the file's type and the index. The last step changes 8 bytes of one sector, and every beginning of these 8 bytes
/// leaves a file that plays. After a failure the file is still the growing one it was. All functions return 0 or an
/// errno value.
class Mp4Finalizer final
{
public:
    static int finish(MediaFile& file, std::uint64_t fragmentsEnd, const Movie& movie, SyncOrder order,
                      IndexPlace& place);

    /// Makes a growing file of one whose header was switched but whose index is not there.
    static int revert(MediaFile& file);

private:
    static int writeIndex(MediaFile& file, std::uint64_t offset, const Movie& movie, IndexPlace& place);
};

} // namespace vaws
