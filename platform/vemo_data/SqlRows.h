#pragma once

#include "vemo_data_global.h"

#include <QString>
#include <QVariant>

#include <memory>

class QSqlDatabase;

namespace vemo_data {

/// The rows of one SELECT, for lists of thousands: on the database's thread, inside a job, gone before its end.
///
/// Asks SQLite itself on the connection's own handle where Qt's driver uses the very library that this program is
/// linked with. QtSql makes a UTF-16 copy and a value object of each column, which takes longer than SQLite needs to
/// find it. Everywhere else the same rows come through QSqlQuery. A failure is in the log, and ends the rows.
class VEMO_DATA_EXPORT SqlRows final
{
public:
    SqlRows(const QSqlDatabase& db, const char* statement);
    ~SqlRows();
    SqlRows(const SqlRows&) = delete;
    SqlRows& operator=(const SqlRows&) = delete;

    /// Begins anew with these values, which are numbers and texts.
    bool run(const QVariantList& values = {});
    bool next();
    /// False after a failure, so that a list that broke off is not taken for a whole one.
    bool isGood() const;

    // Of the present row.
    bool isNull(int column) const;
    qint64 number(int column) const;
    int smallNumber(int column) const { return static_cast<int>(number(column)); }
    QString text(int column) const;

private:
    class Cursor;
    class QueryCursor;
    class SharedCursor;

    std::unique_ptr<Cursor> m_cursor;
};

} // namespace vemo_data
