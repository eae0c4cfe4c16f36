#include "DecodeWorker.h"

#include "DecodeLibrary.h"
#include "PlaybackClock.h"

#include <cmath>
#include <new>

namespace vemo_client {

namespace {

constexpr qint64 nsPerMs = 1'000'000;
constexpr qint64 hurryBehindNs = 300 * nsPerMs;
constexpr qint64 dropBehindNs = 3000 * nsPerMs; ///< of live video: better begin anew at the next key frame
constexpr int longestSkipMs = 100;              ///< something moves while late pictures are left out
constexpr int problemAfterMs = 1000;
constexpr int keyPatienceMs = 10'000;
constexpr int rateFrames = 20;
constexpr double rateStep = 0.4; ///< below that a frame rate is the same
constexpr int mostImages = DecodeMailbox::mostPictures + 4;

QString codecName(vav::Codec codec)
{
    switch (codec) {
    case vav::Codec::H264:
        return QStringLiteral("H.264");
    case vav::Codec::H265:
        return QStringLiteral("H.265");
    case vav::Codec::Mjpeg:
        return QStringLiteral("MJPEG");
    default:
        return {};
    }
}

constexpr std::size_t rowAlignment = 64;
constexpr std::size_t bytesPerPixel = 4;

void freeRows(void* rows)
{
    ::operator delete(rows, std::align_val_t(rowAlignment));
}

/// With room behind each row: the scaler writes in wide steps, beyond the end of a row that is no multiple of them.
QImage paddedImage(const QSize& size)
{
    const auto width = static_cast<std::size_t>(size.width());
    const std::size_t stride = (width * bytesPerPixel / rowAlignment + 3) * rowAlignment;
    void* rows =
        ::operator new(stride* static_cast<std::size_t>(size.height()), std::align_val_t(rowAlignment), std::nothrow);
    if (!rows)
        return {};
    return QImage(static_cast<uchar*>(rows), size.width(), size.height(), static_cast<int>(stride),
                  QImage::Format_RGB32, freeRows, rows);
}

} // namespace

DecodeWorker::DecodeWorker(std::shared_ptr<DecodeMailbox> mailbox, std::function<void()> tell)
    : m_mailbox(std::move(mailbox))
    , m_tell(std::move(tell))
{}

DecodeWorker::~DecodeWorker() = default;

void DecodeWorker::wake()
{
    if (!m_wakePosted.exchange(true))
        QMetaObject::invokeMethod(this, &DecodeWorker::work, Qt::QueuedConnection);
}

void DecodeWorker::work()
{
    m_wakePosted = false;
    while (!m_stopped) {
        const DecodeMailbox::Order order = m_mailbox->takeOrder();
        if (order.generation != m_generation) {
            m_generation = order.generation;
            m_pending.reset();
            m_waitsForKey = true;
            m_failedSincePicture = false;
            m_sincePicture.start();
            m_rateFrames = 0;
            if (m_decoder)
                m_decoder->flush();
        }
        if (order.redraw)
            m_mailbox->addRedrawn({draw(order.redraw, order.target), order.redraw, order.target});
        if (order.full)
            m_mailbox->addFull(draw(order.full, {order.full->shownWidth, order.full->shownHeight}));
        if (order.unit) {
            takeUnit(order);
            m_mailbox->addConsumed(order.unit->bytes);
        }
        if (order.isLastUnit)
            showPending(order);
        m_tell();
        if (!order.unit)
            return;
    }
}

void DecodeWorker::takeUnit(const DecodeMailbox::Order& order)
{
    if (!m_triedLibrary) {
        m_triedLibrary = true;
        m_decoder = DecodeLibrary::createDecoder();
        if (!m_decoder)
            setProblem(tr("The library that decodes video is missing. Installing the client anew brings it back."));
    }
    if (!m_decoder)
        return;
    if (order.unit->info)
        takeInfo(*order.unit->info);
    else
        takeFrame(order);
}

void DecodeWorker::takeInfo(const vav::StreamInfo& info)
{
    const vav::TrackInfo* video = nullptr;
    for (const vav::TrackInfo& track : info.tracks) {
        if (vav::isVideo(track.codec) && !video)
            video = &track;
    }
    if (!video) {
        m_codec = vav::Codec::Unknown;
        return setProblem(tr("This channel sends no pictures that the client can show."));
    }
    if (video->codec != m_codec) {
        m_codec = video->codec;
        m_waitsForKey = true;
        m_pending.reset();
        if (!m_decoder->open(m_codec, video->parameterSets)) {
            m_codec = vav::Codec::Unknown;
            setProblem(tr("Video of this kind can't be shown on this computer."));
        } else {
            setProblem({});
        }
    } else if (video->parameterSets != m_parameterSets) {
        m_decoder->setParameterSets(video->parameterSets);
    }
    m_parameterSets = video->parameterSets;
    m_sincePicture.start();
}

/// What is still inside comes before the gap; behind it only a key frame is of use.
void DecodeWorker::takeGap(const vav::FrameHeader& header, const DecodeMailbox::Order& order)
{
    if (!(header.flags & (vav::Discontinuity | vav::LossBefore)) || m_waitsForKey)
        return;
    m_decoder->drain();
    receive(order);
    m_decoder->flush();
    m_waitsForKey = true;
    m_rateFrames = 0;
}

void DecodeWorker::setHurry(const DecodeMailbox::Order& order)
{
    const PlaybackClock* clock = m_clock;
    const qint64 behindNs = clock ? clock->utcNs() - order.unit->header.timeNs : order.behindNs;
    m_decoder->setHurried(behindNs > hurryBehindNs);
}

void DecodeWorker::takeFrame(const DecodeMailbox::Order& order)
{
    if (m_codec == vav::Codec::Unknown)
        return;
    const vav::FrameHeader& header = order.unit->header;
    const bool isKey = header.flags & vav::KeyFrame;
    takeGap(header, order);
    if (!m_clock && !isKey && order.behindNs > dropBehindNs)
        m_waitsForKey = true;
    if (m_waitsForKey && !isKey)
        return noteProblem();
    if (m_waitsForKey) {
        m_decoder->flush();
        m_waitsForKey = false;
    }
    noteRate(header);
    setHurry(order);
    if (!m_decoder->send({order.unit->payload, header.payloadBytes, header.timeNs}))
        m_failedSincePicture = true;
    receive(order);
    if (header.flags & vav::EndOfRecording) {
        m_decoder->drain();
        receive(order);
        m_decoder->flush();
        m_waitsForKey = true;
    }
    noteProblem();
}

void DecodeWorker::receive(const DecodeMailbox::Order& order)
{
    while (DecodeMailbox::Frame frame = m_decoder->receive()) {
        m_sincePicture.start();
        m_failedSincePicture = false;
        setProblem({});
        noteFormat(*frame);
        takePicture(std::move(frame), order);
    }
}

bool DecodeWorker::isLate(qint64 timeNs) const
{
    const PlaybackClock* clock = m_clock;
    return !clock || timeNs <= clock->utcNs();
}

/// A picture that is due may be overtaken by the next one; what is not due yet waits for the clock in the mailbox.
void DecodeWorker::takePicture(DecodeMailbox::Frame frame, const DecodeMailbox::Order& order)
{
    if (!isLate(frame->timeNs) || !m_sinceDrawn.isValid() || m_sinceDrawn.elapsed() > longestSkipMs)
        showPending(order);
    m_pending = std::move(frame);
    if (!isLate(m_pending->timeNs) || !m_sinceDrawn.isValid())
        showPending(order);
}

void DecodeWorker::showPending(const DecodeMailbox::Order& order)
{
    const DecodeMailbox::Frame frame = std::exchange(m_pending, nullptr);
    if (!frame)
        return;
    DecodeMailbox::Shot shot{{{}, frame->timeNs}, frame, order.target};
    if (!order.target.isEmpty())
        shot.picture = draw(frame, order.target);
    m_sinceDrawn.start();
    m_mailbox->addPicture(shot, m_generation);
}

/// By what is sent, since pictures are left out when decoding is late; from key frame to key frame, since the times in
/// between are not in their order.
void DecodeWorker::noteRate(const vav::FrameHeader& header)
{
    if ((header.flags & vav::KeyFrame) && (m_rateFrames == 0 || m_rateFrames >= rateFrames)) {
        const qint64 spanNs = header.timeNs - m_rateBeginNs;
        if (m_rateFrames > 0 && spanNs > 0)
            m_fps = double(m_rateFrames) * 1e9 / double(spanNs);
        m_rateBeginNs = header.timeNs;
        m_rateFrames = 0;
    }
    ++m_rateFrames;
}

void DecodeWorker::noteFormat(const vemo_decode::Frame& frame)
{
    VideoFormat format = m_format;
    format.codec = codecName(m_codec);
    format.size = {frame.width, frame.height};
    format.shape = {frame.shownWidth, frame.shownHeight};
    format.decoder = QString::fromLatin1(m_decoder->device());
    if (std::abs(m_fps - format.fps) > rateStep)
        format.fps = m_fps;
    if (format != m_format) {
        m_format = format;
        m_mailbox->addFormat(format);
    }
}

void DecodeWorker::noteProblem()
{
    if (m_failedSincePicture && m_sincePicture.hasExpired(problemAfterMs))
        setProblem(tr("The pictures of this channel are damaged and can't be decoded."));
    else if (m_waitsForKey && m_sincePicture.hasExpired(keyPatienceMs))
        setProblem(tr("This channel has not sent a complete picture yet."));
}

void DecodeWorker::setProblem(const QString& sentence)
{
    if (sentence == m_problem)
        return;
    m_problem = sentence;
    m_mailbox->addProblem(sentence);
}

/// The size is that of the room, of which the picture takes what its proportions allow, and never more than it has.
VideoPicture DecodeWorker::draw(const DecodeMailbox::Frame& frame, const QSize& size)
{
    const QSize shown(frame->shownWidth, frame->shownHeight);
    QSize room = shown.scaled(size, Qt::KeepAspectRatio);
    if (room.width() > shown.width())
        room = shown;
    QImage* image = freeImage(room.expandedTo({1, 1}));
    const bool drawn = image && m_decoder->draw(*frame, image->width(), image->height(), image->bits(),
                                                static_cast<int>(image->bytesPerLine()));
    return {drawn ? *image : QImage(), frame->timeNs};
}

QImage* DecodeWorker::freeImage(const QSize& size)
{
    for (QImage& image : m_images) {
        if (!image.isDetached())
            continue;
        if (image.size() != size)
            image = paddedImage(size);
        return image.isNull() ? nullptr : &image;
    }
    if (m_images.size() >= mostImages)
        m_images.removeFirst(); // whoever holds it has it alone now
    m_images.append(paddedImage(size));
    return m_images.last().isNull() ? nullptr : &m_images.last();
}

} // namespace vemo_client
