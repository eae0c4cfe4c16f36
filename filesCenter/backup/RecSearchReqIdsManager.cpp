#include "RecSearchReqIdsManager.h"

#include <vms_sdk.h>

namespace vemo_filesCenter {

RecSearchReqIdsManager::RecSearchReqIdsManager() = default;

RecSearchReqIdsManager& RecSearchReqIdsManager::instance()
{
    static RecSearchReqIdsManager manager;
    return manager;
}

void RecSearchReqIdsManager::addReqId(const QString& requestId)
{
    m_requestIds.insert(requestId);
}

void RecSearchReqIdsManager::removeReqId(const QString& requestId)
{
    m_requestIds.remove(requestId);
}

void RecSearchReqIdsManager::renewal()
{
    for (const QString& requestId : qAsConst(m_requestIds))
        vms_sdk::renewal_request_id(requestId);
}

} // namespace vemo_filesCenter
