#pragma once

#include "CliOptions.h"

#include <VmsTypes.h>

#include <QDateTime>
#include <QList>
#include <QString>
#include <QUrl>

#include <optional>

class QCommandLineParser;

namespace vemo_client {

/// Reads the values of a parsed command line, each with a limit and a sentence of its own; the first fault stands in
/// error().
class OptionReader final
{
    Q_DECLARE_TR_FUNCTIONS(vemo_client::CliParser)

public:
    OptionReader(const QCommandLineParser& parser, const CliOptions& options);

    QString error() const { return m_error; }
    void fail(const QString& sentence);

    QString required(const QCommandLineOption& option);
    QDateTime time(const QCommandLineOption& option);
    QUrl address();
    /// From the password file, else the environment; nothing when neither gives one. Whether that is a fault is the
    /// verb's to say.
    std::optional<QString> password(const std::optional<QString>& fromEnvironment);
    void failWithoutPassword();
    QList<int> channels();
    vms_sdk::TlsPolicy tls();

private:
    const QCommandLineParser& m_parser;
    const CliOptions& m_options;
    QString m_error;
};

} // namespace vemo_client
