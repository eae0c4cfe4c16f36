#include "LivePage.h"

#include "LiveBar.h"
#include "LiveColumn.h"
#include "LiveStage.h"
#include "ViewNameDialog.h"

#include "devices/FirstRecorderWt.h"
#include "devices/RecorderLogins.h"
#include "devices/RecorderTree.h"
#include "video/VideoWallWt.h"

#include <DevsMgrData.h>
#include <UiSettings.h>
#include <VMessageBox.h>

#include <QKeyEvent>
#include <QLocale>
#include <QSplitter>
#include <QStackedLayout>
#include <QVariant>
#include <QVBoxLayout>

namespace vemo_client {

namespace {

constexpr int columnWidth = 242;
constexpr double bitsPerMbit = 1e6;

QString splitterSetting()
{
    return QStringLiteral("live_splitter");
}

} // namespace

LivePage::LivePage(RecorderLogins* logins, QWidget* parent)
    : QWidget(parent)
    , m_logins(logins)
    , m_pages(new QStackedLayout(this))
    , m_splitter(new QSplitter(Qt::Horizontal))
    , m_column(new LiveColumn(logins))
    , m_stage(new LiveStage(logins))
    , m_bar(new LiveBar)
{
    auto* content = new QWidget;
    auto* layout = new QVBoxLayout(content);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_stage, 1);
    layout->addWidget(m_bar);
    m_splitter->setChildrenCollapsible(false);
    m_splitter->setHandleWidth(1);
    m_splitter->addWidget(m_column);
    m_splitter->addWidget(content);
    m_splitter->setStretchFactor(1, 1);
    m_splitter->setSizes({columnWidth, 4 * columnWidth});
    m_pages->addWidget(m_splitter);
    for (QWidget* area :
         {static_cast<QWidget*>(m_column), static_cast<QWidget*>(m_stage), static_cast<QWidget*>(m_bar)})
        area->setProperty("area", true);

    m_stage->wall()->installEventFilter(this);
    connect(m_column->tree(), &RecorderTree::signalChannelActivated, m_stage, &LiveStage::showChannel);
    connect(m_stage, &LiveStage::signalChanged, this, &LivePage::takeChange);
    connect(m_stage, &LiveStage::signalSelectedChanged, this, &LivePage::showSelected);
    connect(m_stage, &LiveStage::signalRate, this, [this](int channels, double bitsPerSecond) {
        const QString rate = QLocale().toString(bitsPerSecond / bitsPerMbit, 'f', 1);
        m_bar->setSummary(channels == 0   ? QString()
                          : channels == 1 ? tr("1 channel, %1 Mbit/s").arg(rate)
                                          : tr("%1 channels, %2 Mbit/s").arg(channels).arg(rate));
    });
    connect(m_bar, &LiveBar::signalViewChosen, this, &LivePage::chooseView);
    connect(m_bar, &LiveBar::signalSaveAsWanted, this, &LivePage::saveViewAs);
    connect(m_bar, &LiveBar::signalRenameWanted, this, &LivePage::renameView);
    connect(m_bar, &LiveBar::signalDeleteWanted, this, &LivePage::deleteView);
    connect(m_bar, &LiveBar::signalTileCountChosen, this, &LivePage::setTileCount);
    connect(m_bar, &LiveBar::signalSnapshotWanted, this,
            [this] { m_stage->takeSnapshot(m_stage->wall()->selected()); });
    connect(m_bar, &LiveBar::signalRecordWanted, this,
            [this] { m_stage->toggleRecording(m_stage->wall()->selected()); });
    connect(m_bar, &LiveBar::signalFullScreenWanted, this, &LivePage::toggleFullScreen);
    connect(m_logins, &RecorderLogins::signalChanged, this, &LivePage::takeRecorders);

    m_splitter->restoreState(vemo_worker::UiSettings::instance().value(splitterSetting()).toByteArray());
    const LiveView last = LiveViews::lastShown();
    m_viewName = last.name;
    m_stage->setView(last);
    takeChange();
    showSelected();
    takeRecorders();
}

LivePage::~LivePage() = default;

int LivePage::recordingCount() const
{
    return m_stage->recordingCount();
}

QString LivePage::quitConcern() const
{
    const int count = recordingCount();
    if (count == 0)
        return {};
    return count == 1 ? tr("A live channel is being recorded. The recording ends, and what was recorded is kept.")
                      : tr("%1 live channels are being recorded. The recordings end, and what was recorded is kept.")
                            .arg(count);
}

void LivePage::remember() const
{
    LiveView view = m_stage->view();
    view.name = m_viewName;
    LiveViews::keepLastShown(view);
    vemo_worker::UiSettings::instance().setValue(splitterSetting(), m_splitter->saveState());
}

/// Without a recorder the page is the form that adds the first one, until that is online or kept.
void LivePage::takeRecorders()
{
    const bool hasRecorder = !vemo_data::DevsMgrData::instance().devIds().isEmpty();
    if (hasRecorder || m_first)
        return;
    m_first = new FirstRecorderWt(m_logins);
    connect(m_first, &FirstRecorderWt::signalAdded, this, [this] {
        if (!m_first)
            return;
        m_pages->setCurrentWidget(m_splitter);
        m_column->tree()->setFocus(Qt::OtherFocusReason);
        m_pages->removeWidget(m_first);
        m_first->deleteLater();
        m_first = nullptr;
    });
    m_pages->addWidget(m_first);
    m_pages->setCurrentWidget(m_first);
}

void LivePage::takeChange()
{
    m_column->tree()->setActiveChannels(m_stage->channels());
    m_bar->setTileCount(m_stage->wall()->tileCount());
    const int index = m_views.indexOf(m_viewName);
    if (index < 0 || !m_views.all().at(index).hasSameTiles(m_stage->view()))
        m_viewName.clear();
    showViews();
    showSelected();
}

void LivePage::showSelected()
{
    const int tile = m_stage->wall()->selected();
    m_bar->setSelected(m_stage->hasChannel(tile), m_stage->hasPicture(tile),
                       m_stage->isRecording(tile) ? LiveBar::Recording::On : LiveBar::Recording::Off);
}

void LivePage::showViews()
{
    QStringList names;
    for (const LiveView& view : m_views.all())
        names.append(view.name);
    m_bar->setViews(names, m_viewName);
}

void LivePage::chooseView(const QString& name)
{
    const int index = m_views.indexOf(name);
    if (index < 0)
        return;
    const LiveView view = m_views.all().at(index);
    m_stage->setView(view);
    m_viewName = view.name;
    takeChange();
}

void LivePage::saveViewAs()
{
    auto* dialog = new ViewNameDialog(
        tr("Save view"),
        tr("The channels in their tiles are kept under this name. A view of the same name is replaced."), m_viewName,
        tr("Save"),
        [this](const QString& name) {
            LiveView view = m_stage->view();
            view.name = name;
            if (!m_views.save(view))
                return tr("There are too many views already. Delete one first.");
            m_viewName = name;
            showViews();
            return QString();
        },
        this);
    dialog->open();
}

void LivePage::renameView()
{
    auto* dialog = new ViewNameDialog(
        tr("Rename view"), tr("The view %1 gets another name.").arg(m_viewName), m_viewName, tr("Rename"),
        [this](const QString& name) {
            if (!m_views.rename(m_viewName, name))
                return tr("There is a view of this name already.");
            m_viewName = name;
            showViews();
            return QString();
        },
        this);
    dialog->open();
}

void LivePage::deleteView()
{
    auto* box = new vemo_base::VMessageBox(vemo_base::VMessageBox::Kind::DangerousQuestion, tr("Delete view"),
                                           tr("Delete the view %1? The channels stay in their tiles.").arg(m_viewName),
                                           tr("Delete"), this);
    box->setAttribute(Qt::WA_DeleteOnClose);
    connect(box, &QDialog::accepted, this, [this] {
        m_views.remove(m_viewName);
        m_viewName.clear();
        showViews();
    });
    box->open();
}

void LivePage::setTileCount(int count)
{
    m_stage->wall()->setTileCount(count);
}

/// The wall alone as a window; every picture goes on.
void LivePage::toggleFullScreen()
{
    VideoWallWt* wall = m_stage->wall();
    if (wall->isWindow()) {
        wall->setWindowFlag(Qt::Window, false);
        m_stage->layout()->addWidget(wall);
        wall->show();
    } else {
        wall->setParent(m_stage, Qt::Window);
        wall->setWindowTitle(tr("Live"));
        wall->showFullScreen();
    }
    wall->setFocus(Qt::OtherFocusReason);
}

bool LivePage::takeKey(int key)
{
    VideoWallWt* wall = m_stage->wall();
    switch (key) {
    case Qt::Key_S:
        m_stage->takeSnapshot(wall->selected());
        return true;
    case Qt::Key_R:
        m_stage->toggleRecording(wall->selected());
        return true;
    case Qt::Key_F:
    case Qt::Key_F11:
        toggleFullScreen();
        return true;
    case Qt::Key_1:
    case Qt::Key_4:
    case Qt::Key_9:
        setTileCount(key - Qt::Key_0);
        return true;
    case Qt::Key_Escape:
        if (!wall->isWindow() || wall->enlarged() >= 0)
            return false;
        toggleFullScreen();
        return true;
    default:
        return false;
    }
}

bool LivePage::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_stage->wall()) {
        if (event->type() == QEvent::KeyPress) {
            const auto* key = static_cast<QKeyEvent*>(event);
            if (!(key->modifiers() & (Qt::ControlModifier | Qt::AltModifier)) && takeKey(key->key()))
                return true;
        } else if (event->type() == QEvent::Close && m_stage->wall()->isWindow()) {
            event->ignore();
            toggleFullScreen();
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}

void LivePage::keyPressEvent(QKeyEvent* event)
{
    if ((event->modifiers() & (Qt::ControlModifier | Qt::AltModifier)) || !takeKey(event->key()))
        QWidget::keyPressEvent(event);
}

} // namespace vemo_client
