#pragma once

#include <DownloadTaskInfo.h>

#include <QMap>
#include <QObject>
#include <QSet>
#include <QStringList>

class QTableWidget;

namespace vemo_filesCenter {

using vemo_data::DownloadTaskInfo;

/// What the three task tables have in common: the records of their rows by task key, and the ways in which rows and
/// stored records go. A row belongs to the task that its TaskItem in column 1 names; rows without one belong to none.
/// One object a table, owned by it; GUI thread. Records and rows are apart: only the functions that say so touch rows,
/// and only deletions reach the store.
class TasksTableCommonOper final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(TasksTableCommonOper)

public:
    explicit TasksTableCommonOper(QObject* parent = nullptr);
    ~TasksTableCommonOper() override;

    void setTableWidget(QTableWidget* table);

    bool contains(const QString& key) const { return m_records.contains(key); }
    void addRecord(const DownloadTaskInfo& record);
    DownloadTaskInfo record(const QString& key) const; ///< an empty one when the key is not known
    const QMap<QString, DownloadTaskInfo>& records() const { return m_records; }

    // Each does nothing for a key that is not known.
    void setChannelId(const QString& key, const QString& channelId);
    void setFilePath(const QString& key, const QString& filePath);
    void setState(const QString& key, int state);
    void updateRecord(const DownloadTaskInfo& record);

    void updateOrderNumbers();
    /// Asks the person, then deletes the stored record; the row goes when the store has announced it. True when it was
    /// deleted.
    bool deleteTaskConfirmed(const QString& key);
    /// Row and record of a task that moves to another table.
    void removeRowByKey(const QString& key);
    /// Deletes the stored records of the keys that are known, in one call; rows and records stay.
    void deleteTasks(const QStringList& keys);
    void removeRows(const QSet<QString>& keys);

    QString keyOfRow(int row) const; ///< empty when the row belongs to no task
    /// The first from the top; -1 when there is none. Looks at every row: not for what comes often.
    int rowOfKey(const QString& key) const;
    QStringList keysOfRows(const QList<int>& rows) const;

    /// "<begin with date>~<clock time of the end>"
    static QString timeRangeText(const DownloadTaskInfo& record);

private:
    QTableWidget* m_table = nullptr;
    QMap<QString, DownloadTaskInfo> m_records;
};

} // namespace vemo_filesCenter
