#include "LocalRecordingItem.h"

#include "LocalRecordingsData.h"

#include <BaseTools.h>
#include <LocalRecordingIndexInfo.h>

namespace vemo_filesCenter {

namespace {

enum Role : int {
    ChannelNoRole = Qt::UserRole + 101, // clear of the roles of the shared tables
    ChannelIdRole,
    DevNameRole,
    FilePathRole,
    BeginTimeRole,
    EndTimeRole
};

QString displayDevName(const VCOMMON::LocalRecordingIndexInfo& record)
{
    if (!record.devName.isEmpty())
        return record.devName;
    const vms_sdk::DevInfo device = vemo_base::BaseTools::instance().getDevInfo(record.devId);
    if (!device.name.isEmpty())
        return device.name;
    return device.model.isEmpty() ? record.devId : device.model;
}

} // namespace

LocalRecordingItem::LocalRecordingItem(const VCOMMON::LocalRecordingIndexInfo& record)
    : QTableWidgetItem(LocalRecordingsData::displayName(record))
{
    setChannelNo(record.channelNo);
    setChannelId(record.channelId);
    setDevName(displayDevName(record));
    setFilePath(record.filePath);
    setBeginTime(record.beginTime);
    setEndTime(record.endTime);
}

bool LocalRecordingItem::operator<(const QTableWidgetItem& other) const
{
    if (text() != other.text())
        return vemo_base::BaseTools::instance().strLessThan(text(), other.text());
    return beginTime() < other.data(BeginTimeRole).toDateTime();
}

int LocalRecordingItem::channelNo() const
{
    return data(ChannelNoRole).toInt();
}

QString LocalRecordingItem::channelId() const
{
    return data(ChannelIdRole).toString();
}

QString LocalRecordingItem::devName() const
{
    return data(DevNameRole).toString();
}

QString LocalRecordingItem::filePath() const
{
    return data(FilePathRole).toString();
}

QDateTime LocalRecordingItem::beginTime() const
{
    return data(BeginTimeRole).toDateTime();
}

QDateTime LocalRecordingItem::endTime() const
{
    return data(EndTimeRole).toDateTime();
}

void LocalRecordingItem::setChannelNo(int channelNo)
{
    setData(ChannelNoRole, channelNo);
}

void LocalRecordingItem::setChannelId(const QString& channelId)
{
    setData(ChannelIdRole, channelId);
}

void LocalRecordingItem::setDevName(const QString& devName)
{
    setData(DevNameRole, devName);
}

void LocalRecordingItem::setFilePath(const QString& filePath)
{
    setData(FilePathRole, filePath);
}

void LocalRecordingItem::setBeginTime(const QDateTime& time)
{
    setData(BeginTimeRole, time);
}

void LocalRecordingItem::setEndTime(const QDateTime& time)
{
    setData(EndTimeRole, time);
}

} // namespace vemo_filesCenter
