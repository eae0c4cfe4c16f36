#pragma once

#include <DevRecord.h>

#include <QByteArray>
#include <QStringList>
#include <QVector>

namespace vemo_client {

/// The list of recorders as a CSV file (RFC 4180, UTF-8), to take it to another computer or to fill it in a
/// spreadsheet: name, address, user, group, use, channels, enabled. Without passwords and keys: those are given there.
/// Pure functions, any thread.
class DeviceListFile final
{
public:
    DeviceListFile() = delete;

    static constexpr int largestBytes = 4 * 1024 * 1024;
    static constexpr int mostRecords = 5000;

    struct Content
    {
        QVector<vemo_data::DevRecord> records;
        QStringList problems; ///< a sentence each, with its line
    };

    static QByteArray write(const QVector<vemo_data::DevRecord>& records);
    /// Columns are found by the names in the first line; only the address must be there. Parted by commas or, as some
    /// countries' spreadsheets write, semicolons. A line with a mistake is left out and told of.
    static Content read(const QByteArray& bytes);
};

} // namespace vemo_client
