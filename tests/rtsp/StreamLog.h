#pragma once

#include "BatchLog.h"
#include "StreamClient.h"

#include <QObject>

namespace rtptest {

/// Listens to a StreamClient and remembers the order of what it told.
class StreamLog final : public QObject
{
    Q_OBJECT

public:
    explicit StreamLog(vms_sdk::rtsp::StreamClient& client)
    {
        using vms_sdk::rtsp::StreamClient;
        connect(&client, &StreamClient::playing, this, [this] { order += 'p'; });
        connect(&client, &StreamClient::packets, this, [this, &client](const QByteArray& batch) {
            if (!order.endsWith('d'))
                order += 'd';
            batches.take(batch);
            outstandingBytes += batch.size();
            if (consumes) {
                client.returnCredit(outstandingBytes);
                outstandingBytes = 0;
            }
        });
        connect(&client, &StreamClient::ended, this,
                [this](vms_sdk::rtsp::StreamOutcome how, const vms_sdk::Error& why) {
                    order += 'e';
                    end = how;
                    error = why;
                });
        connect(&client, &StreamClient::certificateRefused, this,
                [this](const QSslCertificate&, const QByteArray& key, const QString&) {
                    order += 'c';
                    keySha256 = key;
                });
    }

    bool hasEnded() const { return order.endsWith('e'); }

    QByteArray order; ///< p playing, d packets, c certificate, e ended
    BatchLog batches;
    qint64 outstandingBytes = 0;
    bool consumes = true;
    vms_sdk::rtsp::StreamOutcome end = vms_sdk::rtsp::StreamOutcome::Unknown;
    vms_sdk::Error error;
    QByteArray keySha256;
};

} // namespace rtptest
