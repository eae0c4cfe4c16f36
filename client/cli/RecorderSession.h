#pragma once

#include "CliCommand.h"
#include "ExitCode.h"
#include "Failures.h"

#include <VmsTypes.h>

#include <QObject>

#include <optional>

namespace vemo_client {

/// The recorder that a command line names, as a device of the client for this run only. GUI thread. open() logs in;
/// signalOpened or signalFailed follows, each once at most: a session that was opened may still fail.
class RecorderSession final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(RecorderSession)

public:
    explicit RecorderSession(const DeviceOptions& device, QObject* parent = nullptr);

    void open();

    const QString& devId() const { return m_devId; }
    bool isOpen() const { return m_open; }
    bool hasFailed() const { return m_failure.has_value(); }
    Outcome failure() const { return m_failure.value_or(Outcome()); }
    /// Known once it is open.
    vms_sdk::DevInfo info() const;
    /// A replay address without services beside it: it has no list of recordings.
    bool isDirect() const;
    bool hasChannel(int channelNo) const;
    QString addressText() const;
    Place place() const;
    Place place(int channelNo) const;

signals:
    void signalOpened();
    void signalFailed();

private:
    void finishLogin(const QString& devId, const vms_sdk::Error& error);
    void fail(const Outcome& outcome);

    DeviceOptions m_device;
    QString m_devId;
    bool m_open = false;
    std::optional<Outcome> m_failure;
};

} // namespace vemo_client
