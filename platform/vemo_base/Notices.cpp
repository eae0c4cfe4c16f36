#include "Notices.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace vemo_base {

namespace {

/// A repeat counts up where the person still remembers the first one.
constexpr int repeatWithin = 3;

bool isRepeat(const Notice& one, const Notice& other)
{
    return one.kind == other.kind && one.title == other.title && one.text == other.text;
}

} // namespace

Notices::Notices(QObject* parent)
    : QObject(parent)
{}

Notices& Notices::instance()
{
    static Notices notices;
    return notices;
}

void Notices::add(Notice notice)
{
    notice.time = QDateTime::currentDateTime();
    const auto end = m_notices.begin() + qMin(repeatWithin, m_notices.size());
    const auto same =
        std::find_if(m_notices.begin(), end, [&notice](const Notice& known) { return isRepeat(known, notice); });
    if (same != end) {
        notice.id = same->id;
        notice.repeats = same->repeats + 1;
        // Read ones lie behind the unread: what is read already is news again.
        if (std::distance(m_notices.begin(), same) >= m_unread)
            setUnread(m_unread + 1);
        m_notices.erase(same);
    } else {
        notice.id = ++m_lastId;
        setUnread(m_unread + 1);
    }
    m_notices.prepend(notice);
    while (m_notices.size() > limit)
        m_notices.removeLast();
    emit signalNoticeAdded(notice);
}

int Notices::unreadFailures() const
{
    return int(std::count_if(m_notices.cbegin(), m_notices.cbegin() + qMin(m_unread, m_notices.size()),
                             [](const Notice& notice) {
                                 return notice.kind == Notice::Kind::Warning || notice.kind == Notice::Kind::Error;
                             }));
}

void Notices::markRead()
{
    setUnread(0);
}

void Notices::clear()
{
    m_notices.clear();
    setUnread(0);
    emit signalCleared();
}

void Notices::setUnread(int count)
{
    count = qMin(count, limit);
    if (std::exchange(m_unread, count) != count)
        emit signalUnreadCountChanged(count);
}

} // namespace vemo_base
