#pragma once

#include "SettingField.h"

#include <QPair>
#include <QVector>
#include <QWidget>

class QVBoxLayout;

namespace vemo_client {

/// Settings that belong together: a heading with a note, and a card with one field below the other. Knows how the kinds
/// of settings are edited. GUI thread.
class SettingsGroup final : public QWidget
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(SettingsGroup)

public:
    using Choices = QVector<QPair<QString, QVariant>>;
    using Scope = SettingField::Scope;

    SettingsGroup(const QString& title, const QString& note, QWidget* parent = nullptr);

    const QVector<SettingField*>& fields() const { return m_fields; }
    /// Anything that is no setting, over the whole card.
    void addWidget(QWidget* widget);

    /// The words stand beside the switch.
    SettingField* addToggle(const QString& label, const QString& words, const QString& help,
                            const SettingField::Binding& binding);
    /// A stored value that is not among the choices is offered as it stands. `words` follow the box.
    SettingField* addChoice(const QString& label, const Choices& choices, const QString& help,
                            const SettingField::Binding& binding, const QString& words = QString());
    /// For two or three choices.
    SettingField* addSegments(const QString& label, const Choices& choices, const QString& help,
                              const SettingField::Binding& binding, Scope scope = Scope::Everybody);
    /// 0 is shown as `zeroWords`.
    SettingField* addNumber(const QString& label, double most, const QString& unit, const QString& zeroWords,
                            const QString& help, const SettingField::Binding& binding);
    /// A folder with its disk, which is checked when the person has changed it and when it is shown for the first time.
    SettingField* addFolder(const QString& label, qint64 lowBytes, const QString& help,
                            const SettingField::Binding& binding);

signals:
    void signalEdited();

private:
    SettingField* add(const QString& label, const QString& help, const SettingField::Binding& binding, Scope scope);

    QVBoxLayout* m_card;
    QVector<SettingField*> m_fields;
};

} // namespace vemo_client
