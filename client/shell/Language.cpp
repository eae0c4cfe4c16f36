#include "Language.h"

#include "NamespaceTranslator.h"

#include <QCoreApplication>
#include <QLibraryInfo>

namespace vemo_client {

namespace {

QString english()
{
    return QStringLiteral("en");
}

} // namespace

Language::Language(const QString& name, QObject* parent)
    : QObject(parent)
{
    const QLocale locale = names().contains(name) ? QLocale(name) : QLocale::system();
    if (names().contains(name))
        QLocale::setDefault(QLocale(locale.language(), QLocale::system().country()));
    load(locale);
}

Language::~Language()
{
    for (const auto& translator : m_translators)
        QCoreApplication::removeTranslator(translator.get());
}

QStringList Language::names()
{
    return {english(), QStringLiteral("de"), QStringLiteral("zh_CN")};
}

void Language::load(const QLocale& locale)
{
    auto own = std::make_unique<NamespaceTranslator>();
    // A language that there is no catalogue for gets English as a whole, not a mixture with Qt's texts.
    if (locale.language() == QLocale::English ||
        !own->load(locale, QStringLiteral("vemo"), QStringLiteral("_"), QStringLiteral(":/translations")))
        return;
    auto toolkit = std::make_unique<QTranslator>();
    if (toolkit->load(locale, QStringLiteral("qtbase"), QStringLiteral("_"),
                      QLibraryInfo::location(QLibraryInfo::TranslationsPath))) {
        QCoreApplication::installTranslator(toolkit.get());
        m_translators.push_back(std::move(toolkit));
    }
    QCoreApplication::installTranslator(own.get());
    m_translators.push_back(std::move(own));
}

} // namespace vemo_client
