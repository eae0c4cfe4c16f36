#include "LogsPage.h"

#include "LogExport.h"
#include "LogsTable.h"
#include "LogWords.h"

#include <DatetimeSpanSelWt.h>
#include <DisabledWaitingWt.h>
#include <DisabledWaitingWtManager.h>
#include <EmptyStateWt.h>
#include <Icons.h>
#include <Notices.h>
#include <PageEditWt.h>
#include <PageHeader.h>
#include <SearchBox.h>
#include <TimeSpaceLineEt.h>
#include <WrappingBar.h>

#include <QComboBox>
#include <QDesktopServices>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLocale>
#include <QPushButton>
#include <QShortcut>
#include <QStackedWidget>
#include <QStandardPaths>
#include <QUrl>
#include <QVBoxLayout>

namespace vemo_client {

namespace {

using vemo_worker::FilesCenterLogs;
using Kind = FilesCenterLogs::Kind;

constexpr int margin = 24;
constexpr int topMargin = 20;
constexpr int gap = 16;
constexpr int controlGap = 8;
constexpr int daysShownAtFirst = 30;
constexpr qint64 longestSpanSeconds = qint64(3650) * 86400;
constexpr int widestBox = 240;
constexpr int typingPauseMs = 150;
constexpr int percent = 100;

enum Content : int { RowsContent = 0, NothingContent, NoHitContent };

QHBoxLayout* rowIn(QWidget* widget)
{
    auto* row = new QHBoxLayout(widget);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(controlGap);
    return row;
}

} // namespace

LogsPage::LogsPage(QWidget* parent)
    : QWidget(parent)
    , m_header(new vemo_base::PageHeader(tr("Logs"), this))
{
    auto* bar = new vemo_base::WrappingBar(this);
    auto* grid = new QGridLayout(bar);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->addWidget(makeChoosing(bar), 0, 0, Qt::AlignLeading);
    grid->addWidget(makeFiltering(bar), 0, 1, Qt::AlignTrailing);
    grid->setColumnStretch(0, 1);
    m_content = new QStackedWidget(this);
    makeContent();
    m_pages = new vemo_base::PageEditWt(this);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(margin, topMargin, margin, gap);
    layout->setSpacing(gap);
    layout->addWidget(m_header);
    layout->addWidget(bar);
    layout->addWidget(m_content, 1);
    layout->addWidget(m_pages);
    for (QWidget* area : {static_cast<QWidget*>(bar), static_cast<QWidget*>(m_content), static_cast<QWidget*>(m_pages)})
        area->setProperty("area", QVariant(true));

    m_typing.setSingleShot(true);
    m_typing.setInterval(typingPauseMs);
    connect(&m_typing, &QTimer::timeout, this, [this] { ask(1); });
    connect(m_pages, &vemo_base::PageEditWt::signalGoToPage, this, &LogsPage::ask);
    connect(m_pages, &vemo_base::PageEditWt::signalPageSizeChanged, this, [this] { ask(1); });
    auto* find = new QShortcut(QKeySequence::Find, this, nullptr, nullptr, Qt::WidgetWithChildrenShortcut);
    connect(find, &QShortcut::activated, m_filter, [this] {
        m_filter->setFocus(Qt::ShortcutFocusReason);
        m_filter->selectAll();
    });
}

LogsPage::~LogsPage() = default;

QWidget* LogsPage::makeChoosing(QWidget* parent)
{
    auto* choosing = new QWidget(parent);
    m_span = new vemo_base::TimeSpaceLineEt(choosing);
    m_span->setAccessibleName(tr("Span of time"));
    const QDate today = QDate::currentDate();
    m_span->setDateTimeSpace(QDateTime(today.addDays(-daysShownAtFirst), QTime(0, 0, 0)),
                             QDateTime(today, QTime(23, 59, 59)));
    m_spanSelector = new vemo_base::DatetimeSpanSelWt(this);
    m_spanSelector->setMaxSpanSeconds(longestSpanSeconds);
    connect(m_span, &vemo_base::TimeSpaceLineEt::clicked, this, [this] {
        m_spanSelector->setInitDateTime(m_span->getBeginDateTime(), m_span->getEndDateTime());
        m_spanSelector->showBelow(m_span);
    });
    connect(m_spanSelector, &vemo_base::DatetimeSpanSelWt::signalDatetimeSpanSelected, this,
            [this](const QDateTime& begin, const QDateTime& end) {
                m_span->setDateTimeSpace(begin, end);
                ask(1);
            });
    m_kind = new QComboBox(choosing);
    m_kind->setAccessibleName(tr("Kind"));
    m_kind->setToolTip(tr("Kind of entries"));
    m_kind->addItem(tr("Every kind"), int(Kind::Unknown));
    for (const Kind kind : {Kind::Download, Kind::Backup, Kind::LocalRecordDeletion, Kind::LocalCaptureDeletion})
        m_kind->addItem(vemo_base::Icons::icon(LogWords::kindIcon(kind)), LogWords::kind(kind), int(kind));
    m_channel = new QComboBox(choosing);
    m_channel->setAccessibleName(tr("Channel"));
    m_channel->setToolTip(tr("Channel that the entries are about"));
    m_channel->addItem(tr("Every channel"));
    for (QComboBox* box : {m_kind, m_channel}) {
        box->setSizeAdjustPolicy(QComboBox::AdjustToContents);
        box->setMaximumWidth(widestBox);
        connect(box, QOverload<int>::of(&QComboBox::activated), this, [this] { ask(1); });
    }
    QHBoxLayout* row = rowIn(choosing);
    row->addWidget(m_span);
    row->addWidget(m_kind);
    row->addWidget(m_channel);
    return choosing;
}

QWidget* LogsPage::makeFiltering(QWidget* parent)
{
    auto* filtering = new QWidget(parent);
    m_filter = new vemo_base::SearchBox(filtering);
    m_filter->setPlaceholderText(tr("Filter by words"));
    m_filter->setAccessibleName(m_filter->placeholderText());
    connect(m_filter, &QLineEdit::textChanged, &m_typing, QOverload<>::of(&QTimer::start));
    m_export = new QPushButton(vemo_base::Icons::icon(QStringLiteral("export")), tr("Export as CSV"), filtering);
    m_export->setToolTip(tr("Writes all entries that match, of every page, into a file for spreadsheets."));
    connect(m_export, &QPushButton::clicked, this, &LogsPage::chooseExport);
    QHBoxLayout* row = rowIn(filtering);
    row->addWidget(m_filter);
    row->addWidget(m_export);
    return filtering;
}

void LogsPage::makeContent()
{
    m_table = new LogsTable(m_content);
    m_content->addWidget(m_table);
    auto* nothing = new vemo_base::EmptyStateWt(
        QStringLiteral("logs"), tr("Nothing was logged in this span."),
        tr("Downloads that end, backups, and files that are deleted leave their entries here. Choose another span."),
        QString(), m_content);
    m_content->addWidget(nothing);
    auto* noHit = new vemo_base::EmptyStateWt(QStringLiteral("filter"), tr("No entry matches the filters."),
                                              tr("The words are looked for in device, channel and event."),
                                              tr("Clear the filters"), m_content);
    noHit->setButtonSecondary();
    connect(noHit, &vemo_base::EmptyStateWt::signalButtonClicked, this, &LogsPage::clearFilters);
    m_content->addWidget(noHit);
}

void LogsPage::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    ask(m_pages->getCurPageNum());
    askChannels();
}

// What is shown

FilesCenterLogs::Query LogsPage::wanted() const
{
    FilesCenterLogs::Query query;
    query.begin = m_span->getBeginDateTime();
    query.end = m_span->getEndDateTime().addSecs(1); // the last second is meant to be in
    query.kind = static_cast<Kind>(m_kind->currentData().toInt());
    if (m_channel->currentIndex() > 0) {
        const QVariantList channel = m_channel->currentData().toList();
        query.device = channel.value(0).toString();
        query.channelNo = channel.value(1).toInt();
    }
    query.contains = m_filter->text();
    return query;
}

bool LogsPage::isFiltered() const
{
    return m_kind->currentIndex() > 0 || m_channel->currentIndex() > 0 || !m_filter->text().isEmpty();
}

void LogsPage::clearFilters()
{
    m_kind->setCurrentIndex(0);
    m_channel->setCurrentIndex(0);
    m_filter->clear();
    m_typing.stop();
    ask(1);
}

void LogsPage::askChannels()
{
    FilesCenterLogs::instance().queryChannels(
        this, [this](const QList<FilesCenterLogs::Channel>& channels) { takeChannels(channels); });
}

void LogsPage::takeChannels(const QList<FilesCenterLogs::Channel>& channels)
{
    const QVariant chosen = m_channel->currentData();
    while (m_channel->count() > 1)
        m_channel->removeItem(m_channel->count() - 1);
    for (const FilesCenterLogs::Channel& channel : channels) {
        const QString name = LogWords::channel(channel.device, channel.channelNo, channel.channelName);
        m_channel->addItem(tr("%1 (%2)").arg(name, LogWords::device(channel.device)),
                           QVariantList{channel.device, channel.channelNo});
        if (m_channel->itemData(m_channel->count() - 1) == chosen)
            m_channel->setCurrentIndex(m_channel->count() - 1);
    }
}

void LogsPage::ask(int page)
{
    m_typing.stop();
    const int number = ++m_asked;
    FilesCenterLogs::Query query = wanted();
    query.limit = m_pages->getPageSize();
    query.offset = (qMax(1, page) - 1) * query.limit;
    FilesCenterLogs::instance().queryCounted(
        query, this, [this, number, page](const QList<FilesCenterLogs::Entry>& entries, int total) {
            if (number == m_asked)
                take(entries, total, page);
        });
}

void LogsPage::take(const QList<FilesCenterLogs::Entry>& entries, int total, int page)
{
    m_total = total;
    m_pages->updateTotalCnt(total, page);
    if (entries.isEmpty() && total > 0 && m_pages->getCurPageNum() != page) {
        ask(m_pages->getCurPageNum()); // the list has become shorter meanwhile
        return;
    }
    m_table->setEntries(entries, (m_pages->getCurPageNum() - 1) * m_pages->getPageSize() + 1);
    m_content->setCurrentIndex(total > 0 ? RowsContent : isFiltered() ? NoHitContent : NothingContent);
    m_pages->setVisible(total > 0);
    m_export->setEnabled(total > 0 && !m_running);
    const QString count = QLocale().toString(total);
    m_header->setSummary(total == 1 ? tr("1 entry, newest first") : tr("%1 entries, newest first").arg(count));
    emit signalShown();
}

// Export

void LogsPage::chooseExport()
{
    const QString name = QStringLiteral("%1/vemo-logs-%2.csv")
                             .arg(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation),
                                  QDate::currentDate().toString(Qt::ISODate));
    const QString path = QFileDialog::getSaveFileName(this, tr("Export as CSV"), name, tr("CSV files (*.csv)"));
    if (!path.isEmpty())
        exportTo(path);
}

void LogsPage::exportTo(const QString& path)
{
    if (m_running)
        return;
    m_running = new LogExport(path, wanted(), m_total, this);
    m_export->setEnabled(false);
    auto* veil = new vemo_base::DisabledWaitingWt(this, tr("Exporting the log:%1%").arg(0), QString(), true);
    m_veil = veil->getUuid();
    connect(veil, &vemo_base::DisabledWaitingWt::signalCancelled, m_running, &LogExport::cancel);
    connect(m_running, &LogExport::signalProgress, this, [this](int written, int total) {
        const int done = total > 0 ? qMin(percent, int(qint64(written) * percent / total)) : percent;
        vemo_base::DisabledWaitingWtManager::instance().updateDisabledWaitingWtDescription(
            m_veil, tr("Exporting the log:%1%").arg(done));
    });
    connect(m_running, &LogExport::signalEnded, this,
            [this, path](const QString& problem, int entries) { takeExport(path, problem, entries); });
    veil->show();
    m_running->start();
}

void LogsPage::takeExport(const QString& path, const QString& problem, int entries)
{
    vemo_base::DisabledWaitingWtManager::instance().destroyDisabledWaitingWt(m_veil);
    m_running->deleteLater();
    m_running = nullptr;
    m_export->setEnabled(m_total > 0);
    vemo_base::Notice notice;
    if (problem.isEmpty()) {
        notice.kind = vemo_base::Notice::Kind::Success;
        notice.title = entries == 1 ? tr("1 log entry was exported") : tr("%1 log entries were exported").arg(entries);
        notice.text = QDir::toNativeSeparators(path);
        const QString folder = QFileInfo(path).absolutePath();
        notice.actions = {
            {tr("Open the folder"), [folder] { QDesktopServices::openUrl(QUrl::fromLocalFile(folder)); }}};
    } else {
        notice.kind = vemo_base::Notice::Kind::Warning;
        notice.title = tr("The log was not exported");
        notice.text = problem;
    }
    vemo_base::Notices::instance().add(notice);
    emit signalExported(problem);
}

} // namespace vemo_client
