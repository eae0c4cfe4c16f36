#pragma once

#include "SettingField.h"

#include <QVector>
#include <QWidget>

class QVBoxLayout;

namespace vemo_client {

class SettingsGroup;

/// One page of the settings: an entry of the navigation, and groups of settings one below the other. GUI thread.
class SettingsSection final : public QWidget
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(SettingsSection)

public:
    SettingsSection(const QString& key, const QString& title, const QString& icon, QWidget* parent = nullptr);

    const QString& key() const { return m_key; }
    const QString& title() const { return m_title; }
    const QString& icon() const { return m_icon; }

    /// The section's own; groups stand in the order of adding.
    SettingsGroup* addGroup(const QString& title, const QString& note = QString());
    /// Something of another make, such as the list of users.
    void addPage(QWidget* page);
    QVector<SettingField*> fields() const;

signals:
    void signalEdited();

private:
    const QString m_key;
    const QString m_title;
    const QString m_icon;
    QVBoxLayout* m_layout;
    QVector<SettingsGroup*> m_groups;
};

} // namespace vemo_client
