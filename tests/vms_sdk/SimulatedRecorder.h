#pragma once

#include "SdkLife.h"

#include <QEventLoop>
#include <QJsonDocument>
#include <QJsonObject>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QProcess>
#include <QTemporaryFile>

/// A simulated recorder as a process of its own, which shares no code with the library. Its footage is 2026-01-10, UTC.
class SimulatedRecorder
{
public:
    static QString password() { return QStringLiteral("secret42"); }
    static QDateTime at(const char* utcTime)
    {
        return QDateTime::fromString(QStringLiteral("2026-01-10T%1Z").arg(QString::fromLatin1(utcTime)), Qt::ISODate);
    }

    ~SimulatedRecorder() { stop(); }

    /// False when it does not come up; it makes its clips at the first run on a machine.
    bool start(const QStringList& arguments = {})
    {
        if (!m_passwordFile.open())
            return false;
        m_passwordFile.write(password().toUtf8());
        m_passwordFile.close();
        m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        m_process.start(QStringLiteral(RECORDER_SIM),
                        QStringList{QStringLiteral("--port"), QStringLiteral("0"), QStringLiteral("--channels"),
                                    QStringLiteral("2"), QStringLiteral("--user"), QStringLiteral("admin"),
                                    QStringLiteral("--password-file"), m_passwordFile.fileName(),
                                    QStringLiteral("--first-day"), QStringLiteral("2026-01-10"),
                                    QStringLiteral("--days"), QStringLiteral("1"), QStringLiteral("--time-zone"),
                                    QStringLiteral("UTC")} +
                            arguments);
        if (!m_process.waitForReadyRead(300'000))
            return false;
        const QJsonObject addresses = QJsonDocument::fromJson(m_process.readLine()).object();
        onvif = QUrl(addresses.value(QStringLiteral("onvif")).toString());
        rtsp = addresses.value(QStringLiteral("rtsp")).toString();
        m_control = addresses.value(QStringLiteral("control")).toString();
        return onvif.isValid() && !m_control.isEmpty();
    }
    void stop()
    {
        m_process.terminate();
        m_process.waitForFinished(5000);
    }

    QByteArray control(const QString& target, bool isPost = false)
    {
        QNetworkAccessManager network;
        QNetworkRequest request{QUrl(m_control + target)};
        request.setHeader(QNetworkRequest::ContentTypeHeader, QStringLiteral("text/plain"));
        QNetworkReply* reply = isPost ? network.post(request, QByteArray()) : network.get(request);
        QEventLoop loop;
        QObject::connect(reply, &QNetworkReply::finished, &loop, &QEventLoop::quit);
        loop.exec();
        return reply->readAll();
    }
    void fault(const QString& query) { control(QStringLiteral("/fault?") + query, true); }
    void reset() { control(QStringLiteral("/reset"), true); }

    vms_sdk::DevLogin login() const { return loginTo(onvif); }
    static vms_sdk::DevLogin loginTo(const QUrl& address)
    {
        vms_sdk::DevLogin login = SdkLife::loginTo(address);
        login.password = password();
        return login;
    }

    QUrl onvif;
    QString rtsp; ///< without path

private:
    QTemporaryFile m_passwordFile;
    QProcess m_process;
    QString m_control;
};
