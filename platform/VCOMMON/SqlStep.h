#pragma once

#include <QSqlQuery>
#include <QVariant>

namespace VCOMMON {

/// One prepared statement of a job of the database: run as often as needed, with the values in their order.
class SqlStep final
{
public:
    SqlStep(const QSqlDatabase& db, const char* statement);

    /// False when the database refused it, which is then in the log.
    bool run(const QVariantList& values);
    QSqlQuery& query() { return m_query; }

    /// The stores' columns take no NULL.
    static QString notNull(const QString& text) { return text.isNull() ? QStringLiteral("") : text; }

private:
    QSqlQuery m_query;
};

} // namespace VCOMMON
