#include "LocalSnapImagesMgrPage.h"

#include "LocalFilesSaveAs.h"
#include "LocalSnapImageNames.h"
#include "ui_LocalSnapImagesMgrPage.h"

#include <BaseTools.h>
#include <DatetimeSpanSelWt.h>
#include <DictDef.h>
#include <EmptyStateWt.h>
#include <Icons.h>
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

constexpr int daysShownAtFirst = 7;
constexpr qint64 longestSpanSeconds = 2678400; // 31 days
constexpr int separatorHeight = 24;
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
    setUpControls();
    setUpEmptyStates();
    setUpConnections();
    showContent();
}

LocalSnapImagesMgrPage::~LocalSnapImagesMgrPage() = default;

void LocalSnapImagesMgrPage::setUpControls()
{
    m_header = new vemo_base::PageHeader(tr("Local Snapshot"), this);
    m_ui->pageLayout->insertWidget(0, m_header);
    const auto setIcon = [](QPushButton* button, const char* name) {
        button->setIcon(vemo_base::Icons::icon(QLatin1String(name)));
    };
    setIcon(m_ui->searchBt, "search");
    setIcon(m_ui->deleteBt, "clean");
    setIcon(m_ui->saveAsBt, "save-as");
    m_ui->timeRangeLabel->setForegroundRole(QPalette::PlaceholderText);
    m_ui->separator->setForegroundRole(QPalette::Mid);
    m_ui->separator->setFixedHeight(separatorHeight);

    const QDate today = QDate::currentDate();
    m_ui->timeRange->setUsingYearInTimeSpaceDescription(false);
    m_ui->timeRange->setDateTimeSpace(QDateTime(today.addDays(-daysShownAtFirst), QTime(0, 0, 0)),
                                      QDateTime(today, QTime(23, 59, 59)));
    m_spanSelector = new vemo_base::DatetimeSpanSelWt(this);
    m_spanSelector->setMaxSpanSeconds(longestSpanSeconds);
}

void LocalSnapImagesMgrPage::setUpEmptyStates()
{
    auto* nothing = new EmptyStateWt(QStringLiteral("local-snapshot"), tr("There are no snapshots in this span."),
                                     tr("What is captured in live view or the player appears here. Choose another "
                                        "span, or search again."),
                                     tr("Search again"), m_ui->content);
    connect(nothing, &EmptyStateWt::signalButtonClicked, this, &LocalSnapImagesMgrPage::slotSearchBtClicked);
    nothing->setButtonSecondary();
    m_ui->content->addWidget(nothing);
    auto* noHit = new EmptyStateWt(QStringLiteral("filter"), tr("No channel matches the filter."),
                                   tr("The filter looks for a part of the channel's name."), tr("Clear the filter"),
                                   m_ui->content);
    connect(noHit, &EmptyStateWt::signalButtonClicked, m_ui->filterWt, &QLineEdit::clear);
    noHit->setButtonSecondary();
    m_ui->content->addWidget(noHit);
}

void LocalSnapImagesMgrPage::setUpConnections()
{
    connect(m_ui->searchBt, &QPushButton::clicked, this, &LocalSnapImagesMgrPage::slotSearchBtClicked);
    connect(m_ui->deleteBt, &QPushButton::clicked, this, &LocalSnapImagesMgrPage::slotDeleteBtClicked);
    connect(m_ui->saveAsBt, &QPushButton::clicked, this, &LocalSnapImagesMgrPage::slotSaveAsBtClicked);
    connect(m_ui->timeRange, &vemo_base::TimeSpaceLineEt::clicked, this, [this] {
        m_spanSelector->setInitDateTime(m_ui->timeRange->getBeginDateTime(), m_ui->timeRange->getEndDateTime());
        m_spanSelector->showBelow(m_ui->timeRange);
    });
    connect(m_spanSelector, &vemo_base::DatetimeSpanSelWt::signalDatetimeSpanSelected, m_ui->timeRange,
            &vemo_base::TimeSpaceLineEt::setDateTimeSpace);
    connect(m_ui->filterWt, &QLineEdit::textChanged, m_ui->groups, &ChannelSnapImagesWtsBox::filter);
    connect(m_ui->groups, &ChannelSnapImagesWtsBox::signalContentChanged, this, &LocalSnapImagesMgrPage::showContent);

    auto* find = new QShortcut(QKeySequence::Find, this, nullptr, nullptr, Qt::WidgetWithChildrenShortcut);
    connect(find, &QShortcut::activated, m_ui->filterWt, [this] {
        m_ui->filterWt->setFocus(Qt::ShortcutFocusReason);
        m_ui->filterWt->selectAll();
    });
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
