#include "CliActionLine.h"

#include "CliTell.h"
#include "OptionReader.h"

namespace vemo_client {

namespace {

constexpr int longestTold = 64;

} // namespace

CliActionLine::CliActionLine(const QString& verb, const QStringList& arguments)
    : m_verb(verb)
    , m_rest(arguments)
{
    if (m_rest.size() > 1 && !m_rest.at(1).startsWith(QLatin1Char('-')))
        m_action = m_rest.takeAt(1);
    m_parser.addOptions({m_options.help, m_options.data, m_options.json, m_options.verbose});
}

CliCommand CliActionLine::misuse(const QString& sentence) const
{
    return CliTell::misuse(sentence % QLatin1Char(' ') % tr("See vemo_client %1 --help.").arg(m_verb));
}

std::optional<CliCommand> CliActionLine::parse(bool isAction, const QString& description, const QString& missing)
{
    m_parser.setApplicationDescription(description);
    if (!m_action.isEmpty() && !isAction)
        return misuse(tr("\"%1\" is no action of %2.").arg(m_action.left(longestTold), m_verb));
    if (!m_parser.parse(m_rest))
        return misuse(m_parser.errorText());
    if (m_parser.isSet(m_options.help)) {
        const QString action = m_action.isEmpty() ? QStringLiteral("<action>") : m_action;
        return CliTell::help(m_parser.helpText().replace(QLatin1String(" [options]"), QLatin1Char(' ') % m_verb %
                                                                                          QLatin1Char(' ') % action %
                                                                                          QLatin1String(" [options]")));
    }
    if (m_action.isEmpty())
        return misuse(missing);
    const QStringList tooMany = m_parser.positionalArguments();
    if (!tooMany.isEmpty())
        return misuse(tr("\"%1\" is one argument too many.").arg(tooMany.constFirst().left(longestTold)));
    return {};
}

void CliActionLine::readCommon(CliCommand* command) const
{
    if (m_parser.isSet(m_options.data))
        command->dataDir = m_parser.value(m_options.data);
    command->json = m_parser.isSet(m_options.json);
    command->verbose = m_parser.isSet(m_options.verbose);
}

CliCommand CliActionLine::result(const OptionReader& reader, const CliCommand& command) const
{
    return reader.error().isEmpty() ? command : misuse(reader.error());
}

} // namespace vemo_client
