#pragma once

#include "ChannelInfo.h"
#include "LocalRecordingIndexInfo.h"
#include "VCOMMON_global.h"

#include <QObject>

namespace VCOMMON {

/// The index of the recordings on this computer. One object a process, on the GUI thread; all traffic is by signals: a
/// question carries a request id made by the asker, the answer carries it back, always later and never from within the
/// question. The records are kept in the client's database and read on its thread. A question that can't be answered
/// gets an empty list.
class VCOMMON_EXPORT LocalRecordingIndexes final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(LocalRecordingIndexes)

public:
    static LocalRecordingIndexes& instance();

    /// Adds a finished file, or replaces what is known of it.
    void addLocalRecordingIndex(const VCOMMON::LocalRecordingIndexInfo& record);

signals:
    /// Asks for the recordings of these channels that touch the span; the last argument is 0. Answered through an
    /// IndexesInfoResult made for the request id.
    void signalGetChannelsLocalRecordingIndexesInfo(const QString& requestId,
                                                    const QList<VCOMMON::ChannelInfo>& channels, const QDateTime& begin,
                                                    const QDateTime& end, int type);
    /// The answer; in order of begin.
    void signalGetChannelsLocalRecordingIndexesInfoResult(const QString& requestId,
                                                          const QList<VCOMMON::LocalRecordingIndexInfo>& records);

private:
    LocalRecordingIndexes();

    void answer(const QString& requestId, const QList<ChannelInfo>& channels, const QDateTime& begin,
                const QDateTime& end);
};

} // namespace VCOMMON
