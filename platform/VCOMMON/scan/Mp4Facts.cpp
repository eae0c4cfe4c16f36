#include "Mp4Facts.h"

#include <QDateTime>
#include <QIODevice>
#include <QtEndian>
#include <QVector>

#include <algorithm>

namespace VCOMMON {

namespace {

constexpr int maxTopBoxes = 200'000;           // a day of fragments of two seconds, with what may lie between them
constexpr int maxBoxes = maxTopBoxes + 20'000; // of a whole file
constexpr int maxChildren = 256;
constexpr int maxTracks = 64;
constexpr int maxRuns = 256;
constexpr qint64 maxLeafBytes = 4096;
constexpr qint64 maxTagBytes = 256 * 1024;
constexpr qint64 maxFragmentHeadBytes = 256 * 1024;
constexpr qint64 maxDurationMs = 366LL * 24 * 3600 * 1000;
constexpr qint64 secondsFrom1904To1970 = 2'082'844'800;

struct Box
{
    QByteArray type;
    qint64 begin = 0; ///< of the payload
    qint64 end = 0;
};

struct Track
{
    quint32 id = 0;
    quint32 timescale = 0;
    quint32 defaultDuration = 0; ///< of a sample, in fragments
};

/// Big-endian numbers one after the other; zeros past the end, and then isGood() is false.
class Numbers final
{
public:
    explicit Numbers(QByteArray bytes)
        : m_bytes(std::move(bytes))
    {}

    bool isGood() const { return m_isGood; }
    quint32 u32() { return static_cast<quint32>(take(4)); }
    quint64 u64() { return take(8); }
    /// 64 bits in version 1 of a box, 32 in version 0.
    quint64 sized(quint32 version) { return version == 1 ? u64() : u32(); }
    void skip(int bytes)
    {
        m_at += bytes;
        m_isGood = m_isGood && m_at <= m_bytes.size();
    }

private:
    quint64 take(int bytes)
    {
        const int from = m_at;
        skip(bytes);
        if (!m_isGood)
            return 0;
        const char* data = m_bytes.constData() + from;
        return bytes == 8 ? qFromBigEndian<quint64>(data) : qFromBigEndian<quint32>(data);
    }

    QByteArray m_bytes;
    int m_at = 0;
    bool m_isGood = true;
};

class Reader final
{
public:
    explicit Reader(QIODevice& device)
        : m_device(device)
        , m_length(device.size())
    {}

    Mp4Facts read();

private:
    Box boxAt(qint64 offset, qint64 limit);
    QByteArray bytesOf(const Box& box, qint64 limit);
    template <class Take>
    void forChildren(const Box& parent, Take take);
    void readMovie(const Box& movie);
    void readMovieHeader(const Box& box);
    void readTrack(const Box& box);
    void readDefaults(const Box& box);
    void readTags(const Box& box);
    void readFragments();
    qint64 fragmentEndMs(const Box& fragment, bool ofBegin);
    double runLength(const Box& run, quint32 defaultDuration);

    QIODevice& m_device;
    const qint64 m_length;
    int m_boxes = 0; ///< read so far
    Mp4Facts m_facts;
    QVector<Track> m_tracks;
    Box m_firstFragment;
    Box m_lastFragment;
};

/// The box at `offset`: without a type when there is none, with an end past `limit` when it is cut.
Box Reader::boxAt(qint64 offset, qint64 limit)
{
    constexpr int headBytes = 16;
    Box box;
    if (limit - offset < 8 || ++m_boxes > maxBoxes || !m_device.seek(offset))
        return box;
    const QByteArray head = m_device.read(headBytes);
    if (head.size() < 8)
        return box;
    qint64 size = qFromBigEndian<quint32>(head.constData());
    qint64 headSize = 8;
    if (size == 1) {
        if (head.size() < headBytes)
            return box;
        size = qFromBigEndian<qint64>(head.constData() + 8);
        headSize = headBytes;
    } else if (size == 0) {
        size = limit - offset; // to the end of the file
    }
    if (size < headSize || size > (std::numeric_limits<qint64>::max)() - offset)
        return box;
    box.type = head.mid(4, 4);
    box.begin = offset + headSize;
    box.end = offset + size;
    return box;
}

QByteArray Reader::bytesOf(const Box& box, qint64 limit)
{
    if (box.end < box.begin || !m_device.seek(box.begin))
        return {};
    return m_device.read(std::min(box.end - box.begin, limit));
}

template <class Take>
void Reader::forChildren(const Box& parent, Take take)
{
    qint64 offset = parent.begin;
    for (int count = 0; count < maxChildren && offset < parent.end; ++count) {
        const Box box = boxAt(offset, parent.end);
        if (box.type.isEmpty() || box.end > parent.end)
            return;
        take(box);
        offset = box.end;
    }
}

void Reader::readMovieHeader(const Box& box)
{
    Numbers in(bytesOf(box, maxLeafBytes));
    const quint32 version = in.u32() >> 24;
    const quint64 created = in.sized(version);
    in.sized(version);
    const quint32 timescale = in.u32();
    const quint64 length = in.sized(version);
    if (!in.isGood())
        return;
    constexpr quint64 latest = secondsFrom1904To1970 * 4;
    if (created > static_cast<quint64>(secondsFrom1904To1970) && created < latest)
        m_facts.createdUtcMs = (static_cast<qint64>(created) - secondsFrom1904To1970) * 1000;
    const bool isTold = version == 1 ? length != ~quint64(0) : length != ~quint32(0);
    if (timescale > 0 && isTold) {
        const double ms = double(length) * 1000 / timescale;
        m_facts.durationMs = ms < double(maxDurationMs) ? static_cast<qint64>(ms + 0.5) : 0;
    }
}

void Reader::readTrack(const Box& box)
{
    Track track;
    forChildren(box, [&](const Box& part) {
        if (part.type == "tkhd") {
            Numbers in(bytesOf(part, maxLeafBytes));
            const quint32 version = in.u32() >> 24;
            in.skip(version == 1 ? 16 : 8);
            track.id = in.u32();
        } else if (part.type == "mdia") {
            forChildren(part, [&](const Box& leaf) {
                if (leaf.type != "mdhd")
                    return;
                Numbers in(bytesOf(leaf, maxLeafBytes));
                const quint32 version = in.u32() >> 24;
                in.skip(version == 1 ? 16 : 8);
                track.timescale = in.u32();
            });
        }
    });
    if (track.id != 0 && track.timescale != 0 && m_tracks.size() < maxTracks)
        m_tracks.append(track);
}

void Reader::readDefaults(const Box& box)
{
    forChildren(box, [&](const Box& part) {
        if (part.type != "trex")
            return;
        Numbers in(bytesOf(part, maxLeafBytes));
        in.skip(4);
        const quint32 id = in.u32();
        in.skip(4);
        const quint32 duration = in.u32();
        for (Track& track : m_tracks)
            track.defaultDuration = track.id == id ? duration : track.defaultDuration;
    });
}

/// The text of a tag "----" (mean, name, data) of that name; empty when there is none.
QByteArray tagText(const QByteArray& tags, const QByteArray& name)
{
    constexpr int dataHeadBytes = 16; // size, "data", type, locale
    constexpr qint64 maxTextBytes = 4096;
    const int at = tags.indexOf(name);
    const int data = at < 0 ? -1 : tags.indexOf("data", at + name.size());
    if (data < 4 || data != at + name.size() + 4)
        return {};
    const qint64 size = qFromBigEndian<quint32>(tags.constData() + data - 4);
    if (size <= dataHeadBytes || size > dataHeadBytes + maxTextBytes || data - 4 + size > tags.size())
        return {};
    return tags.mid(data - 4 + dataHeadBytes, static_cast<int>(size) - dataHeadBytes);
}

void Reader::readTags(const Box& box)
{
    const QByteArray tags = bytesOf(box, maxTagBytes);
    const auto time = [&tags](const char* name) {
        const QDateTime told = QDateTime::fromString(QString::fromLatin1(tagText(tags, name)), Qt::ISODateWithMs);
        return told.isValid() ? told.toMSecsSinceEpoch() : -1;
    };
    m_facts.beginUtcMs = time("com.vemo.start");
    m_facts.endUtcMs = time("com.vemo.end");
    m_facts.channelName = QString::fromUtf8(tagText(tags, "com.vemo.channel"));
    m_facts.recorderName = QString::fromUtf8(tagText(tags, "com.vemo.recorder"));
}

void Reader::readMovie(const Box& movie)
{
    m_tracks.clear(); // a file that was finished in place has a second one, which counts
    m_facts.durationMs = 0;
    forChildren(movie, [&](const Box& part) {
        if (part.type == "mvhd")
            readMovieHeader(part);
        else if (part.type == "trak")
            readTrack(part);
        else if (part.type == "mvex")
            readDefaults(part);
        else if (part.type == "udta")
            readTags(part);
    });
    m_facts.hasMovie = !m_tracks.isEmpty();
}

/// Length of all samples in a track's run, in its timescale; numbers that lie may exceed every integer.
double Reader::runLength(const Box& run, quint32 defaultDuration)
{
    const QByteArray bytes = bytesOf(run, maxFragmentHeadBytes);
    Numbers in(bytes);
    const quint32 flags = in.u32() & 0xffffff;
    const quint32 count = in.u32();
    in.skip((flags & 0x1 ? 4 : 0) + (flags & 0x4 ? 4 : 0));
    if (!(flags & 0x100))
        return double(count) * defaultDuration;
    const int others = (flags & 0x200 ? 4 : 0) + (flags & 0x400 ? 4 : 0) + (flags & 0x800 ? 4 : 0);
    double length = 0;
    for (quint32 sample = 0; sample < count && in.isGood(); ++sample) {
        length += in.u32();
        in.skip(others);
    }
    return length;
}

/// When the fragment's longest track begins or ends, counted from the file's own zero.
qint64 Reader::fragmentEndMs(const Box& fragment, bool ofBegin)
{
    qint64 found = -1;
    int runs = 0;
    forChildren(fragment, [&](const Box& part) {
        if (part.type != "traf")
            return;
        Track track;
        quint64 decodeTime = 0;
        double length = 0;
        forChildren(part, [&](const Box& leaf) {
            if (leaf.type == "tfhd") {
                Numbers in(bytesOf(leaf, maxLeafBytes));
                const quint32 flags = in.u32() & 0xffffff;
                const quint32 id = in.u32();
                for (const Track& known : qAsConst(m_tracks))
                    track = known.id == id ? known : track;
                in.skip((flags & 0x1 ? 8 : 0) + (flags & 0x2 ? 4 : 0));
                if (flags & 0x8)
                    track.defaultDuration = in.u32();
            } else if (leaf.type == "tfdt") {
                Numbers in(bytesOf(leaf, maxLeafBytes));
                decodeTime = in.sized(in.u32() >> 24);
            } else if (leaf.type == "trun" && ++runs <= maxRuns) {
                length += runLength(leaf, track.defaultDuration);
            }
        });
        if (track.timescale == 0)
            return;
        const double ms = (double(decodeTime) + (ofBegin ? 0.0 : length)) * 1000 / track.timescale;
        if (ms < 0 || ms > double(maxDurationMs))
            return;
        const auto time = static_cast<qint64>(ms + 0.5);
        found = found < 0 ? time : ofBegin ? qMin(found, time) : qMax(found, time);
    });
    return found;
}

void Reader::readFragments()
{
    const qint64 begin = fragmentEndMs(m_firstFragment, true);
    const qint64 end = fragmentEndMs(m_lastFragment, false);
    if (begin >= 0 && end > begin)
        m_facts.durationMs = qMax(m_facts.durationMs, end - begin);
}

Mp4Facts Reader::read()
{
    Box fragment; // its data is still to come
    qint64 offset = 0;
    for (int count = 0; count < maxTopBoxes && offset < m_length; ++count) {
        const Box box = boxAt(offset, m_length);
        if (box.type.isEmpty()) {
            m_facts.isCut = m_facts.isMp4;
            m_facts.neededBytes = offset + 8;
            break;
        }
        if (count == 0 && box.type != "ftyp" && box.type != "moov" && box.type != "styp" && box.type != "free" &&
            box.type != "skip" && box.type != "mdat" && box.type != "wide")
            break;
        m_facts.isMp4 = true;
        if (box.end > m_length) {
            m_facts.isCut = true;
            m_facts.neededBytes = box.end;
            break;
        }
        if (box.type == "moov") {
            readMovie(box);
        } else if (box.type == "moof") {
            fragment = box;
        } else if (box.type == "mdat" && !fragment.type.isEmpty()) {
            if (m_facts.fragments++ == 0)
                m_firstFragment = fragment;
            m_lastFragment = fragment;
            fragment = Box();
        }
        offset = box.end;
    }
    if (m_facts.fragments > 0)
        readFragments();
    return m_facts;
}

} // namespace

Mp4Facts Mp4Facts::read(QIODevice& device)
{
    return Reader(device).read();
}

} // namespace VCOMMON
