#include "AuthWt.h"

#include "AdministratorPage.h"
#include "AuthHeader.h"
#include "BlockedPage.h"
#include "FoldersPage.h"
#include "LoginPage.h"
#include "RecordersPage.h"
#include "UserAccounts.h"

#include "devices/TimelinesWt.h"

#include <QCoreApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QScrollArea>
#include <QStackedWidget>
#include <QTimer>
#include <QVariant>
#include <QVBoxLayout>

namespace vemo_client {

namespace {

constexpr int edge = 48;
constexpr int footHeight = 56;
constexpr int smallPixels = 12;
// As the picture and the form share the width.
constexpr int pictureShare = 7;
constexpr int formShare = 11;

} // namespace

AuthWt::AuthWt(const QStringList& languages, const QString& language, QWidget* parent)
    : QWidget(parent)
    , m_header(new AuthHeader(languages, language, this))
    , m_pages(new QStackedWidget)
{
    // A notice makes a form taller than the smallest window.
    auto* scroll = new QScrollArea(this);
    scroll->setWidget(m_pages);
    scroll->setWidgetResizable(true);
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    scroll->setProperty("area", true);
    auto* version = new QLabel(tr("Version %1").arg(QCoreApplication::applicationVersion()), this);
    QFont small = version->font();
    small.setPixelSize(smallPixels);
    version->setFont(small);
    version->setForegroundRole(QPalette::PlaceholderText);
    version->setFixedHeight(footHeight);
    version->setContentsMargins(edge, 0, edge, 0);

    auto* side = new QVBoxLayout;
    side->setSpacing(0);
    side->addWidget(m_header);
    side->addWidget(scroll, 1);
    side->addWidget(version);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(
        new TimelinesWt(tr("Every hour that matters,\nsafe on your own disks."),
                        tr("Live view, playback, downloads and planned backup of your network recorders."), this),
        pictureShare);
    layout->addLayout(side, formShare);
    connect(m_header, &AuthHeader::signalLanguageChosen, this, &AuthWt::signalLanguageChosen);
    showStart();
}

void AuthWt::showPage(QWidget* page)
{
    m_pages->addWidget(page);
    m_pages->setCurrentWidget(page);
    // The old one may be on the stack of calls that led here.
    while (m_pages->count() > 1) {
        QWidget* old = m_pages->widget(0);
        m_pages->removeWidget(old);
        old->deleteLater();
    }
    // Once the window is shown, so that the first one gets the focus as well.
    QTimer::singleShot(0, page, [page] { page->setFocus(Qt::OtherFocusReason); });
}

void AuthWt::showStart()
{
    using State = vemo_worker::UserStore::State;
    const UserAccounts& accounts = UserAccounts::instance();
    if (accounts.state() == State::Unreadable) {
        showPage(new BlockedPage(accounts.problem(), this));
        return;
    }
    if (accounts.state() == State::Empty) {
        auto* page = new AdministratorPage(this);
        connect(page, &AuthForm::signalDone, this, &AuthWt::showFolders);
        showPage(page);
        return;
    }
    auto* page = new LoginPage(this);
    connect(page, &AuthForm::signalDone, this, [this] { finish(false); });
    showPage(page);
}

void AuthWt::showFolders()
{
    m_header->offerLanguages(false);
    auto* page = new FoldersPage(this);
    connect(page, &AuthForm::signalDone, this, &AuthWt::showRecorders);
    showPage(page);
}

void AuthWt::showRecorders()
{
    auto* page = new RecordersPage(this);
    connect(page, &AuthForm::signalDone, this, [this] { finish(true); });
    connect(page, &RecordersPage::signalLater, this, [this] { finish(false); });
    showPage(page);
}

void AuthWt::finish(bool wantsRecorders)
{
    m_wantsRecorders = wantsRecorders;
    emit signalLoggedIn();
}

} // namespace vemo_client
