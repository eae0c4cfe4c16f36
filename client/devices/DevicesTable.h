#pragma once

#include <QHash>
#include <QStringList>
#include <QWidget>

namespace vemo_base {
class TableWidget;
}

namespace vemo_client {

class RecorderLogins;

/// The stored recorders as rows, in the order in which they were added, with their state. Follows the stores and the
/// logins by itself; tells what the person wants done and does nothing of it. GUI thread.
class DevicesTable final : public QWidget
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(DevicesTable)

public:
    explicit DevicesTable(RecorderLogins* logins, QWidget* parent = nullptr);
    ~DevicesTable() override;

    void setFilter(const QString& text);
    QStringList checkedDevIds() const;
    QString currentDevId() const;
    void showDevice(const QString& devId);
    int rows() const;
    int shownRows() const;

signals:
    void signalRowsChanged();
    void signalCheckedChanged();
    void signalDetails(const QString& devId);
    void signalReconnect(const QString& devId);
    void signalEdit(const QString& devId);
    void signalEnable(const QString& devId, bool enabled);
    void signalRemove(const QStringList& devIds);
    void signalMenu(const QString& devId, const QPoint& globalPos);

private:
    QWidget* makeOper(int row);
    void fill();
    void refresh(const QString& devId);
    void writeRow(int row, const QString& devId);
    void removeRow(const QString& devId);
    int rowOf(const QString& devId) const;
    QString devIdOf(int row) const;
    void applyFilterTo(int row);

    RecorderLogins* m_logins;
    vemo_base::TableWidget* m_table;
    QHash<QString, QString> m_words; ///< what the filter looks through, by device
    QString m_filter;
};

} // namespace vemo_client
