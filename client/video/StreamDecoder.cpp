#include "StreamDecoder.h"

#include "DecodeMailbox.h"
#include "DecodeThread.h"
#include "PlaybackClock.h"

namespace vemo_client {

StreamDecoder::StreamDecoder(QObject* parent)
    : QObject(parent)
    , m_mailbox(std::make_shared<DecodeMailbox>())
{
    connect(this, &StreamDecoder::signalTold, this, &StreamDecoder::takeResults, Qt::QueuedConnection);
}

StreamDecoder::~StreamDecoder() = default;

void StreamDecoder::push(const QByteArray& vavFrames)
{
    if (!m_thread) {
        m_thread = std::make_unique<DecodeThread>(m_mailbox, [this] {
            if (!m_isTold.exchange(true))
                emit signalTold({});
        });
        m_thread->worker().setClock(m_output == Output::Clocked ? m_clock.data() : nullptr);
    }
    const qint64 done = m_mailbox->push(vavFrames, limitBytes);
    m_thread->worker().wake();
    if (done > 0)
        emit signalConsumed(done);
}

void StreamDecoder::reset()
{
    const qint64 dropped = m_mailbox->reset();
    if (m_thread)
        m_thread->worker().wake();
    if (dropped > 0)
        emit signalConsumed(dropped);
}

void StreamDecoder::setTargetSize(const QSize& devicePixels)
{
    m_mailbox->setTarget(devicePixels);
    if (m_thread)
        m_thread->worker().wake();
}

void StreamDecoder::setOutput(Output output, PlaybackClock* clock)
{
    if (m_clock)
        m_clock->disconnect(this);
    m_output = clock ? output : Output::Newest;
    m_clock = clock;
    m_mailbox->setClocked(m_output == Output::Clocked);
    if (m_thread)
        m_thread->worker().setClock(m_output == Output::Clocked ? clock : nullptr);
    if (m_output == Output::Clocked)
        connect(clock, &PlaybackClock::signalChanged, this, &StreamDecoder::takeDuePictures);
}

void StreamDecoder::stepForward()
{
    if (m_mailbox->takeNext(&m_picture)) {
        emit signalPicture();
        if (m_thread)
            m_thread->worker().wake();
    }
}

void StreamDecoder::requestFullPicture()
{
    m_mailbox->wantFull();
    if (m_thread)
        m_thread->worker().wake();
    else
        emit signalFullPicture({}, 0);
}

qint64 StreamDecoder::queuedUntilUtcNs() const
{
    return m_mailbox->queuedUntilNs();
}

qint64 StreamDecoder::waitingBytes() const
{
    return m_mailbox->waitingBytes();
}

void StreamDecoder::takeDuePictures()
{
    if (m_output != Output::Clocked || !m_clock || !m_mailbox->takeDue(m_clock->utcNs(), &m_picture))
        return;
    if (m_thread)
        m_thread->worker().wake();
    if (!m_picture.isNull())
        emit signalPicture();
}

void StreamDecoder::takeResults()
{
    m_isTold = false;
    const DecodeMailbox::Results results = m_mailbox->takeResults();
    if (results.format) {
        m_format = *results.format;
        emit signalFormat(m_format);
    }
    if (results.picture) {
        m_picture = *results.picture;
        if (!m_picture.isNull())
            emit signalPicture();
    }
    takeDuePictures();
    if (results.problem)
        emit signalProblem(*results.problem);
    if (results.full)
        emit signalFullPicture(results.full->image, results.full->utcNs);
    if (results.consumedBytes > 0)
        emit signalConsumed(results.consumedBytes);
}

} // namespace vemo_client
