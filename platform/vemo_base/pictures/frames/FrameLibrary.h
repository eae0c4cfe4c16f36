#pragma once

#include "pictures/PictureFile.h"

namespace vemo_base {

/// Pictures out of recordings. The library that decodes them is loaded when the first one is asked for and stays. Any
/// thread but the GUI thread.
class FrameLibrary final
{
public:
    FrameLibrary() = delete;

    /// The first key frame of an MP4 file, scaled down to go into `box`, never up. A file that holds none, such as one
    /// whose index is not written yet, is told as an unreadable picture; so is one that takes longer than 2 s.
    static Picture firstKeyFrame(const QString& path, const QSize& box, PictureFit fit);
};

} // namespace vemo_base
