#pragma once

#include "AudioTranscoder.h"
#include "ClockTrack.h"
#include "FragmentBuilder.h"
#include "GapTimeline.h"
#include "vav_frame.h"

#include <cstdint>
#include <deque>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace vaws {

/// What a task asks of its stream; UTC in ns, 0 where it is open.
struct AssemblyRequest
{
    std::int64_t beginNs = 0;
    std::int64_t endNs = 0;
    bool keepGaps = false;          ///< gaps stay as time
    bool clockTrack = false;        ///< files get the wall clock as a text track
    std::uint64_t maxFileBytes = 0; ///< a key frame beyond this starts a new file; 0: no limit
};

/// Hears of files that begin and end, in order with the buffers.
class AssemblyPort : public BufferPort
{
public:
    virtual void openOutput(std::shared_ptr<OutputPlan> plan) = 0;
    /// The file that was opened last is complete; with `switched` another one follows, whose first frame is at
    /// `nextNs`.
    virtual void closeOutput(bool switched, std::int64_t nextNs) = 0;
};

/// Turns a stream of frames into the contents of files: waits for a key frame, maps the recorder's clock to the movie's
/// time, finds gaps and backward jumps, keeps the asked span, transcodes G.711, starts a new file where the coming
/// frames can't go into the same one. No thread, no file, no lock of its own; one thread at a time.
class StreamAssembler final
{
public:
    enum class Outcome : std::uint8_t {
        Unknown = 0,
        Going,
        RangeComplete, ///< everything before the asked end is there
        Unusable,      ///< problem() says why; nothing more is taken
    };

    StreamAssembler(AssemblyPort& port, AssemblyRequest request);

    Outcome streamInfo(const vav::StreamInfo& info);
    Outcome frame(const vav::FrameHeader& header, const std::uint8_t* payload);

    /// Hands over what is buffered.
    void flush();
    /// Waits for sound that is being transcoded; then finish() does not wait.
    void drain();
    /// The stream is over: closes the file that is open.
    void finish();
    /// Nothing more is taken or asked for but info(): lets go of what is buffered and of the sound's encoder.
    void discard();

    const std::string& problem() const { return m_problem; }
    bool hasOutput() const { return m_builder != nullptr; }
    bool picturesComplete() const { return m_leadComplete; }
    std::size_t bufferedBytes() const { return m_builder ? m_builder->bufferedBytes() : 0; }
    void setFragmentLimit(std::size_t bytes);
    const vav::StreamInfo& info() const { return m_info; }
    /// Sound that waits for its encoder. Any thread.
    std::size_t soundBacklogBytes() const { return m_transcoder ? m_transcoder->backlogBytes() : 0; }
    void setRequestedSpan(std::int64_t beginNs, std::int64_t endNs);

private:
    struct HeldFrame
    {
        vav::FrameHeader header;
        std::vector<std::uint8_t> payload;
    };
    struct Slot
    {
        const vav::TrackInfo* info = nullptr;
        std::size_t format = 0;     ///< index in the open output's formats
        bool written = false;       ///< the output has this track
        std::int64_t nextTicks = 0; ///< where the next audio frame belongs when its sender's clock is even
        bool started = false;
        std::uint32_t frameTicks = 0;
    };

    Outcome keepPreroll(const vav::FrameHeader& header, const std::uint8_t* payload, bool key);
    Outcome playPreroll();
    Outcome leadingFrame(const vav::FrameHeader& header, const std::uint8_t* payload);
    Outcome otherFrame(const vav::FrameHeader& header, const std::uint8_t* payload);
    bool openOutput(const vav::FrameHeader& header, const std::uint8_t* payload);
    void closeOutput(bool switched, std::int64_t nextNs);
    bool hasSoundBeside() const;
    bool isIndependent(const vav::FrameHeader& header, const std::uint8_t* payload) const;
    void noteGap(const vav::FrameHeader& header);
    void write(const vav::FrameHeader& header, const std::uint8_t* payload);
    void writeSound(Slot& slot, std::int64_t mediaNs, const std::uint8_t* payload, std::size_t bytes);
    void takeTranscoded();
    void releaseHeld(bool all);
    void releaseTail();
    std::int64_t typicalNs() const;

    AssemblyPort& m_port;
    AssemblyRequest m_request;
    std::string m_problem;
    vav::StreamInfo m_info;
    std::vector<Slot> m_slots; ///< by track number
    int m_leading = -1;        ///< track number: the first video, else the first audio
    std::shared_ptr<OutputPlan> m_plan;
    std::unique_ptr<FragmentBuilder> m_builder;
    std::unique_ptr<AudioTranscoder> m_transcoder;
    std::optional<ClockTrack> m_clock;
    GapTimeline m_timeline;
    DecodeTimes m_order;           ///< of the leading track in ns, to know when the end is reached
    std::int64_t m_lastLeadNs = 0; ///< latest presentation time of the leading track
    std::int64_t m_distanceNs = 0; ///< between its last two presentation times
    bool m_seenLead = false;
    std::int64_t m_continuesNs = 0; ///< asked begin of the next output
    std::deque<HeldFrame> m_held;   ///< other tracks' frames that are ahead of the leading track
    std::size_t m_heldBytes = 0;
    std::vector<HeldFrame> m_preroll; ///< from the last key frame before the asked begin
    std::size_t m_prerollBytes = 0;
    bool m_begun = false;
    bool m_switched = false;       ///< a file was closed before
    std::vector<HeldFrame> m_tail; ///< frames past the asked end that a frame before it may still need
    std::uint32_t m_lostAhead = 0;
    bool m_leadComplete = false;
    bool m_soundComplete = false;
};

} // namespace vaws
