#include "ReplayClient.h"

#include "ReplaySession.h"

#include <utility>

namespace vms_sdk::rtsp {

class ReplayClient::Private
{
public:
    explicit Private(ReplayRequest request)
        : session(std::move(request), nullptr)
    {}

    ReplaySession session;
};

ReplayClient::ReplayClient(ReplayRequest request, QObject* parent)
    : QObject(parent)
    , d(std::make_unique<Private>(std::move(request)))
{
    connect(&d->session, &ReplaySession::playing, this, &ReplayClient::playing);
    connect(&d->session, &ReplaySession::packets, this, &ReplayClient::packets);
    connect(&d->session, &ReplaySession::ended, this, &ReplayClient::ended);
    connect(&d->session, &ReplaySession::certificateJudged, this, &ReplayClient::certificateRefused);
}

ReplayClient::~ReplayClient() = default;

void ReplayClient::start()
{
    d->session.start();
}

void ReplayClient::pause()
{
    d->session.pause();
}

void ReplayClient::resume()
{
    d->session.resume();
}

void ReplayClient::setScale(double speed)
{
    d->session.setScale(speed);
}

void ReplayClient::seek(qint64 beginNs)
{
    d->session.seek(beginNs);
}

void ReplayClient::stop()
{
    d->session.stop();
}

void ReplayClient::returnCredit(qint64 bytes)
{
    d->session.returnCredit(bytes);
}

qint64 ReplayClient::bytesReceived() const
{
    return d->session.bytesReceived();
}

qint64 ReplayClient::lastTimeNs() const
{
    return d->session.lastTimeNs();
}

} // namespace vms_sdk::rtsp
