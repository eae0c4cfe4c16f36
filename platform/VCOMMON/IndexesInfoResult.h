#pragma once

#include "LocalRecordingIndexInfo.h"
#include "VCOMMON_global.h"

#include <QObject>

namespace VCOMMON {

/// Waits for the answer to one question to the local index stores and passes it on, once. Made before the question is
/// asked, on the GUI thread, owned by its parent.
class VCOMMON_EXPORT IndexesInfoResult final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(IndexesInfoResult)

public:
    explicit IndexesInfoResult(const QString& requestId, QObject* parent = nullptr);

signals:
    void signalIndexesInfoResult(const QList<VCOMMON::LocalRecordingIndexInfo>& records);

private:
    const QString m_requestId;
};

} // namespace VCOMMON
