#include "SettingsGroup.h"

#include "FolderEdit.h"

#include <SegmentedBar.h>
#include <StylePainter.h>
#include <Theme.h>
#include <ToggleSwitch.h>

#include <QComboBox>
#include <QDoubleSpinBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QVBoxLayout>
#include <QWheelEvent>

namespace vemo_client {

namespace {

using vemo_base::SegmentedBar;
using vemo_base::ToggleSwitch;

constexpr int titlePixels = 16;
constexpr int titleGap = 10;
constexpr int headGap = 8;
constexpr int cardPadding = 24;
constexpr int cardVertical = 20;
constexpr int fieldGap = 16;
constexpr int boxWidth = 400;
constexpr int longBoxWidth = 320;
constexpr int shortBoxWidth = 140;
constexpr double cardRadius = 8;

class CardWt final : public QWidget
{
public:
    using QWidget::QWidget;

protected:
    void paintEvent(QPaintEvent*) override
    {
        const vemo_base::Theme& theme = vemo_base::Theme::instance();
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        vemo_base::StylePainter::box(&painter, rect(), cardRadius, theme.color(vemo_base::Token::Surface),
                                     theme.color(vemo_base::Token::Border));
    }
};

/// The wheel scrolls the page; it does not change a setting that happens to lie below the pointer.
class BoxWt final : public QComboBox
{
public:
    using QComboBox::QComboBox;

protected:
    void wheelEvent(QWheelEvent* event) override { event->ignore(); }
};

class NumberWt final : public QDoubleSpinBox
{
public:
    using QDoubleSpinBox::QDoubleSpinBox;

protected:
    void wheelEvent(QWheelEvent* event) override { event->ignore(); }
};

QLabel* makeWords(const QString& text, QWidget* parent)
{
    auto* words = new QLabel(text, parent);
    words->setTextFormat(Qt::PlainText);
    words->setForegroundRole(QPalette::PlaceholderText);
    return words;
}

int indexOf(const SettingsGroup::Choices& choices, const QVariant& value)
{
    for (int i = 0; i < choices.size(); ++i) {
        if (choices.at(i).second == value)
            return i;
    }
    return -1;
}

} // namespace

SettingsGroup::SettingsGroup(const QString& title, const QString& note, QWidget* parent)
    : QWidget(parent)
{
    auto* name = new QLabel(title, this);
    QFont font = name->font();
    font.setPixelSize(titlePixels);
    font.setWeight(QFont::DemiBold);
    name->setFont(font);
    name->setTextFormat(Qt::PlainText);
    auto* head = new QHBoxLayout;
    head->setSpacing(titleGap);
    head->addWidget(name, 0, Qt::AlignBaseline);
    head->addWidget(makeWords(note, this), 1, Qt::AlignBaseline);

    auto* card = new CardWt(this);
    m_card = new QVBoxLayout(card);
    m_card->setContentsMargins(cardPadding, cardVertical, cardPadding, cardVertical);
    m_card->setSpacing(fieldGap);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(headGap);
    layout->addLayout(head);
    layout->addWidget(card);
}

void SettingsGroup::addWidget(QWidget* widget)
{
    m_card->addWidget(widget);
}

SettingField* SettingsGroup::add(const QString& label, const QString& help, const SettingField::Binding& binding,
                                 Scope scope)
{
    auto* field = new SettingField(label, help, binding, scope, this);
    m_fields.append(field);
    m_card->addWidget(field);
    connect(field, &SettingField::signalEdited, this, &SettingsGroup::signalEdited);
    return field;
}

SettingField* SettingsGroup::addToggle(const QString& label, const QString& words, const QString& help,
                                       const SettingField::Binding& binding)
{
    SettingField* field = add(label, help, binding, Scope::Everybody);
    auto* toggle = new ToggleSwitch(words, field);
    connect(toggle, &QAbstractButton::clicked, field, &SettingField::takeEdit);
    field->setEditor({toggle, [toggle] { return QVariant(toggle->isChecked()); },
                      [toggle](const QVariant& value) { toggle->setChecked(value.toBool()); }});
    return field;
}

SettingField* SettingsGroup::addChoice(const QString& label, const Choices& choices, const QString& help,
                                       const SettingField::Binding& binding, const QString& words)
{
    SettingField* field = add(label, help, binding, Scope::Everybody);
    auto* box = new BoxWt(field);
    for (const auto& choice : choices)
        box->addItem(choice.first, choice.second);
    box->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    box->setMinimumWidth(words.isEmpty() ? longBoxWidth : shortBoxWidth);
    box->setMaximumWidth(boxWidth);
    connect(box, QOverload<int>::of(&QComboBox::activated), field, &SettingField::takeEdit);
    field->setEditor({box, [box] { return box->currentData(); },
                      [box](const QVariant& value) {
                          if (box->findData(value) < 0)
                              box->addItem(value.toString(), value);
                          box->setCurrentIndex(box->findData(value));
                      }});
    if (!words.isEmpty())
        field->addTrailing(makeWords(words, field));
    return field;
}

SettingField* SettingsGroup::addSegments(const QString& label, const Choices& choices, const QString& help,
                                         const SettingField::Binding& binding, Scope scope)
{
    SettingField* field = add(label, help, binding, scope);
    auto* bar = new SegmentedBar(label, field);
    for (int i = 0; i < choices.size(); ++i)
        bar->addChoice(i, choices.at(i).first);
    connect(bar, &SegmentedBar::signalChosen, field, &SettingField::takeEdit);
    field->setEditor({bar, [bar, choices] { return choices.value(bar->value()).second; },
                      [bar, choices](const QVariant& value) { bar->setValue(qMax(0, indexOf(choices, value))); }});
    return field;
}

SettingField* SettingsGroup::addNumber(const QString& label, double most, const QString& unit, const QString& zeroWords,
                                       const QString& help, const SettingField::Binding& binding)
{
    SettingField* field = add(label, help, binding, Scope::Everybody);
    auto* number = new NumberWt(field);
    number->setRange(0, most);
    number->setDecimals(1);
    number->setSuffix(QLatin1Char(' ') + unit);
    number->setSpecialValueText(zeroWords);
    number->setMinimumWidth(shortBoxWidth);
    number->setAccessibleName(label);
    connect(number, QOverload<double>::of(&QDoubleSpinBox::valueChanged), field, &SettingField::takeEdit);
    field->setEditor({number, [number] { return QVariant(number->value()); },
                      [number](const QVariant& value) { number->setValue(value.toDouble()); }});
    return field;
}

SettingField* SettingsGroup::addFolder(const QString& label, qint64 lowBytes, const QString& help,
                                       const SettingField::Binding& binding)
{
    SettingField* field = add(label, help, binding, Scope::Everybody);
    auto* edit = new FolderEdit(label, lowBytes, field);
    connect(edit, &FolderEdit::signalEdited, field, &SettingField::takeEdit);
    field->setEditor({edit, [edit] { return QVariant(edit->folder()); },
                      [edit](const QVariant& value) { edit->setFolder(value.toString()); }});
    return field;
}

} // namespace vemo_client
