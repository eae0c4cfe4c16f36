#pragma once

#include "OnvifFake.h"

#include "vms_sdk.h"

#include <QCoreApplication>
#include <QSignalSpy>
#include <QTest>
#include <QThread>

/// How long a test waits for something that must come, on a machine that is busy with other things.
constexpr int patienceMs = 30'000;

/// One life of the library with limits that a test can wait for, and what its signals said meanwhile.
class SdkLife
{
public:
    static vms_sdk::SdkLimits quickLimits()
    {
        vms_sdk::SdkLimits limits;
        limits.connectTimeoutMs = 5000;
        limits.answerTimeoutMs = 10'000;
        limits.requestTimeoutMs = 20'000;
        return limits;
    }

    explicit SdkLife(const vms_sdk::SdkLimits& limits = quickLimits())
        : logins(&vms_sdk::ClientSignals::instance(), &vms_sdk::ClientSignals::signalDevLoginRes)
        , statuses(&vms_sdk::ClientSignals::instance(), &vms_sdk::ClientSignals::signalDevStatusPush)
        , infos(&vms_sdk::ClientSignals::instance(), &vms_sdk::ClientSignals::signalDevInfoPush)
        , certificates(&vms_sdk::ClientSignals::instance(), &vms_sdk::ClientSignals::signalDevCertificate)
        , answers(&vms_sdk::ClientSignals::instance(), &vms_sdk::ClientSignals::signalSearchVideoRecordingsRes)
        , timeouts(&vms_sdk::ClientSignals::instance(), &vms_sdk::ClientSignals::signalRequestTimeout)
        , events(&vms_sdk::ClientSignals::instance(), &vms_sdk::ClientSignals::signalStreamEventPush)
    {
        vms_sdk::set_sdk_limits(limits);
        vms_sdk::init_sdk();
    }
    ~SdkLife() { vms_sdk::uninit_sdk(); }

    static vms_sdk::DevLogin loginTo(const QUrl& address, const QString& devId = QStringLiteral("dev-1"))
    {
        vms_sdk::DevLogin login;
        login.devId = devId;
        login.name = QStringLiteral("Front gate");
        login.address = address;
        login.user = QStringLiteral("admin");
        login.password = QStringLiteral("s3cret&<word>");
        return login;
    }

    /// Logs in and waits; the error of the login.
    vms_sdk::Error logIn(const vms_sdk::DevLogin& login)
    {
        const int before = logins.size();
        vms_sdk::login_dev_req(login);
        if (!QTest::qWaitFor([&] { return logins.size() > before; }, patienceMs))
            return {vms_sdk::ErrorKind::Cancelled, QStringLiteral("the login was never answered"), {}};
        return logins.last().at(1).value<vms_sdk::Error>();
    }

    vms_sdk::DevStatus lastStatus() const
    {
        return statuses.isEmpty() ? vms_sdk::DevStatus::Unknown : statuses.last().at(1).value<vms_sdk::DevStatus>();
    }

    QList<int> eventsOf(quint64 streamId) const
    {
        QList<int> list;
        for (const QList<QVariant>& event : events) {
            if (event.at(0).toULongLong() == streamId)
                list.append(event.at(1).value<vms_sdk::StreamEvent>());
        }
        return list;
    }

    QSignalSpy logins;
    QSignalSpy statuses;
    QSignalSpy infos;
    QSignalSpy certificates;
    QSignalSpy answers;
    QSignalSpy timeouts;
    QSignalSpy events;
};
