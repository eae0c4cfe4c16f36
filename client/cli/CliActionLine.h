#pragma once

#include "CliCommand.h"
#include "CliOptions.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QStringList>

#include <optional>

namespace vemo_client {

class OptionReader;

/// The command line of a verb with actions: "vemo_client <verb> <action> [options]". What is the same for all such
/// verbs: help, misuse, common options. The verb takes action(), adds its options to parser(), and reads them when
/// parse() has nothing to tell.
class CliActionLine final
{
    Q_DECLARE_TR_FUNCTIONS(vemo_client::CliParser)

public:
    /// `arguments` without the verb, the program's name first; the action is the word behind that.
    CliActionLine(const QString& verb, const QStringList& arguments);

    QString action() const { return m_action; } ///< empty: none was given
    const CliOptions& options() const { return m_options; }
    QCommandLineParser& parser() { return m_parser; }

    /// What there is to tell instead of doing anything. `missing` is the sentence for a line without an action.
    std::optional<CliCommand> parse(bool isAction, const QString& description, const QString& missing);
    /// The options that every verb has.
    void readCommon(CliCommand* command) const;
    /// The command, or what was wrong with the options.
    CliCommand result(const OptionReader& reader, const CliCommand& command) const;

private:
    CliCommand misuse(const QString& sentence) const;

    const CliOptions m_options;
    QCommandLineParser m_parser;
    QString m_verb;
    QString m_action;
    QStringList m_rest;
};

} // namespace vemo_client
