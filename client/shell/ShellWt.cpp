#include "ShellWt.h"

#include "QueueTray.h"
#include "StatusBar.h"
#include "TopBar.h"

#include "devices/RecorderLogins.h"

#include <BaseForm.h>
#include <ModuleAccess.h>
#include <NavigationWidget.h>
#include <Notices.h>
#include <SystemWorker.h>
#include <Theme.h>
#include <Toasts.h>
#include <UiSettings.h>
#include <VMessageBox.h>

#include <QApplication>
#include <QShortcut>
#include <QStackedWidget>
#include <QStringList>
#include <QVariant>
#include <QVBoxLayout>

#include <algorithm>

namespace vemo_client {

namespace {

using vemo_base::Notice;
using vemo_base::Notices;

constexpr int downloadingSubPage = 1;

QString pageSetting()
{
    return QStringLiteral("main_window_page");
}

bool isOffered(const ModulePage& page)
{
    return page.power == 0 || vemo_worker::SystemWorker::instance().isCurUserHasPower(page.power);
}

} // namespace

ShellWt::ShellWt(RecorderLogins* logins, QWidget* parent)
    : QWidget(parent)
    , m_logins(logins)
    , m_topBar(new TopBar(this))
    , m_forms(new QStackedWidget(this))
    , m_statusBar(new StatusBar(this))
{
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_topBar);
    layout->addWidget(m_forms, 1);
    layout->addWidget(m_statusBar);
    new vemo_base::Toasts(m_forms);
    const QVector<ModulePage> pages = ModulePages::of(this, logins);
    std::copy_if(pages.begin(), pages.end(), std::back_inserter(m_offered), isOffered);
    for (const ModulePage& page : qAsConst(m_offered))
        m_topBar->addModule(page.key, page.title, page.icon);

    connect(m_topBar, &TopBar::signalModule, this, &ShellWt::showModule);
    connect(m_statusBar, &StatusBar::signalQueueClicked, this, &ShellWt::showDownloads);
    connect(m_statusBar, &StatusBar::signalOfflineClicked, this, &ShellWt::showOffline);
    connect(&vemo_contact::ModuleAccess::instance(), &vemo_contact::ModuleAccess::signalShowPlayback, this,
            [this] { showModule(ModulePages::playbackKey()); });
    connect(&m_queue, &QueueWatch::signalChanged, this, [this] { m_statusBar->showQueue(m_queue.figures()); });
    connect(&m_queue, &QueueWatch::signalEmptied, this, &ShellWt::tellEmptied);
    connect(m_logins, &RecorderLogins::signalChanged, this,
            [this] { m_statusBar->showRecorders(m_logins->offline().size(), m_logins->recorders()); });
    connect(m_logins, &RecorderLogins::signalPasswordNotKept, this, [] {
        Notice notice;
        notice.kind = Notice::Kind::Warning;
        notice.title = tr("The password could not be kept");
        notice.text = tr("It holds while the client runs; after the next start it is asked for again.");
        Notices::instance().add(notice);
    });
    connect(new QShortcut(QKeySequence(Qt::Key_F6), this), &QShortcut::activated, this, &ShellWt::nextArea);
}

ShellWt::~ShellWt() = default;

void ShellWt::addWidget(const QString& key, QWidget* page)
{
    m_pageByKey.insert(key, page);
    m_forms->addWidget(page);
}

void ShellWt::placeForm(vemo_base::BaseForm* form)
{
    if (form->formType() == vemo_base::FilesCenterFormType)
        addWidget(ModulePages::filesCenterKey(), form);
}

void ShellWt::showFirstPage()
{
    const QString last = vemo_worker::UiSettings::instance().value(pageSetting()).toString();
    if (m_logins->recorders() > 0 && m_currentKey.isEmpty())
        showModule(last);
    if (m_currentKey.isEmpty())
        showModule(ModulePages::playbackKey());
    for (const ModulePage& page : qAsConst(m_offered)) {
        if (m_currentKey.isEmpty())
            showModule(page.key);
    }
}

void ShellWt::showModule(const QString& key)
{
    const auto offered =
        std::find_if(m_offered.cbegin(), m_offered.cend(), [&key](const ModulePage& page) { return page.key == key; });
    if (offered == m_offered.cend() || key == m_currentKey)
        return;
    // The entry that was clicked is marked already; the page that is shown stays marked while the person is asked.
    m_topBar->setCurrentModule(m_currentKey);
    const std::function<bool()> mayLeave = m_leaveChecks.value(m_currentKey);
    if (mayLeave && !mayLeave())
        return;
    if (!m_pageByKey.contains(key)) {
        if (!offered->make)
            return;
        addWidget(key, offered->make(m_forms));
    }
    m_currentKey = key;
    m_forms->setCurrentWidget(m_pageByKey.value(key));
    m_topBar->setCurrentModule(key);
}

void ShellWt::showDownloads()
{
    showModule(ModulePages::filesCenterKey());
    emit vemo_contact::ModuleAccess::instance().signalSwitchToSubPageInFilesCenter(downloadingSubPage);
}

void ShellWt::findRecorders()
{
    showModule(ModulePages::devicesKey());
    emit signalRecordersWanted();
}

void ShellWt::showOffline()
{
    showModule(ModulePages::devicesKey());
    const QStringList offline = m_logins->offline();
    if (!offline.isEmpty())
        emit signalRecorderAsked(offline.first());
}

void ShellWt::setLeaveCheck(const QString& key, const std::function<bool()>& mayLeave)
{
    m_leaveChecks.insert(key, mayLeave);
}

void ShellWt::addQuitConcern(const std::function<QString()>& concern)
{
    m_quitConcerns.append(concern);
}

bool ShellWt::mayQuit()
{
    const std::function<bool()> mayLeave = m_leaveChecks.value(m_currentKey);
    if (mayLeave && !mayLeave())
        return false;
    QStringList lost;
    for (const auto& concern : qAsConst(m_quitConcerns)) {
        if (const QString words = concern(); !words.isEmpty())
            lost.append(words);
    }
    if (lost.isEmpty())
        return true;
    vemo_base::VMessageBox box(vemo_base::VMessageBox::Kind::Question, tr("Quit Vemo?"), lost.join(QLatin1Char('\n')),
                               tr("Quit"), this);
    return box.exec() == QDialog::Accepted;
}

void ShellWt::remember()
{
    if (!m_currentKey.isEmpty())
        vemo_worker::UiSettings::instance().setValue(pageSetting(), m_currentKey);
    emit signalAboutToClose();
}

void ShellWt::tellQueued(int added, int asked)
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

void ShellWt::tellEmptied(int done, int failed)
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

/// Pages name their areas by the property `area`; where one has none, its navigation and its page are meant.
QList<QWidget*> ShellWt::areas() const
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

void ShellWt::nextArea()
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
