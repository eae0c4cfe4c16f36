#include "IndexesInfoResult.h"

#include "LocalRecordingIndexes.h"

namespace VCOMMON {

IndexesInfoResult::IndexesInfoResult(const QString& requestId, QObject* parent)
    : QObject(parent)
    , m_requestId(requestId)
{
    connect(&LocalRecordingIndexes::instance(),
            &LocalRecordingIndexes::signalGetChannelsLocalRecordingIndexesInfoResult, this,
            [this](const QString& answeredId, const QList<LocalRecordingIndexInfo>& records) {
                if (answeredId == m_requestId)
                    emit signalIndexesInfoResult(records);
            });
}

} // namespace VCOMMON
