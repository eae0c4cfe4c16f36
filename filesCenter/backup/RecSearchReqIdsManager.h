#pragma once

#include <QObject>
#include <QSet>

namespace vemo_filesCenter {

/// The recording searches that are pending, so that one answer can renew the others' time. One object a process, on the
/// GUI thread.
class RecSearchReqIdsManager final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(RecSearchReqIdsManager)

public:
    static RecSearchReqIdsManager& instance();

    void addReqId(const QString& requestId);
    void removeReqId(const QString& requestId);
    void renewal();

private:
    RecSearchReqIdsManager();

    QSet<QString> m_requestIds;
};

} // namespace vemo_filesCenter
