#pragma once

#include <QByteArray>
#include <QMetaType>
#include <QString>
#include <QUrl>

namespace vemo_data {

/// How a device is reached, as it is stored. The password is not part of it and never stored here.
struct DevRecord
{
    QString devId; ///< made by DevsMgrData::addDev when empty
    QString name;
    QUrl address; ///< http, https, rtsp or rtsps; without user and password
    QString user;
    QByteArray pinnedKeySha256; ///< 32 bytes, empty: none
};

} // namespace vemo_data

Q_DECLARE_METATYPE(vemo_data::DevRecord)
