#include "RecordersPage.h"

#include <QPushButton>
#include <QVBoxLayout>

namespace vemo_client {

RecordersPage::RecordersPage(QWidget* parent)
    : AuthForm(parent)
{
    addStep(3);
    addTitle(tr("Add your recorders"));
    addSentence(tr("The client finds recorders in your network by itself; others are added by their address. Their "
                   "passwords are kept encrypted on this computer."));
    QPushButton* look = addPrimary(tr("Look for recorders"));
    addGap(8);
    auto* later = new QPushButton(tr("Later"), this);
    later->setMinimumHeight(look->minimumHeight());
    later->setAutoDefault(true);
    column()->addWidget(later);
    addRest();
    connect(look, &QPushButton::clicked, this, &RecordersPage::signalDone);
    connect(later, &QPushButton::clicked, this, &RecordersPage::signalLater);
    setFocusProxy(look);
}

} // namespace vemo_client
