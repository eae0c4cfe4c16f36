#include "SettingField.h"

#include "users/MessageLine.h"

#include <StylePainter.h>
#include <Theme.h>

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QTimer>

namespace vemo_client {

namespace {

constexpr int labelWidth = 216;
constexpr int fieldLeading = 24;
constexpr int rowHeight = 32;
constexpr int messageGap = 6;
constexpr int helpPixels = 12;
constexpr int trailingGap = 8;
constexpr int pointOutMs = 2000;
constexpr int pointOutMargin = 8;
constexpr double pointOutRadius = 6;

MessageLine::Tone lineTone(SettingField::Tone tone)
{
    switch (tone) {
    case SettingField::Tone::Warning:
        return MessageLine::Tone::Warning;
    case SettingField::Tone::Error:
        return MessageLine::Tone::Error;
    case SettingField::Tone::Plain:
        break;
    }
    return MessageLine::Tone::Plain;
}

} // namespace

SettingField::SettingField(const QString& label, const QString& help, const Binding& binding, Scope scope,
                           QWidget* parent)
    : QWidget(parent)
    , m_binding(binding)
    , m_scope(scope)
    , m_help(new QLabel(help, this))
    , m_label(new QLabel(label, this))
    , m_row(new QHBoxLayout)
    , m_message(new MessageLine(this))
{
    m_label->setWordWrap(true);
    m_label->setTextFormat(Qt::PlainText);
    m_label->setFixedWidth(labelWidth);
    m_label->setMinimumHeight(rowHeight);
    m_label->setAlignment(Qt::AlignLeading | Qt::AlignVCenter);
    m_row->setContentsMargins(0, 0, 0, 0);
    m_row->setSpacing(trailingGap);
    QFont small = m_help->font();
    small.setPixelSize(helpPixels);
    m_help->setFont(small);
    m_help->setTextFormat(Qt::PlainText);
    m_help->setWordWrap(true);
    m_help->setForegroundRole(QPalette::PlaceholderText);
    auto* layout = new QGridLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setHorizontalSpacing(fieldLeading);
    layout->setVerticalSpacing(messageGap);
    layout->addWidget(m_label, 0, 0, Qt::AlignTop);
    layout->addLayout(m_row, 0, 1);
    layout->addWidget(m_help, 1, 1);
    layout->addWidget(m_message, 2, 1);
    layout->setColumnStretch(1, 1);
    tell(Tone::Plain, QString());
}

void SettingField::setEditor(const Editor& editor)
{
    m_editor = editor;
    if (editor.widget->accessibleName().isEmpty())
        editor.widget->setAccessibleName(label());
    editor.widget->setAccessibleDescription(m_help->text());
    m_label->setBuddy(editor.widget);
    const bool takesAll = editor.widget->sizePolicy().horizontalPolicy() == QSizePolicy::Expanding;
    m_row->addWidget(editor.widget, takesAll ? 1 : 0);
    m_row->addStretch(takesAll ? 0 : 1);
}

void SettingField::addTrailing(QWidget* widget, int stretch)
{
    m_row->insertWidget(m_row->count() - 1, widget, stretch);
}

QString SettingField::label() const
{
    return m_label->text();
}

bool SettingField::isChanged() const
{
    return m_editor.value() != m_stored;
}

void SettingField::load()
{
    m_editor.show(m_binding.stored());
    m_stored = m_editor.value();
}

void SettingField::save()
{
    if (!isChanged())
        return;
    m_binding.store(m_editor.value());
    load();
}

void SettingField::takeEdit()
{
    emit signalEdited();
}

void SettingField::tell(Tone tone, const QString& text)
{
    m_tone = text.isEmpty() ? Tone::Plain : tone;
    m_told = text;
    showWords();
}

void SettingField::setRemark(const QString& remark)
{
    m_remark = remark;
    showWords();
}

void SettingField::showWords()
{
    Tone tone = m_tone;
    QString words = m_told;
    if (tone != Tone::Error && !m_remark.isEmpty()) {
        tone = Tone::Warning;
        words = m_remark;
    }
    m_help->setVisible(words.isEmpty() && !m_help->text().isEmpty());
    m_message->setVisible(!words.isEmpty());
    m_message->tell(lineTone(tone), words);
}

void SettingField::pointOut()
{
    m_editor.widget->setFocus(Qt::OtherFocusReason);
    m_isPointedOut = true;
    update();
    QTimer::singleShot(pointOutMs, this, [this] {
        m_isPointedOut = false;
        update();
    });
}

void SettingField::paintEvent(QPaintEvent*)
{
    if (!m_isPointedOut)
        return;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setClipping(false);
    vemo_base::StylePainter::box(&painter, QRectF(rect()).adjusted(0, -pointOutMargin / 4.0, 0, pointOutMargin / 4.0),
                                 pointOutRadius, vemo_base::Theme::instance().color(vemo_base::Token::Select),
                                 QColor());
}

} // namespace vemo_client
