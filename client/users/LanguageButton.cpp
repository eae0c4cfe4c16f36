#include "LanguageButton.h"

#include <Icons.h>

#include <QActionGroup>
#include <QLocale>
#include <QMenu>

namespace vemo_client {

LanguageButton::LanguageButton(const QStringList& names, const QString& current, QWidget* parent)
    : QToolButton(parent)
{
    setIcon(vemo_base::Icons::icon(QStringLiteral("globe")));
    setIconSize(QSize(16, 16));
    setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    setToolTip(tr("Language"));
    setPopupMode(QToolButton::InstantPopup);
    setAutoRaise(true);
    setFocusPolicy(Qt::TabFocus);
    QString shown = current;
    if (!names.contains(shown)) {
        const QString system = QLocale::system().name();
        shown = names.value(0);
        for (const QString& name : names) {
            if (system.startsWith(name))
                shown = name;
        }
    }
    setText(QLatin1Char(' ') + ownName(shown)); // apart from the icon
    setAccessibleName(tr("Language: %1").arg(ownName(shown)));

    auto* menu = new QMenu(this);
    auto* group = new QActionGroup(menu);
    for (const QString& name : names) {
        QAction* action = menu->addAction(ownName(name));
        action->setCheckable(true);
        action->setChecked(name == shown);
        group->addAction(action);
        connect(action, &QAction::triggered, this, [this, name] { emit signalChosen(name); });
    }
    setMenu(menu);
}

QString LanguageButton::ownName(const QString& name)
{
    // The locale's own name for it names a country as well.
    return name == QLatin1String("en") ? QStringLiteral("English") : QLocale(name).nativeLanguageName();
}

} // namespace vemo_client
