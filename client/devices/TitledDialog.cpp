#include "TitledDialog.h"

#include <Theme.h>

#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QVBoxLayout>

namespace vemo_client {

namespace {

constexpr int margin = 24;
constexpr int titlePixels = 14;

} // namespace

TitledDialog::TitledDialog(const QString& title, const QString& sentence, int width, QWidget* parent)
    : QDialog(parent)
    , m_sentence(new QLabel(sentence, this))
    , m_body(new QVBoxLayout)
    , m_buttons(new QHBoxLayout)
    , m_cancel(new QPushButton(tr("Cancel"), this))
{
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(title);
    setModal(true);
    setFixedWidth(width);
    auto* titleLabel = new QLabel(title, this);
    QFont titleFont = titleLabel->font();
    titleFont.setPixelSize(titlePixels);
    titleFont.setWeight(QFont::DemiBold);
    titleLabel->setFont(titleFont);
    titleLabel->setTextFormat(Qt::PlainText);
    titleLabel->setWordWrap(true);
    m_sentence->setTextFormat(Qt::PlainText);
    m_sentence->setForegroundRole(QPalette::PlaceholderText);
    m_sentence->setWordWrap(true);
    m_sentence->setVisible(!sentence.isEmpty());
    m_body->setSpacing(8);
    m_buttons->addStretch();
    m_buttons->addWidget(m_cancel);
    // Enter never means this one, not even when the focus falls to it while the fields are disabled.
    m_cancel->setAutoDefault(false);
    connect(m_cancel, &QPushButton::clicked, this, &TitledDialog::reject);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(margin, margin, margin, margin - 4);
    layout->setSpacing(8);
    layout->addWidget(titleLabel);
    layout->addWidget(m_sentence);
    layout->addSpacing(8);
    layout->addLayout(m_body, 1);
    layout->addSpacing(8);
    layout->addLayout(m_buttons);
}

void TitledDialog::setSentence(const QString& sentence)
{
    m_sentence->setText(sentence);
    m_sentence->setVisible(!sentence.isEmpty());
    fitHeight();
}

void TitledDialog::fitHeight()
{
    layout()->activate();
    resize(width(), layout()->hasHeightForWidth() ? layout()->totalHeightForWidth(width()) : sizeHint().height());
}

void TitledDialog::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), vemo_base::Theme::instance().color(vemo_base::Token::Surface));
}

void TitledDialog::showEvent(QShowEvent* event)
{
    fitHeight();
    QDialog::showEvent(event);
}

} // namespace vemo_client
