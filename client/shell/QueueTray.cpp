#include "QueueTray.h"

#include "DesktopNotification.h"

#include <SystemConfig.h>

#include <QGuiApplication>
#include <QIcon>

namespace vemo_client {

namespace {

using vemo_worker::SystemConfig;

constexpr int leaveMs = 10'000;

} // namespace

QueueTray::QueueTray(QueueWatch* queue, QObject* parent)
    : QObject(parent)
    , m_queue(queue)
    , m_icon(QIcon(QStringLiteral(":/vemo_base/icons/mark.svg")))
{
    m_leaveTimer.setSingleShot(true);
    m_leaveTimer.setInterval(leaveMs);
    connect(&m_leaveTimer, &QTimer::timeout, &m_icon, &QSystemTrayIcon::hide);
    connect(&m_icon, &QSystemTrayIcon::activated, this, [this](QSystemTrayIcon::ActivationReason reason) {
        if (reason == QSystemTrayIcon::Trigger || reason == QSystemTrayIcon::DoubleClick)
            emit signalRaise();
    });
    connect(&m_icon, &QSystemTrayIcon::messageClicked, this, &QueueTray::signalRaise);
    connect(m_queue, &QueueWatch::signalChanged, this, &QueueTray::showFigures);
    connect(m_queue, &QueueWatch::signalEmptied, this, &QueueTray::tellEmptied);
}

QueueTray::~QueueTray() = default;

void QueueTray::showFigures()
{
    m_icon.setToolTip(tr("Vemo, download queue: %1").arg(QueueWatch::words(m_queue->figures())));
    if (m_queue->figures().isBusy()) {
        m_leaveTimer.stop();
        if (!m_icon.isVisible() && QSystemTrayIcon::isSystemTrayAvailable())
            m_icon.show();
    } else if (m_icon.isVisible() && !m_leaveTimer.isActive()) {
        m_leaveTimer.start();
    }
}

QString QueueTray::emptiedTitle(int done, int failed)
{
    const QString files = done == 1 ? tr("1 file") : tr("%1 files").arg(done);
    return failed == 0 ? tr("All downloads are done: %1").arg(files) : tr("The download queue is empty: %1").arg(files);
}

QString QueueTray::emptiedText(int failed)
{
    if (failed == 0)
        return tr("What arrived lies in the folder of downloads.");
    return failed == 1 ? tr("1 download has failed; Download Failure says why.")
                       : tr("%1 downloads have failed; Download Failure says why.").arg(failed);
}

void QueueTray::tellEmptied(int done, int failed)
{
    // Who looks at the window has seen it there.
    if (done + failed == 0 || QGuiApplication::applicationState() == Qt::ApplicationActive)
        return;
    if (!SystemConfig::instance().isTold(SystemConfig::Telling::Desktop))
        return;
    const QString title = emptiedTitle(done, failed);
    const QString text = emptiedText(failed);
    DesktopNotification::show(title, text, this, [this, title, text] {
        if (m_icon.isVisible())
            m_icon.showMessage(title, text, m_icon.icon());
    });
}

} // namespace vemo_client
