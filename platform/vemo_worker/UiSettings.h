#pragma once

#include "vemo_worker_global.h"

#include <QObject>
#include <QVariant>

namespace vemo_worker {

/// Settings of the user interface by name, kept in the settings file. One object a process, on the GUI thread.
class VEMO_WORKER_EXPORT UiSettings final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(UiSettings)

public:
    static UiSettings& instance();

    QVariant value(const QString& key, const QVariant& defaultValue = {}) const;
    void setValue(const QString& key, const QVariant& value);

    /// What the current user chose; else what was chosen last by whomever, so that a window without a user has it too.
    QVariant personalValue(const QString& key, const QVariant& defaultValue = {}) const;
    void setPersonalValue(const QString& key, const QVariant& value);

private:
    UiSettings();
};

} // namespace vemo_worker
