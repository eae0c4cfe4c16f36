#pragma once

#include <FilesCenterLogs.h>

#include <QWidget>

namespace vemo_base {
class TableWidget;
}

namespace vemo_client {

/// One page of the log as a table: number, time, kind, device, channel, event. GUI thread.
class LogsTable final : public QWidget
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(LogsTable)

public:
    explicit LogsTable(QWidget* parent = nullptr);

    void setEntries(const QList<vemo_worker::FilesCenterLogs::Entry>& entries, int firstNumber);
    int rows() const;
    QString text(int row, int column) const;

private:
    vemo_base::TableWidget* m_table;
};

} // namespace vemo_client
