#include "DevRecordingsBackupPage.h"

#include "AddBackupTasksToolWt.h"
#include "BackupLegendWt.h"
#include "BackupTargetDay.h"
#include "BackupTasksBox.h"

#include <axis/SpanWords.h>
#include <BackupSafety.h>
#include <BackupTaskData.h>
#include <BaseForm.h>
#include <BaseTools.h>
#include <DataSignals.h>
#include <DateSelectLineEdit.h>
#include <DictDef.h>
#include <DiskFreeSpaceBar.h>
#include <EmptyStateWt.h>
#include <Icons.h>
#include <PageHeader.h>
#include <ProgressButton.h>
#include <SystemAssistant.h>
#include <SystemConfig.h>
#include <VMessageBox.h>
#include <WrappingBar.h>

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QStackedLayout>
#include <QToolButton>
#include <QVBoxLayout>

namespace vemo_filesCenter {

using vemo_base::BaseTools;
using vemo_base::Icons;
using vemo_data::BackupTaskData;

namespace {

constexpr qint64 lowDiskBytes = 10737418240;
constexpr int questionWithYesAndNo = 3;
constexpr int yes = 1;
constexpr qint64 secondMs = 1000;
constexpr int dateWidth = 148;
constexpr int edge = 24;
constexpr int scrollBarEdge = 10; ///< the scroll bar takes the rest of the margin

void alert(const QString& text)
{
    vemo_worker::SystemAssistant::instance().messageAlert(vemo_worker::DictDef::titleAlert(), text);
}

} // namespace

DevRecordingsBackupPage::DevRecordingsBackupPage(QWidget* parent)
    : QWidget(parent)
    , m_date(QDate::currentDate())
    , m_header(new vemo_base::PageHeader(tr("Recordings Backup"), this))
    , m_dateField(new vemo_base::DateSelectLineEdit)
    , m_diskFreeSpace(new vemo_base::DiskFreeSpaceBar)
    , m_legend(new BackupLegendWt)
    , m_exportProgress(new vemo_base::ProgressButton)
    , m_cancelExport(new QToolButton)
    , m_body(new QStackedLayout)
    , m_scroll(new QScrollArea)
    , m_box(new BackupTasksBox)
{
    auto* legend = new QHBoxLayout;
    legend->setSpacing(16);
    legend->addWidget(m_legend, 1);
    auto* exporting = new QHBoxLayout;
    exporting->setSpacing(4);
    exporting->addWidget(m_exportProgress);
    exporting->addWidget(m_cancelExport);
    legend->addLayout(exporting);
    m_exportProgress->setObjectName(QStringLiteral("exportProgressBt"));
    m_exportProgress->setFocusPolicy(Qt::NoFocus);
    m_cancelExport->setObjectName(QStringLiteral("cancelExportBt"));
    m_cancelExport->setIcon(Icons::icon(QStringLiteral("close")));
    m_cancelExport->setAutoRaise(true);
    m_cancelExport->setToolTip(tr("Cancel the export"));
    m_cancelExport->setAccessibleName(m_cancelExport->toolTip());
    m_cancelExport->hide();

    m_scroll->setFrameShape(QFrame::NoFrame);
    m_scroll->setWidgetResizable(true);
    m_scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    // It keeps its room beside the rows, in the page's margin.
    m_scroll->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    m_scroll->setWidget(m_box);
    m_scroll->viewport()->setAutoFillBackground(false);
    m_box->setAutoFillBackground(false);
    m_scroll->verticalScrollBar()->setSingleStep(32);
    m_body->addWidget(m_scroll);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(edge, 20, scrollBarEdge, 0);
    layout->setSpacing(16);
    auto* top = new QVBoxLayout;
    top->setContentsMargins(0, 0, edge - scrollBarEdge, 0);
    top->setSpacing(16);
    top->addWidget(m_header);
    top->addWidget(makeBar());
    top->addLayout(legend);
    layout->addLayout(top);
    layout->addLayout(m_body, 1);
    connectBox();
    setDiskPath();
    connect(&vemo_worker::SystemConfig::instance(), &vemo_worker::SystemConfig::signalConfigChanged, this,
            &DevRecordingsBackupPage::setDiskPath);
    showBody();
}

QPushButton* DevRecordingsBackupPage::makeButton(const QString& objectName, const QString& icon, const QString& text)
{
    auto* button = new QPushButton(Icons::icon(icon), text);
    button->setObjectName(objectName);
    return button;
}

QWidget* DevRecordingsBackupPage::makeBar()
{
    auto* bar = new vemo_base::WrappingBar(this);
    auto* choice = new QWidget(bar);
    auto* choiceRow = new QHBoxLayout(choice);
    choiceRow->setContentsMargins(0, 0, 0, 0);
    choiceRow->setSpacing(8);
    m_dateField->setObjectName(QStringLiteral("date"));
    m_dateField->setFixedWidth(dateWidth);
    m_dateField->setDate(m_date);
    m_dateField->setHotDaysMeaning(tr("Days with backup tasks"));
    connect(m_dateField, &vemo_base::DateSelectLineEdit::signalDateChanged, this, &DevRecordingsBackupPage::changeDate);
    connect(m_dateField, &vemo_base::DateSelectLineEdit::signalMonthShown, this, &DevRecordingsBackupPage::markMonth);
    auto* label = new QLabel(tr("Date"), choice);
    label->setForegroundRole(QPalette::PlaceholderText);
    label->setBuddy(m_dateField);
    choiceRow->addWidget(label);
    choiceRow->addWidget(m_dateField);
    const auto addStep = [this, choice, choiceRow](const QString& icon, const QString& tip, int days) {
        auto* step = new QToolButton(choice);
        step->setIcon(Icons::icon(icon));
        step->setAutoRaise(true);
        step->setToolTip(tip);
        step->setAccessibleName(tip);
        connect(step, &QToolButton::clicked, this, [this, days] { changeDate(m_date.addDays(days)); });
        choiceRow->addWidget(step);
    };
    addStep(QStringLiteral("chev-left"), tr("Day before"), -1);
    addStep(QStringLiteral("chev-right"), tr("Next day"), 1);
    choiceRow->addSpacing(8);
    m_diskFreeSpace->setObjectName(QStringLiteral("diskFreeSpace"));
    choiceRow->addWidget(m_diskFreeSpace, 1);

    auto* deeds = new QWidget(bar);
    auto* deedsRow = new QHBoxLayout(deeds);
    deedsRow->setContentsMargins(0, 0, 0, 0);
    deedsRow->setSpacing(8);
    QPushButton* addBt = makeButton(QStringLiteral("addBt"), QStringLiteral("add"), tr("Add"));
    addBt->setProperty("kind", QStringLiteral("primary"));
    QPushButton* startBt = makeButton(QStringLiteral("startBt"), QStringLiteral("start"), tr("Start"));
    QPushButton* stopBt = makeButton(QStringLiteral("stopBt"), QStringLiteral("stop"), tr("Stop"));
    m_exportBt = makeButton(QStringLiteral("exportBt"), QStringLiteral("export"), tr("Export"));
    QPushButton* deleteBt = makeButton(QStringLiteral("deleteBt"), QStringLiteral("clean"), tr("Delete"));
    m_apply = makeButton(QStringLiteral("applyBt"), QStringLiteral("apply-day"), tr("Apply"));
    for (QPushButton* button : {addBt, startBt, stopBt, m_exportBt, deleteBt, m_apply})
        deedsRow->addWidget(button);
    connect(addBt, &QPushButton::clicked, this, &DevRecordingsBackupPage::addTasks);
    connect(startBt, &QPushButton::clicked, this, [this] {
        if (hasTasks())
            m_box->startAll();
    });
    connect(stopBt, &QPushButton::clicked, this, [this] {
        if (hasTasks())
            m_box->stopAll();
    });
    connect(m_exportBt, &QPushButton::clicked, this, &DevRecordingsBackupPage::exportTasks);
    connect(deleteBt, &QPushButton::clicked, this, &DevRecordingsBackupPage::deleteTasks);
    connect(m_apply, &QPushButton::clicked, this, &DevRecordingsBackupPage::applyTasks);

    auto* grid = new QGridLayout(bar);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setColumnStretch(0, 1);
    grid->addWidget(choice, 0, 0, Qt::AlignLeading);
    grid->addWidget(deeds, 0, 1, Qt::AlignTrailing);
    return bar;
}

void DevRecordingsBackupPage::connectBox()
{
    connect(m_box, &BackupTasksBox::signalRowsChanged, this, &DevRecordingsBackupPage::showBody);
    connect(m_box, &BackupTasksBox::signalSafetyChanged, this, &DevRecordingsBackupPage::showSummary);
    connect(m_box, &BackupTasksBox::signalBatchExportStarted, this, [this] {
        m_exportProgress->startWorking(tr("Exporting backup files, please wait a moment"));
        m_cancelExport->show();
        m_exportBt->setEnabled(false);
        m_exportBt->setToolTip(m_exportProgress->accessibleName());
    });
    connect(m_box, &BackupTasksBox::signalBatchExportProgress, m_exportProgress,
            &vemo_base::ProgressButton::setProgress);
    connect(m_box, &BackupTasksBox::signalBatchExportFinished, this, [this] {
        m_exportProgress->stopWorking();
        m_cancelExport->hide();
        m_exportBt->setEnabled(true);
        m_exportBt->setToolTip(QString());
    });
    connect(m_cancelExport, &QToolButton::clicked, m_box, &BackupTasksBox::cancelExport);
    connect(m_scroll->verticalScrollBar(), &QScrollBar::valueChanged, this, [this](int value) {
        m_box->keepPicturesNear(QRect(0, value, m_box->width(), m_scroll->viewport()->height()));
    });
}

void DevRecordingsBackupPage::showEvent(QShowEvent* event)
{
    if (!m_isLoaded)
        load();
    QWidget::showEvent(event);
}

void DevRecordingsBackupPage::load()
{
    m_isLoaded = true;
    m_box->setTasks(m_date, BackupTaskData::instance().getBackupTasks(m_date));
    m_scroll->verticalScrollBar()->setValue(0);
}

void DevRecordingsBackupPage::showDate(const QDate& date)
{
    m_date = date;
    m_dateField->setDate(date);
    load();
}

void DevRecordingsBackupPage::changeDate(const QDate& date)
{
    if (m_exportProgress->isWorking() || m_box->isExporting()) {
        m_dateField->setDate(m_date);
        alert(tr("Exporting backup files, please check other backup tasks after the export is finished"));
        return;
    }
    showDate(date);
}

void DevRecordingsBackupPage::markMonth(int year, int month)
{
    m_dateField->setHotDays(BackupTaskData::instance().getBackupCalendar(year, month));
}

void DevRecordingsBackupPage::setDiskPath()
{
    m_diskFreeSpace->setPath(vemo_worker::SystemConfig::instance().getRecordingBackupPath(), lowDiskBytes);
}

bool DevRecordingsBackupPage::hasTasks()
{
    if (m_box->rowCount() > 0)
        return true;
    alert(tr("No backup task on %1").arg(BaseTools::instance().strDate(m_date, false)));
    return false;
}

void DevRecordingsBackupPage::addTasks()
{
    const int limit = BackupTaskData::maxBackupTasksCntOneDay();
    if (m_box->rowCount() >= limit) {
        alert(tr("A maximum of %1 tasks can be added in one day").arg(limit));
        return;
    }
    if (!m_addTool) {
        QWidget* host = this;
        for (QWidget* above = parentWidget(); above; above = above->parentWidget()) {
            if (qobject_cast<vemo_base::BaseForm*>(above))
                host = above;
        }
        m_addTool = new AddBackupTasksToolWt(host);
        connect(m_addTool, &AddBackupTasksToolWt::signalHidden, m_addTool, &QObject::deleteLater);
    }
    m_addTool->setDay(m_date, m_box->rowCount());
    m_addTool->showSettingToolWt();
}

void DevRecordingsBackupPage::deleteTasks()
{
    if (!hasTasks())
        return;
    if (vemo_base::VMessageBox::question(
            BaseTools::instance().getRootParentWt(this),
            tr("Do you want to delete all the backup tasks on %1?").arg(BaseTools::instance().strDate(m_date, false)),
            questionWithYesAndNo, false) == yes)
        m_box->deleteAll();
}

void DevRecordingsBackupPage::exportTasks()
{
    if (hasTasks())
        m_box->exportAll();
}

void DevRecordingsBackupPage::applyTasks()
{
    if (hasTasks())
        BackupTargetDay::pick(m_apply, m_date, [this](const QDate& day) { m_box->applyTo(day); });
}

void DevRecordingsBackupPage::showSummary()
{
    const int count = m_box->rowCount();
    const QString tasks = count == 1 ? tr("1 task") : tr("%1 tasks").arg(count);
    const vemo_data::BackupSafety safety = m_box->safety();
    const QString share = vemo_base::SpanWords::share(safety.safe * secondMs, safety.held * secondMs);
    m_header->setSummary(count == 0 ? QString() : safety.held > 0 ? tr("%1, %2 safe").arg(tasks, share) : tasks);
}

void DevRecordingsBackupPage::showBody()
{
    showSummary();
    m_legend->setDay(m_date);
    if (m_box->rowCount() > 0) {
        m_body->setCurrentWidget(m_scroll);
        return;
    }
    delete m_empty; // its sentence names the day
    m_empty = new vemo_base::EmptyStateWt(
        QStringLiteral("recordings-backup"),
        tr("No backup is planned for %1.").arg(BaseTools::instance().strDate(m_date, false)),
        tr("Press Add to pick channels and time segments."));
    m_body->addWidget(m_empty);
    m_body->setCurrentWidget(m_empty);
}

} // namespace vemo_filesCenter
