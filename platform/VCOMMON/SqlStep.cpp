#include "SqlStep.h"

#include <QDebug>
#include <QSqlDatabase>
#include <QSqlError>

namespace VCOMMON {

SqlStep::SqlStep(const QSqlDatabase& db, const char* statement)
    : m_query(db)
{
    m_query.setForwardOnly(true);
    m_query.prepare(QString::fromLatin1(statement));
}

bool SqlStep::run(const QVariantList& values)
{
    m_query.finish();
    for (int i = 0; i < values.size(); ++i)
        m_query.bindValue(i, values.at(i));
    if (m_query.exec())
        return true;
    qWarning().noquote() << "index of local files:" << m_query.lastError().text();
    return false;
}

} // namespace VCOMMON
