#pragma once

#include <vav_frame.h>

#include <QByteArray>

#include <array>

namespace vemo_client {

/// Leaves frames out of a stream that plays faster than can be decoded: those that no other picture refers to (H.264
/// nal_ref_idc 0, ITU-T H.264 clause 7.4.1; H.265 sub-layer non-reference pictures, ITU-T H.265 table 7-1), or all but
/// key frames. What is left can be decoded. Sound goes as soon as anything is left out. Not thread-safe.
class FrameThinner final
{
public:
    enum class Keep : int { Unknown = 0, All, References, KeyFrames };

    /// From key frames to more, the change holds from the next key frame on.
    void setKeep(Keep keep);
    Keep keep() const { return m_keep; }
    /// Another place of the stream, or another stream, which begins with its description.
    void reset();

    /// What is left of a batch of whole packets; the batch itself, not copied, when that is all.
    QByteArray thinned(const QByteArray& batch);

private:
    bool isWanted(const vav::FrameHeader& frame, const std::uint8_t* payload);
    bool isReference(const vav::FrameHeader& frame, const std::uint8_t* payload) const;
    vav::Codec codecOf(std::uint8_t track) const { return track < m_codecs.size() ? m_codecs[track] : vav::Codec{}; }

    Keep m_keep = Keep::All;
    bool m_waitsForKeyFrame = false;
    std::array<vav::Codec, vav::maxTracks> m_codecs{};
};

} // namespace vemo_client
