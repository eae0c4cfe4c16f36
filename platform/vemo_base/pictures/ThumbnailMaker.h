#pragma once

#include "Thumbnails.h"

namespace vemo_base {

class ThumbnailStore;

/// Makes one thumbnail: out of the disk cache, or else out of the file, which is then put there. Any thread but the GUI
/// thread; without state.
class ThumbnailMaker final
{
public:
    ThumbnailMaker() = delete;

    static Thumbnail make(const ThumbnailKey& key, const ThumbnailStore& store);
};

} // namespace vemo_base
