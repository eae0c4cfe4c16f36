#include "NetworkSearch.h"

#include "RecorderAddress.h"

#include <ClientSignals.h>
#include <DevsMgrData.h>
#include <vms_sdk.h>

#include <QUuid>

#include <algorithm>

namespace vemo_client {

namespace {

using vemo_data::DevRecord;
using vemo_data::DevsMgrData;

constexpr int httpPort = 80;
constexpr int httpsPort = 443;

int defaultPort(const QUrl& url)
{
    return url.scheme() == QLatin1String("https") ? httpsPort : httpPort;
}

int portOf(const QUrl& url)
{
    return url.port(defaultPort(url));
}

bool isUsable(const QUrl& address)
{
    const QString scheme = address.scheme();
    return (scheme == QLatin1String("http") || scheme == QLatin1String("https")) && !address.host().isEmpty() &&
           address.userInfo().isEmpty();
}

/// The ports of the two schemes differ; which belong together is told only where a host has its usual ones. Behind one
/// host there may be several recorders by ports of their own.
bool isAt(const DevRecord& record, const QUrl& address)
{
    const QUrl& stored = record.address;
    if (stored.host() != address.host())
        return false;
    if (stored.scheme() == address.scheme())
        return portOf(stored) == portOf(address);
    return portOf(stored) == defaultPort(stored) || portOf(address) == defaultPort(address);
}

/// Where a known recorder is to be asked from now on. What was asked over TLS is never asked without.
QUrl movedAddress(const DevRecord& record, const QVector<QUrl>& addresses)
{
    for (const QUrl& address : addresses) {
        if (address.scheme() == record.address.scheme())
            return address;
    }
    QUrl address = record.address;
    address.setHost(addresses.first().host());
    return address;
}

} // namespace

NetworkSearch::NetworkSearch(QObject* parent)
    : QObject(parent)
{
    const vms_sdk::ClientSignals& client = vms_sdk::ClientSignals::instance();
    connect(&client, &vms_sdk::ClientSignals::signalDevDiscovered, this, &NetworkSearch::takeDiscovered);
    connect(&client, &vms_sdk::ClientSignals::signalDiscoveryFinished, this, &NetworkSearch::takeFinished);
}

NetworkSearch::~NetworkSearch()
{
    if (isRunning())
        vms_sdk::cancel_request(m_requestId);
}

void NetworkSearch::start()
{
    if (isRunning())
        vms_sdk::cancel_request(m_requestId);
    m_found.clear();
    m_requestId = QUuid::createUuid().toString();
    vms_sdk::discover_devs_req(m_requestId, durationMs);
}

NetworkSearch::Found NetworkSearch::judge(const vms_sdk::DiscoveredDev& dev)
{
    Found found;
    found.dev = dev;
    QVector<QUrl> addresses;
    std::copy_if(dev.addresses.cbegin(), dev.addresses.cend(), std::back_inserter(addresses), isUsable);
    if (addresses.isEmpty())
        return found;
    found.standing = Standing::New;
    found.address = addresses.first();
    DevsMgrData& devices = DevsMgrData::instance();
    const QStringList devIds = devices.devIds();
    for (const QString& devId : devIds) {
        DevRecord record = devices.devRecord(devId);
        if (RecorderAddress::isDirect(record.address))
            continue; // a stream of it, not its services
        const bool isHere = std::any_of(addresses.cbegin(), addresses.cend(),
                                        [&record](const QUrl& address) { return isAt(record, address); });
        const bool isItsName = !dev.endpoint.isEmpty() && record.endpoint == dev.endpoint;
        if (isHere && (isItsName || record.endpoint.isEmpty())) {
            found.standing = Standing::Known;
            found.devId = devId;
            if (record.endpoint.isEmpty() && !dev.endpoint.isEmpty()) {
                record.endpoint = dev.endpoint;
                devices.addDev(record);
            }
            return found;
        }
        if (isItsName) {
            found.devId = devId;
            found.address = movedAddress(record, addresses);
            // Its services over TLS may well be where they were: only the others answer.
            const bool isSame =
                found.address.host() == record.address.host() && portOf(found.address) == portOf(record.address);
            found.standing = isSame ? Standing::Known : Standing::Moved;
        }
    }
    return found;
}

void NetworkSearch::judgeAgain()
{
    for (Found& each : m_found)
        each = judge(each.dev);
    emit signalFound();
}

/// A device that answers again with more addresses is the same one.
void NetworkSearch::takeDiscovered(const QString& requestId, const vms_sdk::DiscoveredDev& dev)
{
    if (requestId != m_requestId)
        return;
    const Found judged = judge(dev);
    if (judged.standing == Standing::Unknown)
        return;
    const auto known = std::find_if(m_found.begin(), m_found.end(),
                                    [&dev](const Found& each) { return each.dev.endpoint == dev.endpoint; });
    if (known != m_found.end())
        *known = judged;
    else if (m_found.size() < mostFound)
        m_found.append(judged);
    emit signalFound();
}

void NetworkSearch::takeFinished(const QString& requestId, const vms_sdk::Error& error)
{
    if (requestId != m_requestId)
        return;
    m_requestId.clear();
    emit signalFinished(error);
}

} // namespace vemo_client
