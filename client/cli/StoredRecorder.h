#pragma once

#include "CliCommand.h"

#include <QObject>

namespace vemo_client {

/// The recorder that a command line names, as a device that the data folder keeps: address and user make it the same
/// one, and what is new of it is stored. GUI thread. keep() once; signalKept or signalFailed follows.
class StoredRecorder final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(StoredRecorder)

public:
    explicit StoredRecorder(const CliCommand& command, QObject* parent = nullptr);

    void keep();
    const QString& devId() const { return m_devId; }

    static bool isSameAddress(const QUrl& one, const QUrl& other);

signals:
    void signalKept();
    void signalFailed(const vemo_client::Outcome& outcome);

private:
    bool find();
    void keepPassword();

    const CliCommand m_command;
    QString m_devId;
};

} // namespace vemo_client
