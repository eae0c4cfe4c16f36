#pragma once

#include "media/Clip.h"

#include <QString>

#include <memory>
#include <vector>

namespace recorder_sim {

/// The clips of the simulated recorder, in the order in which channels use them.
struct ClipSet
{
    std::vector<std::shared_ptr<const VideoClip>> video; ///< H.264 1080p, H.265 720p, H.264 360p, H.265 360p
    std::vector<std::shared_ptr<const AudioClip>> audio; ///< AAC 48 kHz, A-law, mu-law, AAC 16 kHz
};

/// Makes clips with the ffmpeg program where the cache folder lacks them, and loads them. Blocks for up to half a
/// minute at first use. A clip comes to its place by renaming a finished folder, so several processes can share one
/// cache.
class ClipMaker final
{
public:
    /// An empty folder name means the user's cache folder.
    explicit ClipMaker(const QString& folder);

    /// False with a sentence in error() when ffmpeg is missing or fails, or the folder can't be written.
    bool load(ClipSet& clips);
    const QString& error() const { return m_error; }

private:
    struct VideoRecipe;
    struct AudioRecipe;

    std::shared_ptr<const VideoClip> loadVideo(const VideoRecipe& recipe);
    std::shared_ptr<const AudioClip> loadAudio(const AudioRecipe& recipe);
    bool makeVideo(const VideoRecipe& recipe, const QString& folder);
    bool makeAudio(const AudioRecipe& recipe, const QString& folder);
    bool publish(const QString& temporaryFolder, const QString& name);
    bool fail(const QString& text);

    QString m_folder;
    QString m_error;
};

} // namespace recorder_sim
