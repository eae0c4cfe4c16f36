#include "FactRow.h"

#include <Icons.h>

#include <QGridLayout>
#include <QLabel>
#include <QPushButton>

namespace vemo_client {

namespace {

constexpr int labelWidth = 216;
constexpr int valueLeading = 24;
constexpr int rowHeight = 32;

} // namespace

FactRow::FactRow(const QString& label, const QString& value, QWidget* parent)
    : QWidget(parent)
    , m_layout(new QGridLayout(this))
    , m_label(label)
{
    auto* name = new QLabel(label, this);
    name->setTextFormat(Qt::PlainText);
    name->setWordWrap(true);
    name->setFixedWidth(labelWidth);
    name->setMinimumHeight(rowHeight);
    auto* words = new QLabel(value, this);
    words->setTextFormat(Qt::PlainText);
    words->setWordWrap(true);
    words->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    words->setAccessibleName(label + QLatin1Char(' ') + value);
    words->setForegroundRole(QPalette::PlaceholderText);
    m_layout->setContentsMargins(0, 0, 0, 0);
    m_layout->setHorizontalSpacing(valueLeading);
    m_layout->addWidget(name, 0, 0, Qt::AlignTop);
    m_layout->addWidget(words, 0, 1, Qt::AlignVCenter);
    m_layout->setColumnStretch(1, 1);
}

void FactRow::setButton(const QString& icon, const QString& text)
{
    auto* button = new QPushButton(vemo_base::Icons::icon(icon), text, this);
    button->setAccessibleName(m_label + QLatin1String(": ") + text);
    m_layout->addWidget(button, 0, 2, Qt::AlignTop);
    connect(button, &QPushButton::clicked, this, &FactRow::signalClicked);
}

} // namespace vemo_client
