#pragma once

#include <QLocale>
#include <QObject>
#include <QStringList>
#include <QTranslator>

#include <memory>
#include <vector>

namespace vemo_client {

/// The language of all texts, Qt's own included. Made at the start of a program, before any text is shown; texts that
/// are on the screen already keep theirs, so a change holds from the next start on. Without a catalogue for what is
/// asked the texts are English.
class Language final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(Language)

public:
    /// `name` as the settings keep it: "system", or one of names().
    explicit Language(const QString& name, QObject* parent = nullptr);
    ~Language() override;

    /// Those that there is a catalogue for, English first.
    static QStringList names();

private:
    void load(const QLocale& locale);

    std::vector<std::unique_ptr<QTranslator>> m_translators;
};

} // namespace vemo_client
