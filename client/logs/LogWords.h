#pragma once

#include <FilesCenterLogs.h>

#include <QCoreApplication>
#include <QString>

namespace vemo_client {

/// Entries of the files-center log in words.
class LogWords final
{
    Q_DECLARE_TR_FUNCTIONS(vemo_client::LogWords)

public:
    static QString kind(vemo_worker::FilesCenterLogs::Kind kind);
    static QString kindIcon(vemo_worker::FilesCenterLogs::Kind kind);
    /// The device's name where it is known, else its identifier.
    static QString device(const QString& device);
    static QString channel(const QString& device, int channelNo, const QString& channelName);
};

} // namespace vemo_client
