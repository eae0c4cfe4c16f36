#pragma once

#include <TableOperWt.h>

namespace vemo_filesCenter {

/// The buttons of a row of local recordings; its key is the path of the row's file. Lives only while its row is in
/// view.
class LocalRecordingOperWt final : public vemo_base::TableOperWt
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(LocalRecordingOperWt)

public:
    explicit LocalRecordingOperWt(QWidget* parent = nullptr);

signals: // in this order: it is the order of their indexes
    void signalOpenRecordingFile(const QString& filePath);
    void signalOpenRecordingFolder(const QString& filePath);
    void signalDeleteRecording();
};

} // namespace vemo_filesCenter
