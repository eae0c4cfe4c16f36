#include "SoapWorker.h"

#include "DiscoveryJob.h"
#include "SearchJob.h"

namespace vms_sdk {

namespace {

bool isSameLogin(const DevLogin& a, const DevLogin& b)
{
    return a.address == b.address && a.user == b.user && a.password == b.password && a.name == b.name &&
           a.tls.pinnedKeySha256 == b.tls.pinnedKeySha256 && a.tls.caCertificates == b.tls.caCertificates;
}

} // namespace

SoapWorker::SoapWorker(const SdkLimits& limits)
    : m_limits(limits)
{}

SoapWorker::~SoapWorker()
{
    // Jobs before sessions, and both before the members that their last words would reach.
    qDeleteAll(m_searches);
    m_searches.clear();
    qDeleteAll(m_discoveries);
    m_discoveries.clear();
    for (DeviceSession* session : qAsConst(m_sessions))
        session->disconnect(this);
    qDeleteAll(m_sessions);
    m_sessions.clear();
}

Error SoapWorker::unknownDevice() const
{
    return {ErrorKind::NotFound, tr("The device is not known."), {}};
}

DeviceSession* SoapWorker::openSession(const DevLogin& login, quint64 serial)
{
    auto* session = new DeviceSession(
        login, m_limits, [] { return QDateTime::currentMSecsSinceEpoch(); }, this);
    const QString devId = login.devId;
    connect(session, &DeviceSession::statusChanged, this,
            [this, devId, serial](DevStatus status) { emit statusChanged(devId, serial, status); });
    connect(session, &DeviceSession::infoChanged, this,
            [this, serial](const DevInfo& info) { emit infoChanged(serial, info); });
    connect(
        session, &DeviceSession::certificateRefused, this,
        [this, devId, serial](const QSslCertificate& certificate, const QByteArray& keySha256, const QString& reason) {
            emit certificateRefused(devId, serial, certificate, keySha256, reason);
        });
    m_sessions.insert(devId, session);
    return session;
}

void SoapWorker::closeSession(const QString& devId)
{
    DeviceSession* session = m_sessions.take(devId);
    if (session == nullptr)
        return;
    const QList<SearchJob*> searches = m_searches.values();
    for (SearchJob* job : searches) {
        if (job->session() == session)
            job->cancel();
    }
    session->shutDown();
    session->disconnect(this);
    session->deleteLater();
}

void SoapWorker::logIn(const DevLogin& login, quint64 serial)
{
    DeviceSession* session = m_sessions.value(login.devId);
    if (session != nullptr && !isSameLogin(session->login(), login)) {
        closeSession(login.devId);
        session = nullptr;
    }
    if (session == nullptr)
        session = openSession(login, serial);
    session->logIn([this, devId = login.devId, serial](const Error& error) { emit loginDone(devId, serial, error); });
}

void SoapWorker::logOut(const QString& devId)
{
    closeSession(devId);
}

void SoapWorker::search(const RecsSearchCondition& condition)
{
    DeviceSession* session = m_sessions.value(condition.devId);
    if (session == nullptr) {
        emit searchDone(condition.requestId, unknownDevice(), {});
        return;
    }
    auto* job = new SearchJob(condition, session, m_limits, this);
    m_searches.insert(condition.requestId, job);
    connect(job, &SearchJob::finished, this,
            [this, job](const QString& requestId, const Error& error, const QList<VideoRecording>& recordings) {
                m_searches.remove(requestId);
                job->deleteLater();
                emit searchDone(requestId, error, recordings);
            });
    job->start();
}

void SoapWorker::discover(const QString& requestId, int timeoutMs)
{
    if (m_discoveries.contains(requestId))
        return;
    auto* job = new DiscoveryJob(requestId, timeoutMs, this);
    m_discoveries.insert(requestId, job);
    connect(job, &DiscoveryJob::found, this, &SoapWorker::devDiscovered);
    connect(job, &DiscoveryJob::finished, this, [this, job](const QString& id, const Error& error) {
        m_discoveries.remove(id);
        job->deleteLater();
        emit discoveryDone(id, error);
    });
    job->start();
}

void SoapWorker::cancel(const QString& requestId)
{
    if (SearchJob* job = m_searches.value(requestId))
        job->cancel();
    if (DiscoveryJob* job = m_discoveries.value(requestId))
        job->cancel();
}

void SoapWorker::findSource(quint64 streamId, const StreamWish& wish)
{
    DeviceSession* session = m_sessions.value(wish.devId);
    if (session == nullptr) {
        emit sourceFound(streamId, unknownDevice(), {});
        return;
    }
    const auto answer = [this, session, streamId, channelNo = wish.channelNo](const Error& error, const QUrl& url) {
        StreamSource source;
        source.url = url;
        source.login = session->login();
        const std::optional<ChannelInfo> channel = session->channel(channelNo);
        source.channelName = channel ? channel->name : QString();
        source.deviceName = session->info().name;
        source.clockSkewMs = session->info().clockSkewMs;
        emit sourceFound(streamId, error, source);
    };
    if (wish.isLive)
        session->findLive(wish.channelNo, wish.profile, answer);
    else
        session->findReplay(wish.channelNo, wish.recordingToken, answer);
}

} // namespace vms_sdk
