#pragma once

#include <DataFolder.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>

/// Databases as earlier versions of the program left them, from schemas/.
namespace OldDatabase {

/// Makes the world's database from the statements; what went wrong, empty: nothing.
inline QString restore(const QString& name)
{
    const QString file = vemo_data::DataFolder::databaseFile();
    QFile fixture(QStringLiteral(SCHEMAS "/") + name);
    if (!QDir().mkpath(QFileInfo(file).path()) || !fixture.open(QIODevice::ReadOnly))
        return name + QStringLiteral(" can't be read");
    QString error;
    {
        QSqlDatabase old = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), QStringLiteral("old"));
        old.setDatabaseName(file);
        if (!old.open())
            error = old.lastError().text();
        // A statement begins at the begin of a line; what a trigger holds is indented.
        const QStringList statements =
            QString::fromUtf8(fixture.readAll()).split(QRegularExpression(QStringLiteral(";\n(?=[A-Z])")));
        for (int i = 0; error.isEmpty() && i < statements.size(); ++i) {
            QSqlQuery query(old);
            if (!query.exec(statements.at(i)))
                error = statements.at(i) + query.lastError().text();
        }
    }
    QSqlDatabase::removeDatabase(QStringLiteral("old"));
    return error;
}

} // namespace OldDatabase
