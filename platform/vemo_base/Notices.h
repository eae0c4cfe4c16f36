#pragma once

#include "Notice.h"
#include "vemo_base_global.h"

#include <QList>
#include <QObject>

namespace vemo_base {

/// All notices of the running program, newest first, as the bell lists them; bounded, the oldest go. One object a
/// process, GUI thread. Toasts shows each when it comes.
class VEMO_BASE_EXPORT Notices final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(Notices)

public:
    static constexpr int limit = 200;

    static Notices& instance();

    /// A repeat of one of the last few is counted there and moves it to the front.
    void add(Notice notice);
    const QList<Notice>& all() const { return m_notices; }
    int unreadCount() const { return m_unread; }
    /// Warnings and errors among the unread.
    int unreadFailures() const;
    void markRead();
    void clear();

signals:
    void signalNoticeAdded(const vemo_base::Notice& notice);
    void signalUnreadCountChanged(int count);
    void signalCleared();

private:
    explicit Notices(QObject* parent = nullptr);

    void setUnread(int count);

    QList<Notice> m_notices;
    quint64 m_lastId = 0;
    int m_unread = 0;
};

} // namespace vemo_base
