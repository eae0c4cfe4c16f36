#include "DevsDataCache.h"

namespace vemo_saas {

DevsDataCache::DevsDataCache() = default;

DevsDataCache& DevsDataCache::instance()
{
    static DevsDataCache cache;
    return cache;
}

bool DevsDataCache::isChannelHasPermission(const QString& devId, int channelNo, int permission) const
{
    return (m_permissions.value({devId, channelNo}) & permission) == permission;
}

void DevsDataCache::setChannelPermissions(const QString& devId, int channelNo, int permissions)
{
    if (permissions == 0)
        m_permissions.remove({devId, channelNo});
    else
        m_permissions.insert({devId, channelNo}, permissions);
}

void DevsDataCache::removeDev(const QString& devId)
{
    for (auto each = m_permissions.begin(); each != m_permissions.end();) {
        if (each.key().first == devId)
            each = m_permissions.erase(each);
        else
            ++each;
    }
}

} // namespace vemo_saas
