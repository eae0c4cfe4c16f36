#include "BlockedPage.h"

#include "devices/NoticeCard.h"

#include <QPushButton>
#include <QVBoxLayout>

namespace vemo_client {

BlockedPage::BlockedPage(const QString& problem, QWidget* parent)
    : AuthForm(parent)
{
    addTitle(tr("The accounts can't be opened"));
    addSentence(tr("Nobody can log in until that is mended. Recordings and settings are untouched."));
    auto* card = new NoticeCard(this);
    card->tell(NoticeCard::Weight::Error, problem,
               tr("Whoever owns this computer account can make a new administrator in a terminal; the files that can't "
                  "be opened are kept under another name:\nvemo_client user add --name NAME --password-file FILE "
                  "--administrator"));
    column()->addWidget(card);
    addGap(16);
    QPushButton* close = addPrimary(tr("Close"));
    addRest();
    connect(close, &QPushButton::clicked, this, [this] { window()->close(); });
    setFocusProxy(close);
}

} // namespace vemo_client
