#include "Theme.h"

#include "VemoStyle.h"

#include <QApplication>
#include <QFont>
#include <QToolTip>
#include <QWidget>

namespace vemo_base {

namespace {

constexpr int bodyPixels = 13;
constexpr int tipPixels = 12;

} // namespace

Theme& Theme::instance()
{
    static Theme theme;
    return theme;
}

Theme::Theme(QObject* parent)
    : QObject(parent)
{}

ThemeMode Theme::mode() const
{
    switch (m_choice) {
    case Choice::Dark:
        return ThemeMode::Dark;
    case Choice::Light:
        return ThemeMode::Light;
    case Choice::System:
        break;
    }
    return m_desktop;
}

QPalette Theme::palette(ThemeMode mode)
{
    const struct
    {
        QPalette::ColorRole role;
        Token token;
    } roles[] = {
        {QPalette::Window, Token::Base},         {QPalette::WindowText, Token::Text},
        {QPalette::Base, Token::Field},          {QPalette::AlternateBase, Token::Surface},
        {QPalette::Text, Token::Text},           {QPalette::PlaceholderText, Token::Text2},
        {QPalette::Button, Token::Surface},      {QPalette::ButtonText, Token::Text},
        {QPalette::Highlight, Token::Select},    {QPalette::HighlightedText, Token::Text},
        {QPalette::Link, Token::AccentText},     {QPalette::LinkVisited, Token::AccentText},
        {QPalette::ToolTipBase, Token::Overlay}, {QPalette::ToolTipText, Token::Text},
        {QPalette::Light, Token::Raised},        {QPalette::Midlight, Token::Hover},
        {QPalette::Mid, Token::Border},          {QPalette::Dark, Token::Control},
        {QPalette::BrightText, Token::Error},
    };
    QPalette palette;
    for (const auto& entry : roles)
        palette.setColor(QPalette::All, entry.role, themeColor(mode, entry.token));
    palette.setColor(QPalette::All, QPalette::Shadow, Qt::black);
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText,
                                           QPalette::HighlightedText, QPalette::PlaceholderText})
        palette.setColor(QPalette::Disabled, role, themeColor(mode, Token::Text3));
    palette.setColor(QPalette::Disabled, QPalette::Highlight, themeColor(mode, Token::Border));
    return palette;
}

QString Theme::nameOf(Choice choice)
{
    switch (choice) {
    case Choice::Dark:
        return QStringLiteral("dark");
    case Choice::Light:
        return QStringLiteral("light");
    case Choice::System:
        break;
    }
    return QStringLiteral("system");
}

Theme::Choice Theme::choiceNamed(const QString& name)
{
    for (const Choice choice : {Choice::Dark, Choice::Light}) {
        if (name == nameOf(choice))
            return choice;
    }
    return Choice::System;
}

void Theme::setChoice(Choice choice)
{
    if (choice == m_choice)
        return;
    const ThemeMode before = mode();
    m_choice = choice;
    refresh(before);
    emit signalChoiceChanged();
}

void Theme::setDesktopMode(ThemeMode mode)
{
    const ThemeMode before = this->mode();
    m_desktop = mode == ThemeMode::Unknown ? ThemeMode::Dark : mode;
    refresh(before);
}

void Theme::apply()
{
    m_applied = true;
    QApplication::setStyle(new VemoStyle);
    QFont font = QApplication::font();
    font.setPixelSize(bodyPixels);
    QApplication::setFont(font);
    QFont tipFont = font;
    tipFont.setPixelSize(tipPixels);
    QToolTip::setFont(tipFont);
    refresh(ThemeMode::Unknown);
}

void Theme::refresh(ThemeMode before)
{
    if (!m_applied || mode() == before)
        return;
    const QPalette current = palette(mode());
    QApplication::setPalette(current);
    QToolTip::setPalette(current);
    emit signalChanged();
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget* window : windows)
        window->update();
}

} // namespace vemo_base
