#pragma once

#include <FilesCenterLogs.h>

#include <QTimer>
#include <QUuid>
#include <QWidget>

class QComboBox;
class QPushButton;
class QStackedWidget;

namespace vemo_base {
class DatetimeSpanSelWt;
class PageEditWt;
class PageHeader;
class SearchBox;
class TimeSpaceLineEt;
} // namespace vemo_base

namespace vemo_client {

class LogExport;
class LogsTable;

/// The page "Logs": what happened to files, newest first, by span, kind, channel and words; page by page from the
/// store, so that a hundred thousand entries cost no more than a hundred. What is shown can be exported as CSV. GUI
/// thread.
class LogsPage final : public QWidget
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(LogsPage)

public:
    explicit LogsPage(QWidget* parent = nullptr);
    ~LogsPage() override;

    /// Writes what the page's filters match; an export that runs is not disturbed.
    void exportTo(const QString& path);

signals:
    /// The entries that were asked for last are shown.
    void signalShown();
    void signalExported(const QString& problem);

protected:
    void showEvent(QShowEvent* event) override;

private:
    QWidget* makeChoosing(QWidget* parent);
    QWidget* makeFiltering(QWidget* parent);
    void makeContent();
    void chooseExport();
    void takeExport(const QString& path, const QString& problem, int entries);
    void askChannels();
    void takeChannels(const QList<vemo_worker::FilesCenterLogs::Channel>& channels);
    vemo_worker::FilesCenterLogs::Query wanted() const;
    bool isFiltered() const;
    void clearFilters();
    void ask(int page);
    void take(const QList<vemo_worker::FilesCenterLogs::Entry>& entries, int total, int page);

    vemo_base::PageHeader* m_header;
    vemo_base::TimeSpaceLineEt* m_span = nullptr;
    vemo_base::DatetimeSpanSelWt* m_spanSelector = nullptr;
    QComboBox* m_kind = nullptr;
    QComboBox* m_channel = nullptr;
    vemo_base::SearchBox* m_filter = nullptr;
    QPushButton* m_export = nullptr;
    QStackedWidget* m_content = nullptr;
    LogsTable* m_table = nullptr;
    vemo_base::PageEditWt* m_pages = nullptr;
    QTimer m_typing;
    LogExport* m_running = nullptr;
    QUuid m_veil; ///< over the page while an export runs
    int m_total = 0;
    int m_asked = 0; ///< only the last question's answer counts
};

} // namespace vemo_client
