#pragma once

#include "Error.h"

#include <QDateTime>
#include <QList>
#include <QMetaType>
#include <QSslCertificate>
#include <QString>
#include <QUrl>

namespace vms_sdk {

/// Status of a device as the client shows it.
enum class DevStatus : int {
    Unknown = 0,
    Offline = 1,
    Online = 2,
    WrongLogin = 3,
    ConnectionLimit = 4,
    DefaultPassword = 5,
    NotActive = 6,
    Locked = 7,
    LoginLimit = 8,
    RelayBroken = 9,
};

/// How a connection secured by TLS is judged. A pin wins over everything: it is the SHA-256 of the peer's public key
/// (DER of the SubjectPublicKeyInfo), and a peer with another key is refused before any login is sent.
struct TlsPolicy
{
    QByteArray pinnedKeySha256;            ///< 32 bytes, empty: none
    QList<QSslCertificate> caCertificates; ///< trusted beside the system's own
};

/// What is needed to talk to a device. `address` is the ONVIF device service (http or https, path optional:
/// "/onvif/device_service" is the default), or a direct replay source (rtsp or rtsps; "{channel}" in it is replaced by
/// the channel's number).
struct DevLogin
{
    QString devId;
    QString name; ///< as the client shows it; for the file's metadata
    QUrl address; ///< without user and password
    QString user;
    QString password;
    TlsPolicy tls;
};

struct ChannelInfo
{
    int channelNo = 0; ///< from 1, in the order of the device's recordings or video sources
    QString name;
    QString recordingToken;
    QString profileToken;    ///< media profile of its main live stream
    QString subProfileToken; ///< the next smaller one, empty when there is none
};

struct DevInfo
{
    QString devId;
    QString name;
    QString manufacturer;
    QString model;
    QString firmware;
    QString serialNumber;
    QString endpoint; ///< the device's own UUID, the same wherever it answers; empty when it does not tell
    QUrl address;
    int type = 0;
    bool supportsBackup = false; ///< it offers replay
    qint64 clockSkewMs = 0;      ///< device clock minus ours
    QList<ChannelInfo> channels;
};

/// One found recording (segment) of a channel.
struct VideoRecording
{
    QString fileName; ///< stable: made of recording token and span; what a by-file request names
    QDateTime begin;  ///< local time
    QDateTime end;
    int type = 0; ///< 1 alarm or motion, 0 otherwise
    QUrl replayUri;
};

struct RecsSearchCondition
{
    QString requestId; ///< made by the caller
    QString devId;
    int channelNo = 0;
    QDateTime begin;
    QDateTime end;
};

struct PlaybackByFileCondition
{
    QString devId;
    int channelNo = 0;
    QString fileName;
    int location = 0;
    int downloadedMs = 0;     ///< play from here on, ms from the recording's begin
    int downloadFlag = 0;     ///< 1: as fast as the network goes, flow-controlled by stream_data_consumed
    bool flowControl = false; ///< without the download flag: stream_data_consumed counts all the same
};

struct PlaybackByTimeCondition
{
    QString devId;
    int channelNo = 0;
    QDateTime beginTime;
    QDateTime endTime; ///< invalid: open, the listener stops when it has enough
    int location = 0;
    int downloadFlag = 0;
    bool flowControl = false; ///< as above
};

enum class LiveProfile : int {
    Main = 0,
    Sub = 1, ///< the next smaller stream of the channel; the main one where there is none
};

struct LiveCondition
{
    QString devId;
    int channelNo = 0;
    LiveProfile profile = LiveProfile::Main;
    bool flowControl = false; ///< as above; what nobody consumes in time is dropped, in whole groups of pictures
};

/// A device that answered a discovery. All texts come from the network: plain, one line, bounded.
struct DiscoveredDev
{
    QString endpoint; ///< the device's own UUID (or URI), the same wherever it answers
    QString name;
    QString model;
    QList<QUrl> addresses; ///< of its device service, what it answered from first; at most 8
};

enum PlaybackCtrl : int { PlaybackResume = 0, PlaybackPause = 1 };

enum StreamEvent : int {
    StreamConnecting = 1,
    StreamConnectFailed = 2,
    StreamPlaying = 3,
    StreamEndOfRecording = 4,
    StreamNoReplayAddress = 5,
    StreamLoginRefused = 6,
    StreamLimitReached = 7,
    StreamBroken = 8,
    StreamEndByDevice = 9,
};

} // namespace vms_sdk

Q_DECLARE_METATYPE(vms_sdk::DevStatus)
Q_DECLARE_METATYPE(vms_sdk::DevInfo)
Q_DECLARE_METATYPE(vms_sdk::VideoRecording)
Q_DECLARE_METATYPE(vms_sdk::DiscoveredDev)
Q_DECLARE_METATYPE(QList<vms_sdk::VideoRecording>)
Q_DECLARE_METATYPE(vms_sdk::StreamEvent)
