#pragma once

#include <QString>
#include <QVector>

#include <functional>

class QWidget;

namespace vemo_client {

class RecorderLogins;
class ShellWt;

/// One entry of the top bar with its page.
struct ModulePage
{
    QString key; ///< kept in the settings as the page that was shown last
    QString title;
    QString icon;
    int power = 0; ///< who lacks it is not offered the page; 0: everyone is
    /// Makes the page when it is shown for the first time, so that the window's start pays for one page only. Without
    /// it a module places its form by itself.
    std::function<QWidget*(QWidget* parent)> make;
};

/// The pages of the window in the order of the top bar, and what they have to do with one another.
class ModulePages final
{
public:
    static QVector<ModulePage> of(ShellWt* shell, RecorderLogins* logins);

    static QString devicesKey();
    static QString playbackKey();
    static QString filesCenterKey();
};

} // namespace vemo_client
