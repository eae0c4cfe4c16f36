#include "MovieWriter.h"

#include "BoxWriter.h"
#include "ClockText.h"

#include <algorithm>

namespace vaws {
namespace {

constexpr std::size_t maxChapters = 255; ///< `chpl` counts them in one byte
constexpr std::size_t maxTitleBytes = 255;

std::uint64_t secondsSince1904(std::int64_t utcNs)
{
    constexpr std::int64_t from1904To1970 = 2'082'844'800;
    return utcNs <= 0 ? 0 : static_cast<std::uint64_t>(utcNs / nsPerSecond + from1904To1970);
}

void matrix(BoxWriter& out, std::uint32_t downBy = 0)
{
    for (const std::uint32_t value : {0x10000u, 0u, 0u, 0u, 0x10000u, 0u, 0u, downBy << 16, 0x40000000u})
        out.u32(value);
}

void movieHeader(BoxWriter& out, const Movie& movie)
{
    out.beginFull("mvhd", 1, 0);
    out.u64(secondsSince1904(movie.beginNs));
    out.u64(secondsSince1904(movie.beginNs));
    out.u32(movieTimescale);
    out.u64(movie.length);
    out.u32(0x10000); // rate 1
    out.u16(0x100);   // volume 1
    out.zeros(10);
    matrix(out);
    out.zeros(24);
    out.u32(static_cast<std::uint32_t>(movie.tracks.size() + 1));
    out.end();
}

/// Text stands at the bottom of the picture.
std::uint32_t topOf(const Movie& movie, const TrackFormat& format)
{
    for (const MovieTrack& other : movie.tracks) {
        if (format.kind == TrackKind::Text && other.format.isVideo() && other.format.height > format.height)
            return other.format.height - format.height;
    }
    return 0;
}

struct KindTexts
{
    std::uint32_t handler;
    const char* name;
    std::uint16_t alternateGroup;
};

const KindTexts& textsOf(TrackKind kind)
{
    static const KindTexts video{fourcc("vide"), "VideoHandler", 0};
    static const KindTexts sound{fourcc("soun"), "SoundHandler", 1};
    static const KindTexts text{fourcc("sbtl"), "Wall clock", 2};
    return kind == TrackKind::Video ? video : kind == TrackKind::Text ? text : sound;
}

void trackHeader(BoxWriter& out, const Movie& movie, const MovieTrack& track)
{
    const TrackKind kind = track.format.kind;
    out.beginFull("tkhd", 1, 3); // enabled, in the movie
    out.u64(secondsSince1904(movie.beginNs));
    out.u64(secondsSince1904(movie.beginNs));
    out.u32(track.format.trackId);
    out.u32(0);
    out.u64(track.length);
    out.zeros(8);
    out.u16(kind == TrackKind::Text ? 0xffff : 0); // layer: text lies in front of the picture
    out.u16(textsOf(kind).alternateGroup);
    out.u16(kind == TrackKind::Sound ? 0x100 : 0);
    out.u16(0);
    matrix(out, topOf(movie, track.format));
    out.u32(static_cast<std::uint32_t>(track.format.width) << 16);
    out.u32(static_cast<std::uint32_t>(track.format.height) << 16);
    out.end();
}

void editList(BoxWriter& out, const std::vector<Edit>& edits)
{
    if (edits.empty())
        return;
    out.begin("edts");
    out.beginFull("elst", 1, 0);
    out.u32(static_cast<std::uint32_t>(edits.size()));
    for (const Edit& edit : edits) {
        out.u64(edit.length);
        out.i64(edit.mediaTime);
        out.u32(0x10000);
    }
    out.end();
    out.end();
}

void mediaInformation(BoxWriter& out, const MovieTrack& track)
{
    out.begin("minf");
    if (track.format.isVideo()) {
        out.beginFull("vmhd", 0, 1);
        out.zeros(8);
    } else if (track.format.kind == TrackKind::Text) {
        out.beginFull("nmhd", 0, 0);
    } else {
        out.beginFull("smhd", 0, 0);
        out.zeros(4);
    }
    out.end();
    out.begin("dinf");
    out.beginFull("dref", 0, 0);
    out.u32(1);
    out.beginFull("url ", 0, 1); // in this file
    out.end();
    out.end();
    out.end();
    out.begin("stbl");
    out.beginFull("stsd", 0, 0);
    out.u32(1);
    out.bytes(track.format.sampleEntry.data(), track.format.sampleEntry.size());
    out.end();
    static const SampleTable empty;
    (track.table ? *track.table : empty).write(out);
    out.end();
    out.end();
}

void trackBox(BoxWriter& out, const Movie& movie, const MovieTrack& track)
{
    out.begin("trak");
    trackHeader(out, movie, track);
    editList(out, track.edits);
    out.begin("mdia");
    out.beginFull("mdhd", 1, 0);
    out.u64(secondsSince1904(movie.beginNs));
    out.u64(secondsSince1904(movie.beginNs));
    out.u32(track.format.timescale);
    out.u64(track.table ? track.table->decodeDuration() : 0);
    out.u16(0x55c4); // language "und"
    out.u16(0);
    out.end();
    out.beginFull("hdlr", 0, 0);
    out.u32(0);
    out.u32(textsOf(track.format.kind).handler);
    out.zeros(12);
    out.text(textsOf(track.format.kind).name);
    out.u8(0);
    out.end();
    mediaInformation(out, track);
    out.end();
    out.end();
}

void trackDefaults(BoxWriter& out, const std::vector<MovieTrack>& tracks)
{
    out.begin("mvex");
    for (const MovieTrack& track : tracks) {
        out.beginFull("trex", 0, 0);
        out.u32(track.format.trackId);
        out.u32(1); // sample description
        out.u32(0);
        out.u32(0);
        out.u32(0);
        out.end();
    }
    out.end();
}

void dataText(BoxWriter& out, const std::string& text)
{
    out.begin("data");
    out.u32(1); // UTF-8
    out.u32(0);
    out.text(text);
    out.end();
}

/// A tag with a name of its own, as iTunes writes them; ffprobe and mediainfo show it by that name.
void namedTag(BoxWriter& out, const std::string& name, const std::string& text)
{
    if (text.empty())
        return;
    out.begin("----");
    out.beginFull("mean", 0, 0);
    out.text("com.vemo");
    out.end();
    out.beginFull("name", 0, 0);
    out.text(name);
    out.end();
    dataText(out, text);
    out.end();
}

void tagList(BoxWriter& out, const Movie& movie)
{
    out.beginFull("meta", 0, 0);
    out.beginFull("hdlr", 0, 0);
    out.u32(0);
    out.u32(fourcc("mdir"));
    out.u32(fourcc("appl"));
    out.zeros(9);
    out.end();
    out.begin("ilst");
    if (!movie.tags.channelName.empty()) {
        out.begin("\251nam");
        dataText(out, movie.tags.channelName);
        out.end();
    }
    if (!movie.tags.deviceName.empty()) {
        out.begin("\251ART");
        dataText(out, movie.tags.deviceName);
        out.end();
    }
    namedTag(out, "com.vemo.start", isoUtcText(movie.beginNs));
    namedTag(out, "com.vemo.end", isoUtcText(movie.endNs));
    namedTag(out, "com.vemo.channel", movie.tags.channelName);
    namedTag(out, "com.vemo.recorder", movie.tags.deviceName);
    out.end();
    out.end();
}

/// Cuts at a character's edge.
std::string shortened(const std::string& text)
{
    std::size_t length = std::min(text.size(), maxTitleBytes);
    while (length > 0 && length < text.size() && (static_cast<std::uint8_t>(text[length]) & 0xc0) == 0x80)
        --length;
    return text.substr(0, length);
}

void chapterList(BoxWriter& out, const std::vector<Chapter>& chapters)
{
    if (chapters.empty())
        return;
    const std::size_t count = std::min(chapters.size(), maxChapters);
    out.beginFull("chpl", 1, 0);
    out.u32(0);
    out.u8(static_cast<std::uint8_t>(count));
    for (std::size_t i = 0; i < count; ++i) {
        const std::string title = shortened(chapters[i].title);
        out.i64(chapters[i].beginNs / 100);
        out.u8(static_cast<std::uint8_t>(title.size()));
        out.text(title);
    }
    out.end();
}

} // namespace

void MovieWriter::fileType(BoxWriter& out)
{
    out.begin("ftyp");
    out.u32(fourcc("isom"));
    out.u32(512);
    for (const std::uint32_t brand : {fourcc("isom"), fourcc("iso6"), fourcc("mp42"), fourcc("mp41")})
        out.u32(brand);
    out.end();
}

void MovieWriter::movie(BoxWriter& out, const Movie& movie, bool fragmented)
{
    const std::uint64_t begin = out.position();
    out.begin("moov");
    movieHeader(out, movie);
    for (const MovieTrack& track : movie.tracks)
        trackBox(out, movie, track);
    if (fragmented)
        trackDefaults(out, movie.tracks);
    out.begin("udta");
    tagList(out, movie);
    chapterList(out, movie.chapters);
    out.end();
    if (!fragmented) {
        const std::uint64_t used = out.position() - begin + 8;
        out.begin("free");
        out.zeros(static_cast<std::size_t>((used + blockBytes - 1) / blockBytes * blockBytes - used));
        out.end();
    }
    out.end();
}

} // namespace vaws
