#include "LocalRecordingsMgrPage.h"

#include "LocalFilesSaveAs.h"
#include "LocalPageBar.h"
#include "LocalRecordingItem.h"
#include "LocalRecordingOperWt.h"
#include "LocalRecordingRows.h"
#include "LocalRecordingsData.h"
#include "ui_LocalRecordingsMgrPage.h"

#include "download/DiskWork.h"

#include <BaseTools.h>
#include <DictDef.h>
#include <DisabledWaitingWt.h>
#include <DisabledWaitingWtManager.h>
#include <EmptyStateWt.h>
#include <FilesCenterLogs.h>
#include <Icons.h>
#include <LocalIndexRescan.h>
#include <LocalPlaybackDlg.h>
#include <LocalRecordingIndexes.h>
#include <PageHeader.h>
#include <SaveAsName.h>
#include <SystemAssistant.h>
#include <SystemConfig.h>
#include <TableOperWtStyle.h>
#include <ToolsCollection.h>
#include <VMessageBox.h>

#include <QClipboard>
#include <QDir>
#include <QFileInfo>
#include <QGuiApplication>
#include <QHash>
#include <QMenu>
#include <QScopedValueRollback>
#include <QTimer>
#include <QToolTip>
#include <QUuid>

#include <algorithm>
#include <utility>

namespace vemo_filesCenter {

using VCOMMON::LocalIndexRescan;
using VCOMMON::LocalRecordingIndexes;
using VCOMMON::LocalRecordingIndexInfo;
using vemo_base::BaseTools;
using vemo_base::DisabledWaitingWt;
using vemo_base::DisabledWaitingWtManager;
using vemo_base::EmptyStateWt;
using vemo_base::TableWidget;
using Rows = LocalRecordingRows;

namespace {

constexpr int questionBeforeDeed = 3;
constexpr int answerYes = 1;
constexpr int diskPatienceMs = 30;
constexpr int rescanAgeMs = 60'000;
constexpr int retryMs = 300;
constexpr int typingPauseMs = 700;
constexpr int mostFilesNamed = 5;
constexpr int operColumn = Rows::OperColumn;

enum Content : int { RowsContent = 0, NothingContent, NoHitContent };

void alert(const QString& text)
{
    vemo_worker::SystemAssistant::instance().messageAlert(vemo_worker::DictDef::titlePrompt(), text);
}

} // namespace

LocalRecordingsMgrPage::LocalRecordingsMgrPage(QWidget* parent)
    : QWidget(parent)
    , m_ui(std::make_unique<Ui::LocalRecordingsMgrPage>())
    , m_data(new LocalRecordingsData(this))
    , m_saveAs(new LocalFilesSaveAs(this))
    , m_noHitTimer(new QTimer(this))
{
    m_ui->setupUi(this);
    m_header = LocalPageBar(this, *m_ui).setUp(tr("Local Recording"));
    setUpTable();
    setUpEmptyStates();
    setUpConnections();
    showContent();
}

LocalRecordingsMgrPage::~LocalRecordingsMgrPage()
{
    endRequest();
    // It asks for the widgets of its rows to its end, so it ends before what they are made from.
    m_ui->tableWidget->disconnect();
    delete m_ui->tableWidget;
}

void LocalRecordingsMgrPage::setUpTable()
{
    m_tableStyle = new vemo_base::TableOperWtStyle(this);
    m_tableStyle->setWts(m_ui->selAll, m_ui->tableWidget, m_ui->headerLayout, {operColumn});
    m_rows = new LocalRecordingRows(m_ui->tableWidget, this);
    connect(m_rows, &LocalRecordingRows::signalOperWtMade, this, &LocalRecordingsMgrPage::connectOperWt);

    VCOMMON::VTableWidget* table = m_ui->tableWidget;
    const auto openRow = [this, table](int row) {
        if (const LocalRecordingItem* item = m_rows->item(row))
            openFile(item->filePath(), table->visibleCellWidget(row, operColumn));
    };
    connect(table, &QTableWidget::itemDoubleClicked, this, [openRow](QTableWidgetItem* item) { openRow(item->row()); });
    connect(table, &TableWidget::signalRowActivated, this, openRow);
    connect(table, &TableWidget::signalRowMenuRequested, this, &LocalRecordingsMgrPage::openRowMenu);
    connect(table, &TableWidget::signalDeleteRequested, this, [this, table] {
        if (table->checkedCount() > 0)
            slotDeleteBtClicked();
        else
            deleteOne(table->currentRow());
    });
}

void LocalRecordingsMgrPage::setUpEmptyStates()
{
    const LocalPageBar bar(this, *m_ui);
    EmptyStateWt* nothing =
        bar.addNothing(QStringLiteral("local-recording"), tr("There are no recordings in this span."),
                       tr("What live view records appears here. Choose another span, or look for files that came into "
                          "the folder another way."),
                       tr("Look for new files"));
    connect(nothing, &EmptyStateWt::signalButtonClicked, this, [this] {
        m_hasAskedRescan = true;
        rescan();
    });
    bar.addNoHit(tr("No recording matches the filter."), tr("The filter looks for a part of the channel's name."),
                 tr("Clear the filter"));
}

void LocalRecordingsMgrPage::setUpConnections()
{
    connect(m_ui->searchBt, &QPushButton::clicked, this, &LocalRecordingsMgrPage::slotSearchBtClicked);
    connect(m_ui->deleteBt, &QPushButton::clicked, this, &LocalRecordingsMgrPage::slotDeleteBtClicked);
    connect(m_ui->saveAsBt, &QPushButton::clicked, this, &LocalRecordingsMgrPage::slotSaveAsBtClicked);
    connect(m_ui->filterWt, &QLineEdit::textChanged, this, &LocalRecordingsMgrPage::filterRecordings);
    connect(m_ui->pageIndexWt, &vemo_base::PageEditWt::signalPageSizeChanged, this,
            [this] { showPage(1, WhenEmpty::Tell, Rows::Place::Top); });
    connect(m_ui->pageIndexWt, &vemo_base::PageEditWt::signalGoToPage, this,
            [this](int page) { showPage(page, WhenEmpty::Tell, Rows::Place::Top); });

    m_noHitTimer->setSingleShot(true);
    m_noHitTimer->setInterval(typingPauseMs);
    connect(m_noHitTimer, &QTimer::timeout, this, [this] {
        if (m_ui->tableWidget->rowCount() == 0 && !m_ui->filterWt->text().isEmpty())
            tellNone();
    });

    const LocalRecordingIndexes& indexes = LocalRecordingIndexes::instance();
    connect(&indexes, &LocalRecordingIndexes::signalGetLocalRecordingIndexesInfoResult, this,
            &LocalRecordingsMgrPage::takeRecordings);
    connect(&indexes, &LocalRecordingIndexes::signalDeleteLocalRecordingIndexesResult, this,
            &LocalRecordingsMgrPage::takeDeletion);

    connect(&LocalIndexRescan::instance(), &LocalIndexRescan::signalFinished, this,
            &LocalRecordingsMgrPage::takeRescan);
}

void LocalRecordingsMgrPage::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    if (!m_hasSearched)
        search(WhenEmpty::Show);
    rescan();
}

// Search

void LocalRecordingsMgrPage::beginRequest(QWidget* covered, const QString& text)
{
    endRequest();
    auto* veil = new DisabledWaitingWt(covered, text, QString(), false);
    m_reqId = veil->getUuid().toString();
    veil->show();
}

void LocalRecordingsMgrPage::endRequest()
{
    DisabledWaitingWtManager::instance().destroyDisabledWaitingWt(QUuid(m_reqId));
    m_reqId.clear();
}

void LocalRecordingsMgrPage::slotSearchBtClicked()
{
    search(WhenEmpty::Tell);
}

void LocalRecordingsMgrPage::search(WhenEmpty whenEmpty)
{
    m_hasSearched = true;
    {
        // What was found before is not shown once more for it.
        const QScopedValueRollback<bool> clearing(m_isClearingFilter, true);
        m_ui->filterWt->clear();
    }
    m_whenEmpty = whenEmpty;
    m_keepsPlace = false;
    beginRequest(this, tr("searching local recordings..."));
    emit LocalRecordingIndexes::instance().signalGetLocalRecordingIndexesInfo(
        m_reqId, m_ui->timeRange->getBeginDateTime(), m_ui->timeRange->getEndDateTime(), 0);
}

void LocalRecordingsMgrPage::refresh()
{
    endRequest();
    m_reqId = QUuid::createUuid().toString();
    m_whenEmpty = WhenEmpty::Show;
    m_keepsPlace = true;
    emit LocalRecordingIndexes::instance().signalGetLocalRecordingIndexesInfo(
        m_reqId, m_ui->timeRange->getBeginDateTime(), m_ui->timeRange->getEndDateTime(), 0);
}

void LocalRecordingsMgrPage::refreshWhenIdle()
{
    if (m_reqId.isEmpty())
        refresh();
    else
        QTimer::singleShot(retryMs, this, &LocalRecordingsMgrPage::refreshWhenIdle);
}

void LocalRecordingsMgrPage::rescan()
{
    const vemo_worker::SystemConfig& config = vemo_worker::SystemConfig::instance();
    const QStringList folders{config.getLocalRecordingPath(), config.getLocalSnapshotPath()};
    if (m_hasAskedRescan)
        LocalIndexRescan::instance().start(folders);
    else
        LocalIndexRescan::instance().startIfOlder(folders, rescanAgeMs);
    showSummary();
}

void LocalRecordingsMgrPage::takeRescan(const VCOMMON::LocalRescanResult& result)
{
    showSummary();
    const bool isAsked = std::exchange(m_hasAskedRescan, false);
    if (isAsked && !result.problems.isEmpty())
        alert(result.problems.mid(0, mostFilesNamed).join(QLatin1Char('\n')));
    if (m_hasSearched && (isAsked || result.read > 0 || result.gone > 0))
        refreshWhenIdle();
}

void LocalRecordingsMgrPage::showSummary()
{
    m_header->setSummary(LocalIndexRescan::instance().isRunning() ? tr("Looking for new files...")
                         : m_isCut ? tr("The first %L1 of this span; choose a shorter one to see all")
                                         .arg(LocalRecordingIndexes::maxRecordsAnswered)
                                   : tr("Video kept on this computer while live view recorded"));
}

void LocalRecordingsMgrPage::takeRecordings(const QString& requestId, const QList<LocalRecordingIndexInfo>& records)
{
    if (requestId != m_reqId)
        return;
    endRequest();
    m_data->setRecordings(records);
    if (m_keepsPlace)
        m_data->filter(m_ui->filterWt->text());
    m_isCut = records.size() >= LocalRecordingIndexes::maxRecordsAnswered;
    showSummary();
    showPage(m_keepsPlace ? m_ui->pageIndexWt->getCurPageNum() : 1, m_whenEmpty,
             m_keepsPlace ? Rows::Place::Keep : Rows::Place::Top);
}

// What is shown

void LocalRecordingsMgrPage::filterRecordings()
{
    if (m_isClearingFilter)
        return;
    m_data->filter(m_ui->filterWt->text());
    showPage(1, WhenEmpty::Show, Rows::Place::Top);
    // A box that opened at once would take the rest of the word.
    m_noHitTimer->start();
}

void LocalRecordingsMgrPage::showPage(int page, WhenEmpty whenEmpty, LocalRecordingRows::Place place)
{
    vemo_base::PageEditWt* pages = m_ui->pageIndexWt;
    pages->updateTotalCnt(m_data->filteredCount(), page);
    const int pageSize = pages->getPageSize();
    const int current = pages->getCurPageNum();
    m_rows->show(m_data->getPage(pageSize, current), place);
    BaseTools::instance().updateTableOrderNum(m_ui->tableWidget, pageSize * (current - 1) + 1);
    showContent();
    if (m_ui->tableWidget->rowCount() == 0 && whenEmpty == WhenEmpty::Tell)
        tellNone();
}

void LocalRecordingsMgrPage::tellNone()
{
    alert(tr("search none local recordings"));
}

void LocalRecordingsMgrPage::showContent()
{
    const bool isEmpty = m_ui->tableWidget->rowCount() == 0;
    m_ui->content->setCurrentIndex(!isEmpty || !m_hasSearched         ? RowsContent
                                   : m_ui->filterWt->text().isEmpty() ? NothingContent
                                                                      : NoHitContent);
    m_ui->deleteBt->setEnabled(!isEmpty);
    m_ui->saveAsBt->setEnabled(!isEmpty);
}

// Opening

void LocalRecordingsMgrPage::connectOperWt(LocalRecordingOperWt* widget)
{
    connect(widget, &LocalRecordingOperWt::signalOpenRecordingFile, this,
            [this, widget](const QString& filePath) { openFile(filePath, widget); });
    connect(widget, &LocalRecordingOperWt::signalOpenRecordingFolder, this,
            [this, widget](const QString& filePath) { openFolder(filePath, widget); });
    connect(widget, &LocalRecordingOperWt::signalDeleteRecording, this,
            [this, widget] { deleteOne(m_rows->rowOfFile(widget->getKey())); });
}

void LocalRecordingsMgrPage::whenThere(const QString& filePath, QWidget* asker, const std::function<void()>& act)
{
    auto isThere = std::make_shared<bool>(false);
    DiskWork::run([filePath, isThere] { *isThere = QFileInfo(filePath).isFile(); }, this,
                  [this, isThere, act, asker = QPointer<QWidget>(asker)] {
                      if (*isThere) {
                          act();
                          return;
                      }
                      QWidget* sender = asker ? asker.data() : m_ui->tableWidget;
                      QToolTip::showText(sender->mapToGlobal(QPoint(0, 0)), tr("file does not exist"), sender);
                  },
                  diskPatienceMs);
}

void LocalRecordingsMgrPage::openFile(const QString& filePath, QWidget* asker)
{
    whenThere(filePath, asker, [this, filePath] { play(filePath); });
}

void LocalRecordingsMgrPage::openFolder(const QString& filePath, QWidget* asker)
{
    whenThere(filePath, asker, [filePath] { VCOMMON::ToolsCollection::openFolderAndSelectFile(filePath); });
}

void LocalRecordingsMgrPage::play(const QString& filePath)
{
    const LocalRecordingItem* item = m_rows->item(m_rows->rowOfFile(filePath));
    if (!item)
        return;
    const BaseTools& tools = BaseTools::instance();
    if (!m_playbackDlg)
        m_playbackDlg = new vemo_base::LocalPlaybackDlg(tools.getRootParentWt(this));
    const QPair<QString, int> channel = tools.formatChannelId(item->channelId());
    VCOMMON::ChannelInfo info;
    info.devId = channel.first;
    info.channelNo = channel.second;
    info.devLabel = item->devName();
    info.channelName = item->text();
    const QString title = item->text() + QLatin1Char('@') + tools.strTimeRange(item->beginTime(), item->endTime());
    m_playbackDlg->setLocalVideoRecordingPath(filePath, info, title);
    m_playbackDlg->showLocalPlaybackDlg();
}

void LocalRecordingsMgrPage::openRowMenu(int row, const QPoint& globalPos)
{
    const LocalRecordingItem* item = m_rows->item(row);
    if (!item)
        return;
    const QString filePath = item->filePath();
    QWidget* asker = m_ui->tableWidget->visibleCellWidget(row, operColumn);
    auto* menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    const auto add = [this, menu](const char* icon, const QString& text, bool isEnabled, auto act) {
        QAction* action = menu->addAction(vemo_base::Icons::icon(QLatin1String(icon)), text);
        action->setEnabled(isEnabled);
        connect(action, &QAction::triggered, this, act);
    };
    const auto there = QPointer<QWidget>(asker);
    add("open-file", tr("open the file"), true, [this, filePath, there] { openFile(filePath, there); });
    add("open-folder", tr("open folder"), true, [this, filePath, there] { openFolder(filePath, there); });
    add("clean", tr("delete file"), true, [this, filePath] { deleteOne(m_rows->rowOfFile(filePath)); });
    add("files", tr("Copy path"), true,
        [filePath] { QGuiApplication::clipboard()->setText(QDir::toNativeSeparators(filePath)); });
    menu->addSeparator();
    const bool hasChecked = m_ui->tableWidget->checkedCount() > 0;
    add("clean", tr("Delete checked"), hasChecked, [this] { slotDeleteBtClicked(); });
    add("save-as", tr("Save checked as"), hasChecked, [this] { slotSaveAsBtClicked(); });
    menu->popup(globalPos);
}

void LocalRecordingsMgrPage::slotSaveAsBtClicked()
{
    const QList<int> rows = m_ui->tableWidget->getCheckedRows(Rows::CheckColumn);
    if (rows.isEmpty()) {
        alert(tr("Please select local recordings to save as"));
        return;
    }
    QList<LocalFilesSaveAs::File> files;
    QHash<QString, QPair<QString, QString>> words;
    for (const int row : rows) {
        const LocalRecordingItem* item = m_rows->item(row);
        files.append(
            {item->filePath(), vemo_base::SaveAsName::recording(item->text(), item->beginTime(), item->endTime())});
        words.insert(item->filePath(),
                     {item->text(), BaseTools::instance().strTimeRange(item->beginTime(), item->endTime())});
    }
    m_saveAs->save(files, [words](const QString& path) { return words.value(path); });
}

// Deletion

void LocalRecordingsMgrPage::deleteOne(int row)
{
    const LocalRecordingItem* item = m_rows->item(row);
    if (!item)
        return;
    deleteRows({row}, tr("Do you want to delete the recording:%1(%2)?")
                          .arg(item->text(), BaseTools::instance().strTimeRange(item->beginTime(), item->endTime())));
}

void LocalRecordingsMgrPage::slotDeleteBtClicked()
{
    const QList<int> rows = m_ui->tableWidget->getCheckedRows(Rows::CheckColumn);
    if (rows.isEmpty())
        alert(tr("Please select local recordings to delete"));
    else
        deleteRows(rows, tr("Do you want to delete select local recordings?"));
}

void LocalRecordingsMgrPage::deleteRows(const QList<int>& rows, const QString& question)
{
    const QStringList filePaths = m_rows->files(rows);
    QWidget* root = BaseTools::instance().getRootParentWt(this);
    if (vemo_base::VMessageBox::question(root, question, questionBeforeDeed, false) != answerYes)
        return;
    // While the person thought about it the page may have been filled anew.
    m_selectedRows.clear();
    for (const QString& filePath : filePaths) {
        if (const int row = m_rows->rowOfFile(filePath); row >= 0)
            m_selectedRows.append(row);
    }
    std::sort(m_selectedRows.begin(), m_selectedRows.end());
    if (m_selectedRows.isEmpty())
        return;
    beginRequest(root, tr("delete local recordings..."));
    emit LocalRecordingIndexes::instance().signalDeleteLocalRecordingIndexes(m_reqId, m_rows->files(m_selectedRows));
}

void LocalRecordingsMgrPage::takeDeletion(const QString& requestId, const QStringList& filePaths, bool success)
{
    if (requestId != m_reqId)
        return;
    endRequest();
    if (!success) {
        alert(tr("Failed to delete local recordings"));
        return;
    }
    const QList<int> places = m_rows->placesInPage(m_selectedRows);
    for (auto row = m_selectedRows.crbegin(); row != m_selectedRows.crend(); ++row) {
        const LocalRecordingItem* item = m_rows->item(*row);
        vemo_worker::FilesCenterLogs::instance().deleteLocalRecordLog(
            item->devName(), item->channelNo(), item->text(),
            tr("Record begin time:%1,file size:%2")
                .arg(m_rows->text(*row, Rows::BeginColumn), m_rows->text(*row, Rows::SizeColumn)));
        m_ui->tableWidget->removeRow(*row);
    }
    m_selectedRows.clear();
    removeFiles(filePaths);

    const int pageSize = m_ui->pageIndexWt->getPageSize();
    int page = m_ui->pageIndexWt->getCurPageNum();
    m_data->removeRecords(pageSize, page, m_ui->filterWt->text(), places);
    if (m_data->getPage(pageSize, page).isEmpty())
        page = qMax(1, page - 1);
    showPage(page, WhenEmpty::Tell, Rows::Place::Keep);
}

void LocalRecordingsMgrPage::removeFiles(const QStringList& filePaths)
{
    vemo_worker::SystemAssistant& assistant = vemo_worker::SystemAssistant::instance();
    LocalRecordingIndexes& indexes = LocalRecordingIndexes::instance();
    assistant.removeFiles(filePaths, &indexes,
                          [page = QPointer<LocalRecordingsMgrPage>(this)](const QStringList& left) {
                              if (left.isEmpty())
                                  return;
                              LocalRecordingIndexes::instance().restoreLocalRecordingIndexes(left);
                              QStringList told{tr("Failed to delete local recordings")};
                              for (const QString& path : left.mid(0, mostFilesNamed))
                                  told.append(QDir::toNativeSeparators(path));
                              if (left.size() > mostFilesNamed)
                                  told.append(tr("and %1 more").arg(left.size() - mostFilesNamed));
                              alert(told.join(QLatin1Char('\n')));
                              if (page)
                                  page->refresh();
                          });
    assistant.removeVdxFiles(filePaths);
}

} // namespace vemo_filesCenter
