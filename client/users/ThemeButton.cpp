#include "ThemeButton.h"

#include <Icons.h>
#include <Theme.h>

#include <QActionGroup>
#include <QMenu>

namespace vemo_client {

using vemo_base::Theme;

ThemeButton::ThemeButton(QWidget* parent)
    : QToolButton(parent)
{
    setIcon(vemo_base::Icons::icon(QStringLiteral("theme")));
    setIconSize(QSize(20, 20));
    setToolTip(tr("Theme"));
    setAccessibleName(tr("Theme"));
    setPopupMode(QToolButton::InstantPopup);
    setAutoRaise(true);
    setFocusPolicy(Qt::TabFocus);

    auto* menu = new QMenu(this);
    auto* group = new QActionGroup(menu);
    const struct
    {
        QString text;
        Theme::Choice choice;
    } choices[] = {{tr("Dark"), Theme::Choice::Dark},
                   {tr("Light"), Theme::Choice::Light},
                   {tr("As the desktop"), Theme::Choice::System}};
    for (const auto& entry : choices) {
        QAction* action = menu->addAction(entry.text);
        action->setCheckable(true);
        group->addAction(action);
        connect(action, &QAction::triggered, this, [choice = entry.choice] { Theme::instance().setChoice(choice); });
        connect(menu, &QMenu::aboutToShow, action,
                [action, choice = entry.choice] { action->setChecked(Theme::instance().choice() == choice); });
    }
    setMenu(menu);
}

} // namespace vemo_client
