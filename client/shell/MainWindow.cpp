#include "MainWindow.h"

#include "QueueTray.h"
#include "StatusBar.h"
#include "TopBar.h"

#include "devices/RecorderLogins.h"
#include "playback/PlaybackPage.h"

#include <BaseForm.h>
#include <ModuleAccess.h>
#include <NavigationWidget.h>
#include <Notices.h>
#include <Theme.h>
#include <Toasts.h>
#include <UiSettings.h>
#include <VMessageBox.h>

#include <QApplication>
#include <QScreen>
#include <QShortcut>
#include <QStackedWidget>
#include <QVariant>
#include <QVBoxLayout>

namespace vemo_client {

namespace {

using vemo_base::Notice;
using vemo_base::Notices;

const QSize smallestSize(1024, 640);
const QSize firstSize(1280, 800);
constexpr int downloadingSubPage = 1;

QString geometrySetting()
{
    return QStringLiteral("main_window_geometry");
}

QString pageSetting()
{
    return QStringLiteral("main_window_page");
}

QString filesCenterKey()
{
    return QStringLiteral("files_center");
}

QString playbackKey()
{
    return QStringLiteral("playback");
}

} // namespace

MainWindow::MainWindow(RecorderLogins* logins, QWidget* parent)
    : QWidget(parent)
    , m_logins(logins)
    , m_topBar(new TopBar(this))
    , m_forms(new QStackedWidget(this))
    , m_statusBar(new StatusBar(this))
    , m_playback(new PlaybackPage(logins, this))
{
    setWindowTitle(QStringLiteral("Vemo"));
    setMinimumSize(smallestSize);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_topBar);
    layout->addWidget(m_forms, 1);
    layout->addWidget(m_statusBar);
    new vemo_base::Toasts(m_forms);
    addPage(playbackKey(), tr("Playback"), QStringLiteral("playback"), m_playback);
    showModule(playbackKey());

    connect(m_topBar, &TopBar::signalThemeChosen, this, &MainWindow::chooseTheme);
    connect(m_topBar, &TopBar::signalModule, this, &MainWindow::showModule);
    connect(m_statusBar, &StatusBar::signalQueueClicked, this, &MainWindow::showDownloads);
    connect(m_statusBar, &StatusBar::signalOfflineClicked, this, &MainWindow::showOffline);
    connect(m_playback, &PlaybackPage::signalQueued, this, &MainWindow::tellQueued);
    connect(&vemo_contact::ModuleAccess::instance(), &vemo_contact::ModuleAccess::signalShowPlayback, this,
            [this] { showModule(playbackKey()); });
    connect(&m_queue, &QueueWatch::signalChanged, this, [this] { m_statusBar->showQueue(m_queue.figures()); });
    connect(&m_queue, &QueueWatch::signalEmptied, this, &MainWindow::tellEmptied);
    connect(m_logins, &RecorderLogins::signalChanged, this,
            [this] { m_statusBar->showRecorders(m_logins->offline().size(), m_logins->recorders()); });
    connect(m_logins, &RecorderLogins::signalPasswordNotKept, this, [] {
        Notice notice;
        notice.kind = Notice::Kind::Warning;
        notice.title = tr("The password could not be kept");
        notice.text = tr("It holds while the client runs; after the next start it is asked for again.");
        Notices::instance().add(notice);
    });
    connect(new QShortcut(QKeySequence(Qt::Key_F6), this), &QShortcut::activated, this, &MainWindow::nextArea);
    restorePlace();
}

MainWindow::~MainWindow() = default;

QString MainWindow::themeSetting()
{
    return QStringLiteral("theme");
}

void MainWindow::addPage(const QString& key, const QString& title, const QString& icon, QWidget* page)
{
    m_topBar->addModule(key, title, icon);
    m_pageByKey.insert(key, page);
    m_forms->addWidget(page);
}

void MainWindow::placeForm(vemo_base::BaseForm* form)
{
    if (form->formType() == vemo_base::FilesCenterFormType)
        addPage(filesCenterKey(), tr("Files Center"), QStringLiteral("files"), form);
}

void MainWindow::showFirstPage()
{
    const QString last = vemo_worker::UiSettings::instance().value(pageSetting()).toString();
    showModule(m_logins->recorders() > 0 && m_pageByKey.contains(last) ? last : playbackKey());
}

void MainWindow::comeToFront()
{
    setWindowState((windowState() & ~Qt::WindowMinimized) | Qt::WindowActive);
    show();
    raise();
    activateWindow();
}

void MainWindow::showModule(const QString& key)
{
    if (QWidget* page = m_pageByKey.value(key)) {
        m_currentKey = key;
        m_forms->setCurrentWidget(page);
        m_topBar->setCurrentModule(key);
    }
}

void MainWindow::showDownloads()
{
    showModule(filesCenterKey());
    emit vemo_contact::ModuleAccess::instance().signalSwitchToSubPageInFilesCenter(downloadingSubPage);
}

void MainWindow::showOffline()
{
    showModule(playbackKey());
    const QStringList offline = m_logins->offline();
    if (!offline.isEmpty())
        m_playback->showRecorder(offline.first());
}

void MainWindow::tellStore(const QString& text)
{
    if (!m_storeTold) {
        m_storeTold = true;
        vemo_base::VMessageBox::tell(vemo_base::VMessageBox::Kind::Warning, tr("Stored data"), text, this);
        return;
    }
    Notice notice;
    notice.kind = Notice::Kind::Error;
    notice.title = tr("Stored data");
    notice.text = text;
    Notices::instance().add(notice);
}

void MainWindow::tellQueued(int added, int asked)
{
    Notice notice;
    const int known = asked - added;
    const QString knownWords = known == 1 ? tr("1 is in it already.") : tr("%1 are in it already.").arg(known);
    if (added > 0) {
        notice.kind = Notice::Kind::Success;
        notice.title = added == 1 ? tr("1 recording was added to the queue")
                                  : tr("%1 recordings were added to the queue").arg(added);
        notice.text = known > 0 ? knownWords : tr("Up to five are fetched at a time.");
    } else {
        notice.title = tr("Nothing was added to the queue");
        notice.text = knownWords;
    }
    notice.actions = {{tr("Show the queue"), [this] { showDownloads(); }}};
    Notices::instance().add(notice);
}

void MainWindow::tellEmptied(int done, int failed)
{
    if (done + failed == 0)
        return;
    Notice notice;
    notice.kind = failed == 0 ? Notice::Kind::Success : Notice::Kind::Warning;
    notice.title = QueueTray::emptiedTitle(done, failed);
    notice.text = QueueTray::emptiedText(failed);
    notice.actions = {{tr("Show the queue"), [this] { showDownloads(); }}};
    Notices::instance().add(notice);
}

void MainWindow::chooseTheme(const QString& name)
{
    using Choice = vemo_base::Theme::Choice;
    const Choice choice = name == QLatin1String("dark")    ? Choice::Dark
                          : name == QLatin1String("light") ? Choice::Light
                                                           : Choice::System;
    vemo_base::Theme::instance().setChoice(choice);
    vemo_worker::UiSettings::instance().setValue(themeSetting(), name);
}

void MainWindow::restorePlace()
{
    const QByteArray place = vemo_worker::UiSettings::instance().value(geometrySetting()).toByteArray();
    if (!place.isEmpty() && restoreGeometry(place))
        return;
    resize(firstSize.boundedTo(screen()->availableSize()).expandedTo(smallestSize));
}

void MainWindow::closeEvent(QCloseEvent* event)
{
    vemo_worker::UiSettings& settings = vemo_worker::UiSettings::instance();
    settings.setValue(geometrySetting(), saveGeometry());
    settings.setValue(pageSetting(), m_currentKey);
    m_playback->remember();
    QWidget::closeEvent(event);
}

/// Pages name their areas by the property `area`; where one has none, its navigation and its page are meant.
QList<QWidget*> MainWindow::areas() const
{
    QList<QWidget*> areas{m_topBar};
    const QWidget* page = m_forms->currentWidget();
    const QList<QWidget*> children = page ? page->findChildren<QWidget*>() : QList<QWidget*>();
    for (QWidget* child : children) {
        if (child->property("area").toBool() && child->isVisible())
            areas.append(child);
    }
    if (areas.size() == 1 && page) {
        if (auto* navigation = page->findChild<vemo_base::NavigationWidget*>())
            areas.append(navigation);
        if (auto* pages = page->findChild<QStackedWidget*>(); pages && pages->currentWidget())
            areas.append(pages->currentWidget());
    }
    areas.append(m_statusBar);
    return areas;
}

void MainWindow::nextArea()
{
    const QList<QWidget*> areas = this->areas();
    const QWidget* focused = QApplication::focusWidget();
    int current = -1;
    for (int i = 0; i < areas.size(); ++i) {
        if (focused && (areas.at(i) == focused || areas.at(i)->isAncestorOf(focused)))
            current = i;
    }
    for (int step = 1; step <= areas.size(); ++step) {
        QWidget* area = areas.at((current + step) % areas.size());
        const QList<QWidget*> children = QList<QWidget*>{area} + area->findChildren<QWidget*>();
        for (QWidget* child : children) {
            if (child->isVisible() && child->isEnabled() && child->focusPolicy() & Qt::TabFocus) {
                child->setFocus(Qt::TabFocusReason);
                return;
            }
        }
    }
}

} // namespace vemo_client
