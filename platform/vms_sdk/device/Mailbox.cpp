#include "Mailbox.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEvent>
#include <QPointer>

#include <utility>

namespace vms_sdk {

namespace {

// An eighth of a frame at 60 Hz: a repaint of a page full of rows then still fits in front of the next tick.
constexpr qint64 turnNs = 2'000'000;

} // namespace

Mailbox::Mailbox(QObject* parent)
    : QObject(parent)
{}

void Mailbox::post(Call call)
{
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_waiting.push_back(std::move(call));
        if (std::exchange(m_isWoken, true))
            return;
    }
    QCoreApplication::postEvent(this, new QEvent(QEvent::User));
}

bool Mailbox::takeWaiting()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_running.swap(m_waiting);
    m_isWoken = !m_running.empty();
    return m_isWoken;
}

bool Mailbox::event(QEvent* event)
{
    if (event->type() != QEvent::User)
        return QObject::event(event);
    const QPointer<Mailbox> self(this);
    QElapsedTimer turn;
    turn.start();
    while (!m_running.empty() || takeWaiting()) {
        const Call call = std::move(m_running.front());
        m_running.pop_front();
        call();
        if (!self)
            return true; // the call has destroyed the mailbox
        if (turn.nsecsElapsed() > turnNs) {
            QCoreApplication::postEvent(this, new QEvent(QEvent::User));
            break;
        }
    }
    return true;
}

} // namespace vms_sdk
