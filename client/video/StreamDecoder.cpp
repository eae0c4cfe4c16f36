#include "StreamDecoder.h"

#include "PlaybackClock.h"

namespace vemo_client {

class DecodeMailbox final
{};

class DecodeThread final
{};

StreamDecoder::StreamDecoder(QObject* parent)
    : QObject(parent)
{}

StreamDecoder::~StreamDecoder() = default;

void StreamDecoder::push(const QByteArray& vavFrames)
{
    emit signalConsumed(vavFrames.size());
}

void StreamDecoder::reset() {}

void StreamDecoder::setTargetSize(const QSize&) {}

void StreamDecoder::setOutput(Output output, PlaybackClock* clock)
{
    m_output = output;
    m_clock = clock;
}

void StreamDecoder::stepForward() {}

void StreamDecoder::requestFullPicture()
{
    emit signalFullPicture({}, 0);
}

qint64 StreamDecoder::queuedUntilUtcNs() const
{
    return 0;
}

qint64 StreamDecoder::waitingBytes() const
{
    return 0;
}

} // namespace vemo_client
