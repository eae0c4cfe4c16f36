#include "Toasts.h"

#include "Notices.h"
#include "ToastWt.h"

#include <SystemConfig.h>

#include <QCoreApplication>
#include <QEvent>
#include <QVariant>
#include <QWidget>

#include <algorithm>

namespace vemo_base {

namespace {

constexpr int margin = 24;
constexpr int gap = 8;

/// Errors are always told.
bool isTold(const Notice& notice)
{
    using vemo_worker::SystemConfig;
    if (notice.kind == Notice::Kind::Error)
        return true;
    return SystemConfig::instance().isTold(notice.kind == Notice::Kind::Warning ? SystemConfig::Telling::Warnings
                                                                                : SystemConfig::Telling::GoodNews);
}

} // namespace

Toasts::Toasts(QWidget* host)
    : QObject(host)
    , m_host(host)
{
    host->installEventFilter(this);
    connect(&Notices::instance(), &Notices::signalNoticeAdded, this, &Toasts::show);
}

int Toasts::shownCount() const
{
    return int(std::count_if(m_toasts.cbegin(), m_toasts.cend(), [](const auto& toast) { return !toast.isNull(); }));
}

bool Toasts::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_host && (event->type() == QEvent::Resize || event->type() == QEvent::LayoutDirectionChange))
        arrange();
    else if ((event->type() == QEvent::Show || event->type() == QEvent::Hide) && changesRoom(watched))
        QMetaObject::invokeMethod(this, &Toasts::arrange, Qt::QueuedConnection); // its place is not settled yet
    return QObject::eventFilter(watched, event);
}

bool Toasts::changesRoom(const QObject* watched) const
{
    const auto* widget = qobject_cast<const QWidget*>(watched);
    if (!widget || !m_host->isAncestorOf(widget) || qobject_cast<const ToastWt*>(widget))
        return false;
    return widget->parentWidget() == m_host || widget->property("bottomBar").toBool();
}

void Toasts::watchRoom()
{
    if (m_toasts.isEmpty())
        QCoreApplication::instance()->removeEventFilter(this);
    else
        QCoreApplication::instance()->installEventFilter(this);
}

void Toasts::show(const Notice& notice)
{
    if (!isTold(notice))
        return;
    m_toasts.removeAll(nullptr);
    for (const QPointer<ToastWt>& toast : qAsConst(m_toasts)) {
        if (toast->noticeId() == notice.id) {
            toast->setNotice(notice);
            arrange();
            return;
        }
    }
    // An error gives way last.
    while (m_toasts.size() >= atMost) {
        const auto quiet = std::find_if(m_toasts.begin(), m_toasts.end(),
                                        [](const QPointer<ToastWt>& toast) { return !toast->staysUntilClosed(); });
        const auto leaving = quiet != m_toasts.end() ? quiet : m_toasts.begin();
        (*leaving)->hide();
        (*leaving)->deleteLater();
        m_toasts.erase(leaving);
    }
    auto* toast = new ToastWt(notice, shownMs, m_host);
    m_toasts.append(toast);
    connect(toast, &ToastWt::signalClosed, this, [this, toast] {
        m_toasts.removeAll(toast);
        toast->hide();
        toast->deleteLater();
        arrange();
    });
    arrange();
    toast->show();
}

int Toasts::roomBottom() const
{
    int bottom = m_host->height();
    const QList<QWidget*> children = m_host->findChildren<QWidget*>();
    for (const QWidget* child : children) {
        if (child->isVisible() && child->property("bottomBar").toBool())
            bottom = qMin(bottom, child->mapTo(m_host, QPoint(0, 0)).y());
    }
    return bottom;
}

void Toasts::arrange()
{
    watchRoom();
    int bottom = roomBottom() - margin;
    for (auto toast = m_toasts.crbegin(); toast != m_toasts.crend(); ++toast) {
        ToastWt* widget = *toast;
        if (!widget)
            continue;
        widget->fitHeight();
        const bool mirrored = m_host->layoutDirection() == Qt::RightToLeft;
        const QRect card = widget->cardRect();
        const int x = mirrored ? margin - card.left() : m_host->width() - margin - card.right() - 1;
        widget->move(x, bottom - card.bottom() - 1);
        widget->raise();
        bottom -= card.height() + gap;
    }
}

} // namespace vemo_base
