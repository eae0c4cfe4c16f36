#include "AuthForm.h"

#include "MessageLine.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVariant>
#include <QVBoxLayout>

namespace vemo_client {

namespace {

constexpr int steps = 3;
constexpr int smallPixels = 12;
constexpr int titlePixels = 24;
constexpr int labelGap = 6;
constexpr int buttonHeight = 40;

} // namespace

AuthForm::AuthForm(QWidget* parent)
    : QWidget(parent)
    , m_column(new QVBoxLayout)
{
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(24, 16, 24, 16);
    row->addStretch();
    auto* column = new QWidget(this);
    column->setFixedWidth(columnWidth + 2 * ringRoom);
    column->setLayout(m_column);
    row->addWidget(column);
    row->addStretch();
    m_column->setContentsMargins(ringRoom, 0, ringRoom, 0);
    m_column->setSpacing(0);
    m_column->addStretch(2);
}

AuthForm::~AuthForm() = default;

void AuthForm::addStep(int step)
{
    auto* label = new QLabel(tr("Step %1 of %2").arg(step).arg(steps), this);
    QFont small = label->font();
    small.setPixelSize(smallPixels);
    label->setFont(small);
    label->setForegroundRole(QPalette::PlaceholderText);
    m_column->addWidget(label);
    m_column->addSpacing(6);
}

void AuthForm::addTitle(const QString& title)
{
    auto* label = new QLabel(title, this);
    QFont font = label->font();
    font.setPixelSize(titlePixels);
    font.setWeight(QFont::DemiBold);
    label->setFont(font);
    label->setWordWrap(true);
    m_column->addWidget(label);
    m_column->addSpacing(6);
}

QLabel* AuthForm::addSentence(const QString& sentence)
{
    auto* label = new QLabel(sentence, this);
    label->setForegroundRole(QPalette::PlaceholderText);
    label->setWordWrap(true);
    label->setTextFormat(Qt::PlainText);
    m_column->addWidget(label);
    m_column->addSpacing(24);
    return label;
}

QLabel* AuthForm::strongLabel(const QString& text, QWidget* parent)
{
    auto* label = new QLabel(text, parent);
    QFont strong = label->font();
    strong.setWeight(QFont::DemiBold);
    label->setFont(strong);
    return label;
}

void AuthForm::addField(const QString& label, QWidget* field, const QString& hint)
{
    auto* head = new QHBoxLayout;
    QLabel* words = strongLabel(label, this);
    words->setBuddy(field);
    head->addWidget(words, 1);
    if (!hint.isEmpty()) {
        auto* caption = new QLabel(hint, this);
        QFont small = caption->font();
        small.setPixelSize(smallPixels);
        caption->setFont(small);
        caption->setForegroundRole(QPalette::PlaceholderText);
        head->addWidget(caption);
    }
    m_column->addLayout(head);
    m_column->addSpacing(labelGap);
    m_column->addWidget(field);
}

MessageLine* AuthForm::addMessage()
{
    auto* message = new MessageLine(this);
    m_column->addSpacing(labelGap);
    m_column->addWidget(message);
    m_column->addSpacing(4);
    return message;
}

QPushButton* AuthForm::addPrimary(const QString& text)
{
    auto* button = new QPushButton(text, this);
    button->setProperty("kind", QStringLiteral("primary"));
    button->setMinimumHeight(buttonHeight);
    button->setAutoDefault(true); // Enter means it when it has the focus
    m_column->addWidget(button);
    return button;
}

void AuthForm::addGap(int pixels)
{
    m_column->addSpacing(pixels);
}

void AuthForm::addRest()
{
    m_column->addStretch(3);
}

} // namespace vemo_client
