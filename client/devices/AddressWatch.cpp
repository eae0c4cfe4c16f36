#include "AddressWatch.h"

#include "RecorderAddress.h"
#include "RecorderLogins.h"

#include <DevsMgrData.h>
#include <Notices.h>

#include <QPointer>

namespace vemo_client {

namespace {

constexpr int firstLookMs = 20'000;
constexpr int lookMs = 300'000;

} // namespace

AddressWatch::AddressWatch(RecorderLogins* logins, QObject* parent)
    : QObject(parent)
    , m_logins(logins)
{
    m_timer.setSingleShot(true);
    connect(&m_timer, &QTimer::timeout, this, &AddressWatch::look);
    connect(&m_search, &NetworkSearch::signalFound, this, &AddressWatch::takeFound);
    m_timer.start(firstLookMs);
}

bool AddressWatch::hasReason()
{
    const vemo_data::DevsMgrData& devices = vemo_data::DevsMgrData::instance();
    const QStringList devIds = devices.devIds();
    for (const QString& devId : devIds) {
        const vemo_data::DevRecord record = devices.devRecord(devId);
        if (!record.enabled || RecorderAddress::isDirect(record.address))
            continue;
        const RecorderLogins::Login login = m_logins->login(devId);
        const bool isAway = login.phase == RecorderLogins::Phase::Failed &&
                            RecorderLogins::retriesAfter(login.error.kind) && !record.endpoint.isEmpty();
        if (isAway || (record.endpoint.isEmpty() && !m_hasLooked))
            return true;
    }
    return false;
}

void AddressWatch::look()
{
    if (hasReason()) {
        m_hasLooked = true;
        m_search.start();
    }
    m_timer.start(lookMs);
}

void AddressWatch::takeFound()
{
    for (const NetworkSearch::Found& found : m_search.found()) {
        const bool isAway = m_logins->login(found.devId).phase == RecorderLogins::Phase::Failed;
        if (found.standing == NetworkSearch::Standing::Moved && isAway)
            tell(found);
    }
}

void AddressWatch::tell(const NetworkSearch::Found& found)
{
    const QString key = found.devId + QLatin1Char(' ') + found.address.toString();
    if (m_told.contains(key))
        return;
    m_told.insert(key);
    const vms_sdk::DevInfo info = vemo_data::DevsMgrData::instance().getDevInfoById(found.devId);
    vemo_base::Notice notice;
    notice.kind = vemo_base::Notice::Kind::Warning;
    notice.title = tr("%1 answers at %2 now").arg(info.name, RecorderAddress::text(found.address));
    notice.text =
        tr("It can't be reached at %1 any more. Use the new address?").arg(RecorderAddress::text(info.address));
    const QPointer<RecorderLogins> logins(m_logins);
    notice.actions = {{tr("Use the new address"), [logins, found] {
                           if (logins && vemo_data::DevsMgrData::instance().contains(found.devId))
                               logins->moveTo(found.devId, found.address);
                       }}};
    vemo_base::Notices::instance().add(notice);
}

} // namespace vemo_client
