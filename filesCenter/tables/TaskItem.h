#pragma once

#include <QTableWidgetItem>

namespace vemo_filesCenter {

/// The item that ties a row of a task table to its task: it stands in column 1 and carries the task's key.
class TaskItem final : public QTableWidgetItem
{
public:
    TaskItem(const QString& text, const QString& key);

    QString key() const { return m_key; }

private:
    const QString m_key;
};

} // namespace vemo_filesCenter
