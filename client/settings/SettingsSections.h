#pragma once

#include <QStringList>
#include <QVector>

class QWidget;

namespace vemo_client {

class SettingsPage;
class SettingsSection;

/// What there is to be set: every section with its settings, each bound to where it is kept.
class SettingsSections final
{
public:
    SettingsSections() = delete;

    /// In the order of the navigation. `languages` are those that the client has texts in.
    static QVector<SettingsSection*> make(const QStringList& languages, SettingsPage* page);
};

} // namespace vemo_client
