#include "RecorderDialog.h"

#include <Icons.h>
#include <Theme.h>

#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QVariant>
#include <QVBoxLayout>

namespace vemo_client {

namespace {

constexpr int dialogWidth = 520;
constexpr int margin = 24;
constexpr int titlePixels = 14;

} // namespace

RecorderDialog::RecorderDialog(RecorderLogins* logins, const QString& devId, QWidget* parent)
    : QDialog(parent)
    , m_isNew(devId.isEmpty())
    , m_form(new RecorderForm(logins, this))
    , m_submit(new QPushButton(this))
    , m_keep(new QPushButton(tr("Keep it offline"), this))
{
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(m_isNew ? tr("Add a recorder") : tr("Change the recorder"));
    setModal(true);
    setFixedWidth(dialogWidth);

    auto* title = new QLabel(windowTitle(), this);
    QFont titleFont = title->font();
    titleFont.setPixelSize(titlePixels);
    titleFont.setWeight(QFont::DemiBold);
    title->setFont(titleFont);
    auto* sentence = new QLabel(tr("The client logs in at once and keeps the recorder for the next start."), this);
    sentence->setForegroundRole(QPalette::PlaceholderText);
    sentence->setWordWrap(true);

    auto* buttons = new QHBoxLayout;
    buttons->addWidget(m_keep);
    buttons->addStretch();
    auto* cancel = new QPushButton(tr("Cancel"), this);
    buttons->addWidget(cancel);
    m_submit->setProperty("kind", QStringLiteral("primary"));
    m_submit->setDefault(true);
    // Enter never means these, not even when the focus falls to them while the fields are disabled.
    cancel->setAutoDefault(false);
    m_keep->setAutoDefault(false);
    buttons->addWidget(m_submit);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(margin, margin, margin, margin - 4);
    layout->setSpacing(8);
    layout->addWidget(title);
    layout->addWidget(sentence);
    layout->addSpacing(8);
    layout->addWidget(m_form);
    layout->addSpacing(8);
    layout->addLayout(buttons);

    connect(cancel, &QPushButton::clicked, this, &RecorderDialog::reject);
    connect(m_submit, &QPushButton::clicked, m_form, &RecorderForm::submit);
    // What was added stays as it is; the logins go on trying.
    connect(m_keep, &QPushButton::clicked, this, &QDialog::accept);
    connect(m_form, &RecorderForm::signalStageChanged, this, &RecorderDialog::showStage);
    if (!m_isNew)
        m_form->edit(devId);
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
    // By the height that the wrapped words need: a fingerprint must be seen whole.
    layout()->activate();
    resize(dialogWidth, layout()->totalHeightForWidth(dialogWidth));
}

void RecorderDialog::reject()
{
    m_form->discard();
    QDialog::reject();
}

void RecorderDialog::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), vemo_base::Theme::instance().color(vemo_base::Token::Surface));
}

} // namespace vemo_client
