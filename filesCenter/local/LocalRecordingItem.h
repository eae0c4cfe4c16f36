#pragma once

#include <QDateTime>
#include <QTableWidgetItem>

namespace VCOMMON {
struct LocalRecordingIndexInfo;
}

namespace vemo_filesCenter {

/// The cell "Channel Name" of a local recording: its text is the channel's name, and it carries what the row's actions
/// need. Sorts by name, then by begin.
class LocalRecordingItem final : public QTableWidgetItem
{
public:
    LocalRecordingItem() = default;
    explicit LocalRecordingItem(const VCOMMON::LocalRecordingIndexInfo& record);

    bool operator<(const QTableWidgetItem& other) const override;

    int channelNo() const;
    QString channelId() const;
    /// The device's name as the recording tells it, else as the client knows it, else its id.
    QString devName() const;
    QString filePath() const;
    QDateTime beginTime() const;
    QDateTime endTime() const;

    void setChannelNo(int channelNo);
    void setChannelId(const QString& channelId);
    void setDevName(const QString& devName);
    void setFilePath(const QString& filePath);
    void setBeginTime(const QDateTime& time);
    void setEndTime(const QDateTime& time);
};

} // namespace vemo_filesCenter
