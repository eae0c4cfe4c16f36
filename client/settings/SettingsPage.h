#pragma once

#include <QHash>
#include <QStringList>
#include <QVector>
#include <QWidget>

class QLabel;
class QLineEdit;
class QPushButton;
class QStackedWidget;

namespace vemo_base {
class NavigationWidget;
}

namespace vemo_client {

class MessageLine;
class SettingField;
class SettingsSection;

/// The page "Settings": navigation by sections, a field that finds a setting by its words, and a foot that counts what
/// is changed and not saved. Nothing is stored before Save. Who may not change the settings of this computer sees them
/// disabled, with the reason; their own they may change. GUI thread.
class SettingsPage final : public QWidget
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(SettingsPage)

public:
    /// `languages` are those that the client has texts in.
    explicit SettingsPage(const QStringList& languages, QWidget* parent = nullptr);

    void showSection(const QString& key);
    int changes() const;
    /// Asks when there are changes; true: they were given up, or there are none.
    bool mayLeave();

signals:
    void signalFilesCenterAsked();

private:
    QWidget* makeHead();
    QWidget* makeFoot();
    void fillSearch();
    void goTo(const QString& found);
    void load();
    void save();
    void refresh();
    void applyPowers();
    QVector<SettingField*> fields() const;

    vemo_base::NavigationWidget* m_navigation;
    QLabel* m_title = nullptr;
    QLineEdit* m_search = nullptr;
    MessageLine* m_reason = nullptr;
    QStackedWidget* m_pages;
    MessageLine* m_state = nullptr;
    QPushButton* m_discard = nullptr;
    QPushButton* m_save = nullptr;
    QVector<SettingsSection*> m_sections;
    /// By the text that the search offers.
    QHash<QString, QPair<QString, SettingField*>> m_found;
};

} // namespace vemo_client
