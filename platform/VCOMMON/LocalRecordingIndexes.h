#pragma once

#include "ChannelInfo.h"
#include "LocalRecordingIndexInfo.h"
#include "VCOMMON_global.h"

#include <QObject>
#include <QStringList>

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
    /// More are not answered, the oldest come first.
    static constexpr int maxRecordsAnswered = 100'000;

    static LocalRecordingIndexes& instance();

    /// Adds a finished file, or replaces what is known of it.
    void addLocalRecordingIndex(const VCOMMON::LocalRecordingIndexInfo& record);
    /// Puts records back that the latest deletion removed.
    void restoreLocalRecordingIndexes(const QStringList& filePaths);

signals:
    /// Asks for all recordings that touch the span; the last argument is 0.
    void signalGetLocalRecordingIndexesInfo(const QString& requestId, const QDateTime& begin, const QDateTime& end,
                                            int type);
    /// The answer; in order of begin, at most maxRecordsAnswered; `type` as in the question.
    void signalGetLocalRecordingIndexesInfoResult(const QString& requestId,
                                                  const QList<VCOMMON::LocalRecordingIndexInfo>& records, int type);

    /// Asks to remove the records of these files; the files stay.
    void signalDeleteLocalRecordingIndexes(const QString& requestId, const QStringList& filePaths);
    /// The answer: the records of all of them are gone, whether there was one or not, or nothing was changed. The asker
    /// then removes the files and gives back the records of those that would not go, by restoreLocalRecordingIndexes().
    void signalDeleteLocalRecordingIndexesResult(const QString& requestId, const QStringList& filePaths, bool success);

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

    void answer(const QString& requestId, const QDateTime& begin, const QDateTime& end, int type);
    void answer(const QString& requestId, const QList<ChannelInfo>& channels, const QDateTime& begin,
                const QDateTime& end);
    void remove(const QString& requestId, const QStringList& filePaths);

    QList<LocalRecordingIndexInfo> m_removed; ///< by the latest deletion
};

} // namespace VCOMMON
