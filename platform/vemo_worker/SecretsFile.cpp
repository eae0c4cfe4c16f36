#include "SecretsFile.h"

#include "SealedFile.h"
#include "SysPaths.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QMap>

namespace vemo_worker {

namespace {

using State = SealedFile::State;

SealedFile file()
{
    return {SysPaths::configDir() + QStringLiteral("/secrets"), QByteArrayLiteral("vemo secrets 1\n")};
}

State load(QMap<QString, QString>* texts)
{
    QByteArray plain;
    const State state = file().read(&plain);
    const QJsonObject object = QJsonDocument::fromJson(plain).object();
    for (auto each = object.begin(); each != object.end(); ++each)
        texts->insert(each.key(), each.value().toString());
    return state;
}

bool save(const QMap<QString, QString>& texts)
{
    QJsonObject object;
    for (auto each = texts.begin(); each != texts.end(); ++each)
        object.insert(each.key(), each.value());
    return file().write(QJsonDocument(object).toJson(QJsonDocument::Compact));
}

} // namespace

std::optional<QString> SecretsFile::read(const QString& name)
{
    QMap<QString, QString> texts;
    load(&texts);
    return texts.contains(name) ? std::optional<QString>(texts.value(name)) : std::nullopt;
}

bool SecretsFile::write(const QString& name, const QString& text)
{
    QMap<QString, QString> texts;
    const State state = load(&texts);
    if (state == State::NoKey)
        return false;
    if (state == State::Damaged && !file().setAside())
        return false;
    texts.insert(name, text);
    return save(texts);
}

bool SecretsFile::remove(const QString& name)
{
    QMap<QString, QString> texts;
    if (load(&texts) != State::Good || texts.remove(name) == 0)
        return true;
    return save(texts);
}

} // namespace vemo_worker
