#pragma once

#include <QByteArray>
#include <QStringList>

namespace vemo_client {

/// Lines of a CSV file (RFC 4180): UTF-8, fields parted by commas, quoted where they must be, ended by CR LF. A field
/// that a spreadsheet would take for a formula gets an apostrophe ahead. Pure functions.
class CsvLine final
{
public:
    CsvLine() = delete;

    /// Ahead of the first line: spreadsheets take a file without it for one of the country's old character set.
    static QByteArray byteOrderMark();
    static QByteArray of(const QStringList& fields);
};

} // namespace vemo_client
