#include "AddBackupTasksToolWt.h"

#include "BackupTimeSegmentsSettingWt.h"
#include "RecordingsBackUpTree.h"

#include <BackupTaskData.h>
#include <BaseTools.h>
#include <DevsMgrData.h>
#include <DictDef.h>
#include <Icons.h>
#include <SystemAssistant.h>

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QUuid>
#include <QVBoxLayout>

namespace vemo_filesCenter {

using vemo_base::BaseTools;
using vemo_data::BackupTaskData;
using vemo_data::BackupTaskInfo;

namespace {

constexpr int smallPixels = 12;
constexpr int segmentsHeight = 232;

QLabel* sectionTitle(const QString& text, QWidget* parent)
{
    auto* label = new QLabel(text, parent);
    QFont strong = label->font();
    strong.setWeight(QFont::DemiBold);
    label->setFont(strong);
    label->setWordWrap(true);
    return label;
}

QLabel* smallLabel(const QString& text, QWidget* parent)
{
    auto* label = new QLabel(text, parent);
    QFont small = label->font();
    small.setPixelSize(smallPixels);
    label->setFont(small);
    label->setForegroundRole(QPalette::PlaceholderText);
    label->setWordWrap(true);
    return label;
}

void alert(const QString& text)
{
    vemo_worker::SystemAssistant::instance().messageAlert(vemo_worker::DictDef::titleAlert(), text);
}

} // namespace

AddBackupTasksToolWt::AddBackupTasksToolWt(QWidget* host)
    : SettingToolWt(tr("Add backup tasks"), host)
    , m_tree(new RecordingsBackUpTree)
    , m_segments(new BackupTimeSegmentsSettingWt)
    , m_checkedWords(smallLabel(QString(), this))
    , m_dayWords(smallLabel(QString(), this))
{
    m_tree->setObjectName(QStringLiteral("clientTree"));
    m_segments->setObjectName(QStringLiteral("timeSegments"));
    auto* counts = new QHBoxLayout;
    counts->addWidget(m_checkedWords);
    m_dayWords->setAlignment(Qt::AlignTrailing | Qt::AlignVCenter);
    counts->addWidget(m_dayWords, 1);

    // Five rows and their warnings may need more room than a low window has.
    auto* segmentsRoom = new QScrollArea;
    segmentsRoom->setWidget(m_segments);
    segmentsRoom->setWidgetResizable(true);
    segmentsRoom->setFrameShape(QFrame::NoFrame);
    segmentsRoom->setFixedHeight(segmentsHeight);
    segmentsRoom->viewport()->setAutoFillBackground(false);
    m_segments->setAutoFillBackground(false);

    body()->addWidget(sectionTitle(tr("Please Select The Backup Channels"), this));
    body()->addWidget(smallLabel(tr("Tips:Only support Nuvira 2.0 device to backup"), this));
    body()->addWidget(m_tree, 1);
    body()->addLayout(counts);
    body()->addSpacing(8);
    body()->addWidget(sectionTitle(tr("Please Set The Backup Time Segments"), this));
    body()->addWidget(segmentsRoom);

    auto* cancelBt = new QPushButton(tr("Cancel"));
    cancelBt->setObjectName(QStringLiteral("cancelBt"));
    connect(cancelBt, &QPushButton::clicked, this, &AddBackupTasksToolWt::hideSettingToolWt);
    auto* addBt = new QPushButton(vemo_base::Icons::icon(QStringLiteral("add")), tr("Add"));
    addBt->setObjectName(QStringLiteral("addBt"));
    addBt->setProperty("kind", QStringLiteral("primary"));
    connect(addBt, &QPushButton::clicked, this, &AddBackupTasksToolWt::add);
    foot()->addWidget(cancelBt);
    foot()->addWidget(addBt);
    connect(m_tree, &RecordingsBackUpTree::signalCheckedChanged, this, &AddBackupTasksToolWt::showCounts);
}

void AddBackupTasksToolWt::setDay(const QDate& date, int taskCount)
{
    m_date = date;
    m_taskCount = taskCount;
    setTitleNote(tr("for %1").arg(BaseTools::instance().strDate(date, false)));
    showCounts();
}

void AddBackupTasksToolWt::showCounts()
{
    const int checked = m_tree->getCheckedChannels().size();
    m_checkedWords->setText(checked == 1 ? tr("1 channel selected") : tr("%1 channels selected").arg(checked));
    m_dayWords->setText(
        tr("%1 of %2 tasks on this day").arg(m_taskCount).arg(BackupTaskData::maxBackupTasksCntOneDay()));
}

void AddBackupTasksToolWt::add()
{
    const QList<QPair<QString, int>> channels = m_tree->getCheckedChannels();
    const int limit = BackupTaskData::maxBackupTasksCntOneDay();
    if (channels.isEmpty()) {
        alert(tr("Please select Nuvira 2.0 device channels"));
        return;
    }
    if (channels.size() + m_taskCount > limit) {
        alert(tr("A maximum of %1 tasks can be added in one day, %2 have been added,%3 to be added, please reduce the "
                 "selected channels")
                  .arg(limit)
                  .arg(m_taskCount)
                  .arg(channels.size()));
        return;
    }
    const QList<vemo_data::BackupTimeSegment> segments = m_segments->getTimeSegments();
    if (segments.isEmpty()) {
        alert(tr("Please set backup time segments"));
        return;
    }
    QList<BackupTaskInfo> tasks;
    for (const QPair<QString, int>& channel : channels) {
        BackupTaskInfo task;
        task.taskId = QUuid::createUuid().toString();
        task.date = m_date;
        task.channelId = BaseTools::instance().formatChannelId(channel.first, channel.second);
        task.channelName = BaseTools::instance().getChannelName(task.channelId);
        task.deviceNo = vemo_data::DevsMgrData::instance().getDevInfoById(channel.first).devId;
        task.channelNo = channel.second;
        task.timeSegments = segments;
        tasks.append(task);
    }
    if (BackupTaskData::instance().addBackupTasks(tasks))
        hideSettingToolWt();
    else
        alert(tr("Failed to add backup tasks"));
}

} // namespace vemo_filesCenter
