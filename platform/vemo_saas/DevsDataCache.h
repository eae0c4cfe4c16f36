#pragma once

#include "vemo_saas_global.h"

#include <QHash>
#include <QObject>
#include <QPair>
#include <QString>

namespace vemo_saas {

/// What a cloud account may do with the channels of its devices, as its service told it last. One object a process, on
/// the GUI thread. A channel of which nothing was told may nothing: permissions are given, not presumed. Devices that
/// were added by their address have no account and are not asked about here (see vemo_data::DevsMgrData::isSaasDev).
class VEMO_SAAS_EXPORT DevsDataCache final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(DevsDataCache)

public:
    static DevsDataCache& instance();

    /// True when every bit of `permission` was granted for the channel.
    bool isChannelHasPermission(const QString& devId, int channelNo, int permission) const;

    /// Replaces what was granted for the channel; 0 takes everything back.
    void setChannelPermissions(const QString& devId, int channelNo, int permissions);
    void removeDev(const QString& devId);

private:
    DevsDataCache();

    QHash<QPair<QString, int>, int> m_permissions; ///< by device and channel number
};

} // namespace vemo_saas
