#include "ReplayClient.h"

#include <utility>

namespace vms_sdk::rtsp {

class ReplayClient::Private
{
public:
    ReplayRequest request;
};

ReplayClient::ReplayClient(ReplayRequest request, QObject* parent)
    : QObject(parent)
    , d(std::make_unique<Private>())
{
    d->request = std::move(request);
}

ReplayClient::~ReplayClient() = default;

void ReplayClient::start()
{
    emit ended(ReplayEnd::Failed, Error{ErrorKind::Unsupported, tr("Replay is not supported."), QString()});
}

void ReplayClient::pause() {}
void ReplayClient::resume() {}
void ReplayClient::setScale(double) {}
void ReplayClient::stop() {}
void ReplayClient::returnCredit(qint64) {}
qint64 ReplayClient::bytesReceived() const
{
    return 0;
}
qint64 ReplayClient::lastTimeNs() const
{
    return 0;
}

} // namespace vms_sdk::rtsp
