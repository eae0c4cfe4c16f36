#include "SimulatedRecorder.h"

#include <QDebug>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>

#include <csignal>
#include <sys/prctl.h>

namespace {

/// Long, for a machine that is busy; the clips are there already.
constexpr int readyTimeoutMs = 120'000;

} // namespace

void SimulatedRecorder::Process::setupChildProcess()
{
    prctl(PR_SET_PDEATHSIG, SIGTERM);
}

SimulatedRecorder::SimulatedRecorder(const QString& folder, const QStringList& options)
{
    const QString passwordFile = folder + QStringLiteral("/password");
    QFile file(passwordFile);
    if (!file.open(QIODevice::WriteOnly) || file.write(password().toUtf8()) < 0)
        qFatal("no password file");
    file.close();

    m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    m_process.start(QStringLiteral(RECORDER_SIM),
                    QStringList{QStringLiteral("--port"), QStringLiteral("0"), QStringLiteral("--channels"),
                                QStringLiteral("2"), QStringLiteral("--user"), user(),
                                QStringLiteral("--password-file"), passwordFile, QStringLiteral("--first-day"),
                                QStringLiteral("2026-01-10"), QStringLiteral("--days"), QStringLiteral("1")} +
                        options);
    QByteArray line;
    while (!line.endsWith('\n')) {
        if (!m_process.waitForReadyRead(readyTimeoutMs)) {
            qWarning() << "the recorder is not ready:" << m_process.errorString();
            return;
        }
        line += m_process.readLine();
    }
    const QJsonObject told = QJsonDocument::fromJson(line).object();
    m_addresses = told;
    m_address = QUrl(told.value(QStringLiteral("onvif")).toString());
    m_control = QUrl(told.value(QStringLiteral("control")).toString());
}

SimulatedRecorder::~SimulatedRecorder()
{
    m_process.terminate();
    if (!m_process.waitForFinished(10'000))
        m_process.kill();
    m_process.waitForFinished();
}
