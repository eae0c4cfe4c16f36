#include "RecorderDialog.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QVariant>
#include <QVBoxLayout>

namespace vemo_client {

namespace {

constexpr int dialogWidth = 520;

} // namespace

RecorderDialog::RecorderDialog(RecorderLogins* logins, const QString& devId, QWidget* parent)
    : TitledDialog(devId.isEmpty() ? tr("Add a recorder") : tr("Change the recorder"),
                   tr("The client logs in at once and keeps the recorder for the next start."), dialogWidth, parent)
    , m_isNew(devId.isEmpty())
    , m_form(new RecorderForm(logins, this))
    , m_submit(new QPushButton(this))
    , m_keep(new QPushButton(tr("Keep it offline"), this))
{
    buttons()->insertWidget(0, m_keep);
    m_keep->setAutoDefault(false);
    m_submit->setProperty("kind", QStringLiteral("primary"));
    m_submit->setDefault(true);
    buttons()->addWidget(m_submit);
    body()->addWidget(m_form);

    connect(m_submit, &QPushButton::clicked, m_form, &RecorderForm::submit);
    // What was added stays as it is; the logins go on trying.
    connect(m_keep, &QPushButton::clicked, this, &QDialog::accept);
    connect(m_form, &RecorderForm::signalStageChanged, this, &RecorderDialog::showStage);
    if (!m_isNew)
        m_form->edit(devId);
    m_form->offerGroup();
    showStage();
    m_form->focusFirst();
}

void RecorderDialog::showStage()
{
    const RecorderForm::Stage stage = m_form->stage();
    if (stage == RecorderForm::Stage::Done && isVisible()) {
        accept();
        return;
    }
    const bool isConnecting = stage == RecorderForm::Stage::Connecting;
    const bool hasFailed = stage == RecorderForm::Stage::Failed;
    m_submit->setText(isConnecting ? tr("Connecting...")
                      : hasFailed  ? tr("Try again")
                      : m_isNew    ? tr("Add")
                                   : tr("Save"));
    m_submit->setEnabled(!isConnecting && m_form->isComplete());
    m_keep->setVisible(m_form->mayBeKept());
    fitHeight();
}

void RecorderDialog::reject()
{
    m_form->discard();
    TitledDialog::reject();
}

} // namespace vemo_client
