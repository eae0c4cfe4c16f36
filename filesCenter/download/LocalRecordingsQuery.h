#pragma once

#include <DownloadTaskInfo.h>
#include <LocalRecordingIndexInfo.h>

class QObject;

namespace vemo_filesCenter {

/// Asks the index of this computer's recordings for those of a channel that touch the span, and waits for the answer in
/// a nested event loop on the GUI thread. False when the loop ended without an answer, as at the application's end.
bool findLocalRecordings(const QString& devId, int channelNo, const QDateTime& begin, const QDateTime& end,
                         QList<VCOMMON::LocalRecordingIndexInfo>* records, QObject* parent);

/// The JSON text by which the media download SDK cuts local files: the span and the files that cover it.
QByteArray cuttingList(const QDateTime& begin, const QDateTime& end,
                       const QList<VCOMMON::LocalRecordingIndexInfo>& records);

} // namespace vemo_filesCenter
