#include "FirstRecorderWt.h"

#include "DiscoveryDialog.h"
#include "TimelinesWt.h"

#include <Icons.h>
#include <SystemWorker.h>

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QVariant>
#include <QVBoxLayout>

namespace vemo_client {

namespace {

constexpr int formWidth = 408;
constexpr int titlePixels = 24;

} // namespace

FirstRecorderWt::FirstRecorderWt(RecorderLogins* logins, QWidget* parent)
    : QWidget(parent)
    , m_logins(logins)
    , m_form(new RecorderForm(logins, this))
    , m_submit(new QPushButton(this))
    , m_find(new QPushButton(vemo_base::Icons::icon(QStringLiteral("search")), tr("Find on the network..."), this))
    , m_keep(new QPushButton(tr("Keep it offline"), this))
{
    const bool mayAdd = vemo_worker::SystemWorker::instance().isCurUserHasPower(vemo_worker::PowerDevices);
    auto* title = new QLabel(mayAdd ? tr("Add your first recorder") : tr("No recorder is known yet"), this);
    QFont titleFont = title->font();
    titleFont.setPixelSize(titlePixels);
    titleFont.setWeight(QFont::DemiBold);
    title->setFont(titleFont);
    auto* sentence =
        new QLabel(mayAdd ? tr("Its recordings can be searched and fetched as soon as the client is logged in.")
                          : tr("Somebody who may look after devices adds the first one; its recordings show here."),
                   this);
    sentence->setForegroundRole(QPalette::PlaceholderText);
    sentence->setWordWrap(true);
    for (QLabel* label : {title, sentence})
        label->setContentsMargins(4, 0, 4, 0);
    m_submit->setProperty("kind", QStringLiteral("primary"));

    auto* column = new QWidget;
    column->setFixedWidth(formWidth);
    auto* columnLayout = new QVBoxLayout(column);
    columnLayout->setContentsMargins(0, 24, 0, 24);
    columnLayout->setSpacing(8);
    columnLayout->addStretch(1);
    columnLayout->addWidget(title);
    columnLayout->addWidget(sentence);
    columnLayout->addSpacing(16);
    columnLayout->addWidget(m_form);
    columnLayout->addSpacing(8);
    auto* buttons = new QVBoxLayout;
    buttons->setContentsMargins(4, 0, 4, 0);
    buttons->setSpacing(8);
    buttons->addWidget(m_submit);
    buttons->addWidget(m_find);
    buttons->addWidget(m_keep);
    columnLayout->addLayout(buttons);
    columnLayout->addStretch(2);

    auto* middle = new QWidget;
    auto* middleLayout = new QHBoxLayout(middle);
    middleLayout->setContentsMargins(24, 0, 24, 0);
    middleLayout->addStretch();
    middleLayout->addWidget(column);
    middleLayout->addStretch();
    // A notice with a fingerprint makes the form taller than the smallest window.
    auto* scroll = new QScrollArea(this);
    scroll->setWidget(middle);
    scroll->setWidgetResizable(true);
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);

    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(new TimelinesWt(tr("Every hour that matters,\nsafe on your own disks."),
                                      tr("Search the days of your network recorders and fetch what you need as files."),
                                      this),
                      2);
    layout->addWidget(scroll, 3);

    for (QWidget* part : QList<QWidget*>{m_form, m_submit, m_find})
        part->setVisible(mayAdd);
    connect(m_submit, &QPushButton::clicked, m_form, &RecorderForm::submit);
    connect(m_find, &QPushButton::clicked, this, &FirstRecorderWt::findOnNetwork);
    // On another page somebody may add the first one while nothing is typed here.
    connect(m_logins, &RecorderLogins::signalChanged, this, [this] {
        if (m_logins->recorders() > 0 && m_form->stage() == RecorderForm::Stage::Filling)
            emit signalAdded();
    });
    connect(m_keep, &QPushButton::clicked, this, &FirstRecorderWt::signalAdded);
    connect(m_form, &RecorderForm::signalStageChanged, this, &FirstRecorderWt::showStage);
    showStage();
    m_form->focusFirst();
}

void FirstRecorderWt::findOnNetwork()
{
    auto* dialog = new DiscoveryDialog(m_logins, window());
    connect(dialog, &DiscoveryDialog::signalAddByAddress, m_form, &RecorderForm::focusFirst);
    dialog->open();
}

void FirstRecorderWt::showStage()
{
    const RecorderForm::Stage stage = m_form->stage();
    if (stage == RecorderForm::Stage::Done) {
        emit signalAdded();
        return;
    }
    const bool isConnecting = stage == RecorderForm::Stage::Connecting;
    m_submit->setText(isConnecting                           ? tr("Connecting...")
                      : stage == RecorderForm::Stage::Failed ? tr("Try again")
                                                             : tr("Add and log in"));
    m_submit->setEnabled(!isConnecting && m_form->isComplete());
    m_find->setEnabled(!isConnecting);
    m_keep->setVisible(m_form->mayBeKept());
}

} // namespace vemo_client
