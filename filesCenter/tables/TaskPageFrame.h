#pragma once

#include <DownloadTaskInfo.h>

#include <QObject>
#include <QPair>
#include <QString>
#include <QVector>

#include <functional>
#include <utility>

class QHBoxLayout;
class QPushButton;
class QStackedWidget;
class QWidget;

namespace vemo_base {
class PageHeader;
class TableFooter;
class TableWidget;
} // namespace vemo_base

namespace vemo_filesCenter {

class TaskDetailsWt;

/// What the pages of the three task tables look like: a header with title, summary and batch buttons, the table or,
/// when it is empty, what to do, and below it the count of checked rows and the keys. Fills a page, which owns it. GUI
/// thread.
class TaskPageFrame final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(TaskPageFrame)

public:
    struct Look
    {
        QString title;
        QString emptyIcon;
        QString missing; ///< what an empty page says
        QString advice;
        bool offersPlayback = false; ///< an empty page leads to where recordings are picked
        /// What the panel of details tells too: the first gives way in a small window, all do beside the open panel.
        QVector<int> detailColumns;
        QString hint;                          ///< below the table while no row is checked; may be empty
        QVector<QPair<QString, QString>> keys; ///< key and what it does
    };

    TaskPageFrame(QWidget* page, const Look& look, const QStringList& columns);

    vemo_base::TableWidget* table() const { return m_table; }
    /// Room of the columns as TableWidget takes it, `narrow` for windows in which the usual one would cut texts.
    void setColumnRoom(const QVector<int>& usual, const QVector<int>& narrow);
    QPushButton* addButton(const QString& objectName, const QString& text, const QString& iconName, bool isPrimary);
    void setSummary(const QString& text);
    /// After rows or checks changed.
    void refresh();

    /// Which task a row of the table shows; without one a row has no details.
    using TaskOfRow = std::function<vemo_data::DownloadTaskInfo(int row)>;
    void setTaskOfRow(TaskOfRow taskOfRow) { m_taskOfRow = std::move(taskOfRow); }
    /// Opens the panel with the facts of the row's task beside the table; it follows the current row until it is
    /// closed.
    void showDetails(int row);
    /// The task is no longer in the table.
    void forgetDetails(const QString& taskId);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void closeDetails();
    /// The panel takes room from columns, so that names stay readable.
    void shareRoom(bool withDetails);
    bool isOpen() const;

    QWidget* m_page;
    vemo_base::TableWidget* m_table;
    vemo_base::PageHeader* m_header;
    vemo_base::TableFooter* m_footer;
    const QString m_hint;
    const QVector<int> m_detailColumns;
    QVector<int> m_usualRoom;
    QVector<int> m_narrowRoom;
    QStackedWidget* m_stack;
    QHBoxLayout* m_content;
    TaskDetailsWt* m_details = nullptr; ///< made when it is first asked for
    TaskOfRow m_taskOfRow;
};

} // namespace vemo_filesCenter
