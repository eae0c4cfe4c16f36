#pragma once

#include <QStringList>
#include <QToolButton>

namespace vemo_client {

/// The button by which the language is chosen: each by its own name. GUI thread.
class LanguageButton final : public QToolButton
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(LanguageButton)

public:
    /// `names` as the settings keep them; `current` may be "system".
    LanguageButton(const QStringList& names, const QString& current, QWidget* parent = nullptr);

signals:
    void signalChosen(const QString& name);

private:
    static QString ownName(const QString& name);
};

} // namespace vemo_client
