#pragma once

#include "TasksTableCommonOper.h"

#include <QHash>
#include <QObject>

#include <functional>

namespace vemo_base {
class TableWidget;
}

namespace vemo_filesCenter {

class DownloadingOperWt;
class DownloadStateWt;

/// What the rows of the downloading table show, by task key, and the widgets of those in view. The widgets come and go
/// with scrolling, so the truth is kept here; setting it shows it where there is something to show it on. GUI thread,
/// owned by the page, which decides what is true; the table's widget goes before this object does.
class DownloadingRows final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(DownloadingRows)

public:
    enum Column : int { CheckColumn = 0, ChannelColumn, RangeColumn, LocationColumn, ProgressColumn, OperColumn };

    struct Row
    {
        int state = 0;              ///< shown
        int progress = 0;           ///< of the bar
        bool isStartEnabled = true; ///< its channel exists
        bool isStartChecked = false;
    };

    using OperWtMade = std::function<void(DownloadingOperWt*)>;
    using ToolTip = std::function<QString(const QString& key)>;

    /// `made` connects the buttons of a row that came into view; `toolTip` is asked when one is shown.
    DownloadingRows(vemo_base::TableWidget* table, const TasksTableCommonOper* tasks, OperWtMade made, ToolTip toolTip,
                    QObject* parent);

    Row row(const QString& key) const { return m_rows.value(key); }
    /// Before fill(): what the row shows.
    void set(const QString& key, const Row& row) { m_rows.insert(key, row); }
    /// Puts the items into a row of the table.
    void fill(int tableRow, const DownloadTaskInfo& task);
    void remove(const QString& key);

    /// `progress` -1 keeps the bar.
    void show(const QString& key, int state, int progress);
    void setStartChecked(const QString& key, bool checked);
    void setStartEnabled(const QString& key, bool enabled);
    void showChannel(const QString& key, const QString& text);

    /// Keys of the rows in view.
    QStringList keysInView() const { return m_stateWts.keys(); }
    QWidget* operWt(const QString& key) const;

    /// "37%", "pause", "waiting download...": as a row says it.
    QString progressText(const QString& key) const;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QWidget* makeStateWt(int tableRow);
    QWidget* makeOperWt(int tableRow);

    vemo_base::TableWidget* m_table;
    const TasksTableCommonOper* m_tasks;
    const OperWtMade m_operWtMade;
    const ToolTip m_toolTip;
    QHash<QString, Row> m_rows;
    QHash<QString, DownloadStateWt*> m_stateWts;  ///< of the rows in view
    QHash<QString, DownloadingOperWt*> m_operWts; ///< of the rows in view
};

} // namespace vemo_filesCenter
