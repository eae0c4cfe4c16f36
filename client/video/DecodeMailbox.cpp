#include "DecodeMailbox.h"

#include <QMutexLocker>

#include <utility>

namespace vemo_client {

namespace {

/// No more of unread small packets than this; a stream of live video has a few hundred a second.
constexpr std::size_t mostUnits = 20'000;

} // namespace

qint64 DecodeMailbox::push(const QByteArray& batch, qint64 limitBytes)
{
    std::deque<Unit> units;
    qint64 unitBytes = 0;
    vav::PacketReader reader(batch.constData(), static_cast<std::size_t>(batch.size()));
    while (reader.next() == vav::PacketReader::Status::Packet) {
        Unit unit;
        if (reader.kind() == vav::PacketKind::StreamInfo) {
            const vav::StreamInfo& info = reader.streamInfo();
            unit.info = std::make_shared<const vav::StreamInfo>(info);
            for (auto track = info.tracks.rbegin(); track != info.tracks.rend(); ++track) {
                if (vav::isVideo(track->codec))
                    m_videoTrack = track->track;
            }
        } else if (reader.frame().track == m_videoTrack) {
            unit.batch = batch;
            unit.payload = reader.payload();
            unit.header = reader.frame();
            unit.bytes = static_cast<qint64>(vav::headerBytes) + unit.header.payloadBytes;
        } else {
            continue;
        }
        unitBytes += unit.bytes;
        units.push_back(std::move(unit));
    }

    const QMutexLocker lock(&m_mutex);
    qint64 dropped = batch.size() - unitBytes;
    if (m_unitBytes + unitBytes > limitBytes || m_units.size() + units.size() > mostUnits) {
        dropped += m_unitBytes;
        m_units.clear();
        m_unitBytes = 0;
        m_waitsForKey = true;
    }
    for (Unit& unit : units) {
        if (!unit.info && m_waitsForKey && !(unit.header.flags & vav::KeyFrame)) {
            dropped += unit.bytes;
            continue;
        }
        if (!unit.info && m_waitsForKey)
            unit.header.flags |= vav::LossBefore;
        m_waitsForKey = m_waitsForKey && unit.info;
        m_unitBytes += unit.bytes;
        m_units.push_back(std::move(unit));
    }
    return dropped;
}

qint64 DecodeMailbox::reset()
{
    const QMutexLocker lock(&m_mutex);
    ++m_generation;
    // What the frames are holds beyond the frames themselves.
    std::shared_ptr<const vav::StreamInfo> info;
    for (const Unit& unit : m_units) {
        if (unit.info)
            info = unit.info;
    }
    m_units.clear();
    if (info) {
        Unit unit;
        unit.info = info;
        m_units.push_back(unit);
    }
    m_pictures.clear();
    m_isShownOld = true;
    m_stepWanted = false;
    m_waitsForKey = false;
    m_results.picture.reset();
    return std::exchange(m_unitBytes, 0);
}

void DecodeMailbox::setTarget(const QSize& target)
{
    const QMutexLocker lock(&m_mutex);
    m_target = target;
}

void DecodeMailbox::setClocked(bool clocked)
{
    const QMutexLocker lock(&m_mutex);
    m_clocked = clocked;
}

void DecodeMailbox::wantFull()
{
    const QMutexLocker lock(&m_mutex);
    m_fullWanted = true;
}

void DecodeMailbox::showFirst()
{
    m_shown = m_pictures.front();
    m_isShownOld = false;
    m_pictures.pop_front();
}

bool DecodeMailbox::takeDue(qint64 utcNs, VideoPicture* picture)
{
    const QMutexLocker lock(&m_mutex);
    bool taken = false;
    while (!m_pictures.empty() && m_pictures.front().picture.utcNs <= utcNs) {
        showFirst();
        taken = true;
    }
    if (taken)
        *picture = m_shown.picture;
    return taken;
}

bool DecodeMailbox::takeNext(VideoPicture* picture)
{
    const QMutexLocker lock(&m_mutex);
    m_stepWanted = m_pictures.empty();
    if (m_stepWanted)
        return false;
    showFirst();
    *picture = m_shown.picture;
    return true;
}

DecodeMailbox::Results DecodeMailbox::takeResults()
{
    const QMutexLocker lock(&m_mutex);
    return std::exchange(m_results, {});
}

qint64 DecodeMailbox::queuedUntilNs() const
{
    const QMutexLocker lock(&m_mutex);
    if (!m_pictures.empty())
        return m_pictures.back().picture.utcNs;
    return m_isShownOld ? 0 : m_shown.picture.utcNs;
}

qint64 DecodeMailbox::waitingBytes() const
{
    const QMutexLocker lock(&m_mutex);
    return m_unitBytes + m_inWork + m_results.consumedBytes;
}

DecodeMailbox::Order DecodeMailbox::takeOrder()
{
    const QMutexLocker lock(&m_mutex);
    Order order;
    order.generation = m_generation;
    order.target = m_target;
    if (std::exchange(m_fullWanted, false)) {
        order.full = m_shown.frame;
        if (!order.full)
            m_results.full = VideoPicture();
    }
    if (m_shown.frame && m_shown.target != m_target && !m_target.isEmpty()) {
        order.redraw = m_shown.frame;
        m_shown.target = m_target;
    }
    const bool isFull = m_clocked && m_pictures.size() >= mostPictures;
    if (!m_units.empty() && !isFull) {
        order.behindNs = m_units.back().header.timeNs - m_units.front().header.timeNs;
        order.unit = std::move(m_units.front());
        m_units.pop_front();
        m_unitBytes -= order.unit->bytes;
        m_inWork += order.unit->bytes;
    }
    order.isLastUnit = m_units.empty();
    return order;
}

void DecodeMailbox::addConsumed(qint64 bytes)
{
    const QMutexLocker lock(&m_mutex);
    m_inWork -= bytes;
    m_results.consumedBytes += bytes;
}

void DecodeMailbox::addPicture(const Shot& shot, quint64 generation)
{
    const QMutexLocker lock(&m_mutex);
    if (generation != m_generation)
        return;
    if (m_clocked && !std::exchange(m_stepWanted, false)) {
        m_pictures.push_back(shot);
        return;
    }
    m_shown = shot;
    m_isShownOld = false;
    m_results.picture = shot.picture;
}

void DecodeMailbox::addRedrawn(const Shot& shot)
{
    const QMutexLocker lock(&m_mutex);
    if (m_shown.frame != shot.frame)
        return;
    m_shown = shot;
    m_results.picture = shot.picture;
}

void DecodeMailbox::addFull(const VideoPicture& picture)
{
    const QMutexLocker lock(&m_mutex);
    m_results.full = picture;
}

void DecodeMailbox::addFormat(const VideoFormat& format)
{
    const QMutexLocker lock(&m_mutex);
    m_results.format = format;
}

void DecodeMailbox::addProblem(const QString& sentence)
{
    const QMutexLocker lock(&m_mutex);
    m_results.problem = sentence;
}

} // namespace vemo_client
