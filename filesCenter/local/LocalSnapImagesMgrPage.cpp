#include "LocalSnapImagesMgrPage.h"

#include "LocalFilesSaveAs.h"
#include "LocalPageBar.h"
#include "LocalSnapImageNames.h"
#include "ui_LocalSnapImagesMgrPage.h"

#include <BaseTools.h>
#include <DictDef.h>
#include <EmptyStateWt.h>
#include <LocalSnapImageIndexes.h>
#include <PageHeader.h>
#include <SystemAssistant.h>
#include <VMessageBox.h>

#include <QScrollBar>
#include <QShortcut>

namespace vemo_filesCenter {

using VCOMMON::LocalSnapImageIndexes;
using vemo_base::EmptyStateWt;
using Snapshot = ChannelSnapImagesWtsBox::Snapshot;

namespace {

constexpr int questionBeforeDeed = 3;
constexpr int answerYes = 1;

enum Content : int { GroupsContent = 0, NothingContent, NoHitContent };

void alert(const QString& text)
{
    vemo_worker::SystemAssistant::instance().messageAlert(vemo_worker::DictDef::titlePrompt(), text);
}

} // namespace

LocalSnapImagesMgrPage::LocalSnapImagesMgrPage(QWidget* parent)
    : QWidget(parent)
    , m_ui(std::make_unique<Ui::LocalSnapImagesMgrPage>())
    , m_saveAs(new LocalFilesSaveAs(this))
{
    m_ui->setupUi(this);
    m_header = LocalPageBar(this, *m_ui).setUp(tr("Local Snapshot"));
    setUpEmptyStates();
    setUpConnections();
    showContent();
}

LocalSnapImagesMgrPage::~LocalSnapImagesMgrPage() = default;

void LocalSnapImagesMgrPage::setUpEmptyStates()
{
    const LocalPageBar bar(this, *m_ui);
    EmptyStateWt* nothing = bar.addNothing(
        QStringLiteral("local-snapshot"), tr("There are no snapshots in this span."),
        tr("What is captured in live view or the player appears here. Choose another span, or search again."),
        tr("Search again"));
    connect(nothing, &EmptyStateWt::signalButtonClicked, this, &LocalSnapImagesMgrPage::slotSearchBtClicked);
    bar.addNoHit(tr("No channel matches the filter."), tr("The filter looks for a part of the channel's name."),
                 tr("Clear the filter"));
}

void LocalSnapImagesMgrPage::setUpConnections()
{
    connect(m_ui->searchBt, &QPushButton::clicked, this, &LocalSnapImagesMgrPage::slotSearchBtClicked);
    connect(m_ui->deleteBt, &QPushButton::clicked, this, &LocalSnapImagesMgrPage::slotDeleteBtClicked);
    connect(m_ui->saveAsBt, &QPushButton::clicked, this, &LocalSnapImagesMgrPage::slotSaveAsBtClicked);
    connect(m_ui->filterWt, &QLineEdit::textChanged, m_ui->groups, &ChannelSnapImagesWtsBox::filter);
    connect(m_ui->groups, &ChannelSnapImagesWtsBox::signalContentChanged, this, &LocalSnapImagesMgrPage::showContent);

    auto* checkAll =
        new QShortcut(QKeySequence::SelectAll, m_ui->scrollArea, nullptr, nullptr, Qt::WidgetWithChildrenShortcut);
    connect(checkAll, &QShortcut::activated, m_ui->groups, [this] { m_ui->groups->setAllChecked(true); });
}

void LocalSnapImagesMgrPage::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    if (!m_hasSearched)
        search();
}

bool LocalSnapImagesMgrPage::search()
{
    m_hasSearched = true;
    m_ui->filterWt->clear();
    const QList<Snapshot> snapshots = LocalSnapImageIndexes::instance().getLocalSnapImageIndexesInfo(
        m_ui->timeRange->getBeginDateTime(), m_ui->timeRange->getEndDateTime());
    m_ui->groups->setSnapshots(snapshots);
    m_ui->groups->filter(QString());
    m_ui->scrollArea->verticalScrollBar()->setValue(0);
    return !snapshots.isEmpty();
}

void LocalSnapImagesMgrPage::slotSearchBtClicked()
{
    if (!search())
        alert(tr("search none local snap images"));
}

void LocalSnapImagesMgrPage::slotDeleteBtClicked()
{
    const QList<Snapshot> snapshots = m_ui->groups->checkedSnapshots();
    if (snapshots.isEmpty()) {
        alert(tr("please select snap images to delete"));
        return;
    }
    if (vemo_base::VMessageBox::question(vemo_base::BaseTools::instance().getRootParentWt(this),
                                         tr("Do you want to delete selected snap images?"), questionBeforeDeed,
                                         false) != answerYes)
        return;
    QStringList paths;
    for (const Snapshot& snapshot : snapshots) {
        paths.append(snapshot.filePath);
        LocalSnapImageNames::logDeletion(snapshot);
    }
    LocalSnapImageNames::removeFiles(paths);
    LocalSnapImageIndexes::instance().deleteLocalSnapImageIndexes(paths);
    m_ui->groups->removeSnapshots(paths);
}

void LocalSnapImagesMgrPage::slotSaveAsBtClicked()
{
    const QList<Snapshot> snapshots = m_ui->groups->checkedSnapshots();
    if (snapshots.isEmpty()) {
        alert(tr("Please select snap images to save as"));
        return;
    }
    QList<LocalFilesSaveAs::File> files;
    for (const Snapshot& snapshot : snapshots)
        files.append({snapshot.filePath, LocalSnapImageNames::fileName(snapshot)});
    m_saveAs->save(files, [](const QString& path) -> QPair<QString, QString> {
        const Snapshot snapshot = LocalSnapImageIndexes::instance().getLocalSnapImageIndexeInfo(path);
        return {LocalSnapImageNames::channelName(snapshot), LocalSnapImageNames::captureTime(snapshot)};
    });
}

void LocalSnapImagesMgrPage::showContent()
{
    const ChannelSnapImagesWtsBox* groups = m_ui->groups;
    const bool shows = groups->shownGroupCount() > 0;
    m_ui->content->setCurrentIndex(shows || !m_hasSearched     ? GroupsContent
                                   : groups->groupCount() == 0 ? NothingContent
                                                               : NoHitContent);
    m_ui->deleteBt->setEnabled(shows);
    m_ui->saveAsBt->setEnabled(shows);
    const int snapshots = groups->snapshotCount();
    const int channels = groups->groupCount();
    m_header->setSummary(channels == 0 ? QString()
                                       : tr("%1 of %2")
                                             .arg(snapshots == 1 ? tr("1 snapshot") : tr("%1 snapshots").arg(snapshots),
                                                  channels == 1 ? tr("1 channel") : tr("%1 channels").arg(channels)));
}

} // namespace vemo_filesCenter
