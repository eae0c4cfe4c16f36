#include "StreamClient.h"

#include "StreamSession.h"

#include <utility>

namespace vms_sdk::rtsp {

class StreamClient::Private
{
public:
    explicit Private(StreamRequest request)
        : session(std::move(request), nullptr)
    {}

    StreamSession session;
};

StreamClient::StreamClient(StreamRequest request, QObject* parent)
    : QObject(parent)
    , d(std::make_unique<Private>(std::move(request)))
{
    connect(&d->session, &StreamSession::playing, this, &StreamClient::playing);
    connect(&d->session, &StreamSession::packets, this, &StreamClient::packets);
    connect(&d->session, &StreamSession::ended, this, &StreamClient::ended);
    connect(&d->session, &StreamSession::certificateJudged, this, &StreamClient::certificateRefused);
}

StreamClient::~StreamClient() = default;

void StreamClient::start()
{
    d->session.start();
}

void StreamClient::pause()
{
    d->session.pause();
}

void StreamClient::resume()
{
    d->session.resume();
}

void StreamClient::setScale(double speed)
{
    d->session.setScale(speed);
}

void StreamClient::seek(qint64 beginNs)
{
    d->session.seek(beginNs);
}

void StreamClient::stop()
{
    d->session.stop();
}

void StreamClient::returnCredit(qint64 bytes)
{
    d->session.returnCredit(bytes);
}

qint64 StreamClient::bytesReceived() const
{
    return d->session.bytesReceived();
}

qint64 StreamClient::lastTimeNs() const
{
    return d->session.lastTimeNs();
}

} // namespace vms_sdk::rtsp
