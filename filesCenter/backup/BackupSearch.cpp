#include "BackupSearch.h"

#include "RecSearchReqIdsManager.h"

#include <BaseTools.h>
#include <vms_sdk.h>

#include <QUuid>

namespace vemo_filesCenter {

BackupSearch::BackupSearch(QObject* parent)
    : QObject(parent)
{
    using vms_sdk::ClientSignals;
    const ClientSignals& client = ClientSignals::instance();
    connect(&client, &ClientSignals::signalSearchVideoRecordingsRes, this, &BackupSearch::answered);
    connect(&client, &ClientSignals::signalRequestTimeout, this, &BackupSearch::timedOut);
}

BackupSearch::~BackupSearch()
{
    abandon();
}

void BackupSearch::start(const BackupTaskInfo& task)
{
    abandon();
    m_requestId = QUuid::createUuid().toString();
    RecSearchReqIdsManager::instance().addReqId(m_requestId);
    const QPair<QString, int> channel = vemo_base::BaseTools::instance().formatChannelId(task.channelId);
    vms_sdk::RecsSearchCondition condition;
    condition.requestId = m_requestId;
    condition.devId = channel.first;
    condition.channelNo = channel.second;
    condition.begin = QDateTime(task.date, QTime(0, 0));
    condition.end = QDateTime(task.date, QTime(23, 59, 59));
    vms_sdk::search_video_recordings_req(condition);
}

void BackupSearch::abandon()
{
    if (m_requestId.isEmpty())
        return;
    RecSearchReqIdsManager::instance().removeReqId(m_requestId);
    m_requestId.clear();
}

bool BackupSearch::takeOwn(const QString& requestId)
{
    if (m_requestId.isEmpty() || requestId != m_requestId)
        return false;
    abandon();
    return true;
}

void BackupSearch::answered(const QString& requestId, int errorCode, const QList<vms_sdk::VideoRecording>& recordings)
{
    if (!takeOwn(requestId))
        return;
    RecSearchReqIdsManager::instance().renewal(); // the others shall not time out meanwhile
    if (errorCode != 0)
        emit signalFailed(tr("Failed to search video recordings(%1)").arg(errorCode), false);
    else if (recordings.isEmpty())
        emit signalFailed(tr("Non-video recordings"), true);
    else
        emit signalFound(recordings);
}

void BackupSearch::timedOut(const QString& requestId)
{
    if (takeOwn(requestId))
        emit signalFailed(tr("Query video recording timeout"), false);
}

} // namespace vemo_filesCenter
