#pragma once

#include "ThemeTokens.h"
#include "vemo_base_global.h"

#include <QObject>
#include <QPalette>

namespace vemo_base {

/// The client's look: which of the two themes holds, its colours and its palette. A process-wide object on the GUI
/// thread. The desktop's theme is followed until the person chooses one. apply() sets style and palette once; from then
/// on a change repaints everything by a palette event.
class VEMO_BASE_EXPORT Theme final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(Theme)

public:
    enum class Choice : int { System = 0, Dark, Light };

    static Theme& instance();

    ThemeMode mode() const;
    Choice choice() const { return m_choice; }
    QColor color(Token token) const { return themeColor(mode(), token); }

    static QPalette palette(ThemeMode mode);

    /// "dark", "light" or "system"; how a choice is kept.
    static QString nameOf(Choice choice);
    /// System for a name that isn't one.
    static Choice choiceNamed(const QString& name);

    void setChoice(Choice choice);
    void setDesktopMode(ThemeMode mode);
    /// Puts style, palette and font of the client on the application; needs a QApplication.
    void apply();

signals:
    void signalChanged();
    void signalChoiceChanged();

private:
    explicit Theme(QObject* parent = nullptr);

    void refresh(ThemeMode before);

    Choice m_choice = Choice::System;
    ThemeMode m_desktop = ThemeMode::Dark;
    bool m_applied = false;
};

} // namespace vemo_base
