#pragma once

#include <QByteArray>
#include <QMetaType>
#include <QString>
#include <QUrl>

namespace vemo_data {

enum class DevKind : int {
    Unknown = 0,
    Recorder = 1,
    RtspSource = 2, ///< an rtsp or rtsps address for live view alone: no recordings, no backup
};

/// How a device is reached, as it is stored. The password is not part of it and never stored here.
struct DevRecord
{
    static constexpr int mostChannels = 1024;

    QString devId; ///< made by DevsMgrData::addDev when empty
    QString name;
    QUrl address; ///< http, https, rtsp or rtsps; without user and password
    QString user;
    QByteArray pinnedKeySha256; ///< 32 bytes, empty: none
    QString group;              ///< the heading below which it is listed; may be empty
    bool enabled = true;        ///< otherwise it is not logged in by itself
    DevKind kind = DevKind::Recorder;
    int channelCount = 0; ///< of an rtsp address, which tells none; 0: not known
    QString endpoint;     ///< the name by which it answers a search of the network, wherever it is; may be empty
};

} // namespace vemo_data

Q_DECLARE_METATYPE(vemo_data::DevRecord)
