#pragma once

#include <QJsonObject>
#include <QProcess>
#include <QString>
#include <QUrl>

/// The recorder_sim program, running for one test on ports of its own.
class SimulatedRecorder final
{
public:
    /// `folder` takes the password file; the recorded day is 2026-01-10.
    explicit SimulatedRecorder(const QString& folder, const QStringList& options = {});
    ~SimulatedRecorder();

    SimulatedRecorder(const SimulatedRecorder&) = delete;
    SimulatedRecorder& operator=(const SimulatedRecorder&) = delete;

    bool isReady() const { return m_address.isValid(); }
    QUrl address() const { return m_address; }
    /// Another of the addresses that it prints: "onvifs", "rtsp", "control".
    QUrl address(const QString& key) const { return QUrl(m_addresses.value(key).toString()); }
    /// Where faults are switched on.
    QUrl control() const { return m_control; }
    static QString user() { return QStringLiteral("admin"); }
    static QString password() { return QStringLiteral("s3cret word"); }

private:
    /// Ends with the test program, also when that is killed.
    class Process final : public QProcess
    {
    protected:
        void setupChildProcess() override;
    };

    Process m_process;
    QUrl m_address;
    QUrl m_control;
    QJsonObject m_addresses;
};
