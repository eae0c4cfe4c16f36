#include "SqlRows.h"

#include <QDebug>
#include <QSqlDatabase>
#include <QSqlDriver>
#include <QSqlError>
#include <QSqlQuery>

#ifdef VEMO_SQLITE_SHARED
#include <sqlite3.h>
#endif

namespace vemo_data {

class SqlRows::Cursor
{
public:
    virtual ~Cursor() = default;

    virtual bool run(const QVariantList& values) = 0;
    virtual bool next() = 0;
    virtual bool isNull(int column) const = 0;
    virtual qint64 number(int column) const = 0;
    virtual QString text(int column) const = 0;

    bool isGood() const { return m_isGood; }

protected:
    bool settle(bool ok, const QString& cause)
    {
        m_isGood = ok;
        if (!ok)
            qWarning().noquote() << "database: a list could not be read:" << cause;
        return ok;
    }

private:
    bool m_isGood = true;
};

class SqlRows::QueryCursor final : public Cursor
{
public:
    QueryCursor(const QSqlDatabase& db, const char* statement)
        : m_query(db)
    {
        m_query.setForwardOnly(true);
        m_query.prepare(QString::fromLatin1(statement));
    }

    bool run(const QVariantList& values) override
    {
        m_query.finish();
        for (int i = 0; i < values.size(); ++i)
            m_query.bindValue(i, values.at(i));
        const bool ok = m_query.exec();
        return settle(ok, m_query.lastError().text());
    }

    bool next() override
    {
        const bool isRow = m_query.next();
        if (!isRow && m_query.lastError().isValid())
            settle(false, m_query.lastError().text());
        return isRow;
    }

    bool isNull(int column) const override { return m_query.isNull(column); }
    qint64 number(int column) const override { return m_query.value(column).toLongLong(); }
    QString text(int column) const override { return m_query.value(column).toString(); }

private:
    QSqlQuery m_query;
};

#ifdef VEMO_SQLITE_SHARED

namespace {

/// Two copies of SQLite must not touch one connection. One that Qt brings along is of another day than ours.
bool isOurLibrary(const QSqlDatabase& db)
{
    QSqlQuery query(db);
    return query.exec(QStringLiteral("SELECT sqlite_source_id()")) && query.next() &&
           query.value(0).toString() == QLatin1String(sqlite3_sourceid());
}

sqlite3* handleOf(const QSqlDatabase& db)
{
    static const bool isShared = isOurLibrary(db);
    const QVariant handle = db.driver()->handle();
    if (!isShared || !handle.isValid() || qstrcmp(handle.typeName(), "sqlite3*") != 0)
        return nullptr;
    return *static_cast<sqlite3* const*>(handle.data());
}

} // namespace

class SqlRows::SharedCursor final : public Cursor
{
public:
    SharedCursor(sqlite3* db, const char* statement)
        : m_db(db)
    {
        sqlite3_prepare_v2(db, statement, -1, &m_statement, nullptr);
    }
    ~SharedCursor() override { sqlite3_finalize(m_statement); }
    Q_DISABLE_COPY_MOVE(SharedCursor)

    bool run(const QVariantList& values) override
    {
        sqlite3_reset(m_statement);
        bool ok = m_statement != nullptr;
        for (int i = 0; ok && i < values.size(); ++i)
            ok = bind(i + 1, values.at(i)) == SQLITE_OK;
        return settle(ok, errorText());
    }

    bool next() override
    {
        if (!isGood())
            return false;
        const int result = sqlite3_step(m_statement);
        if (result != SQLITE_ROW && result != SQLITE_DONE)
            settle(false, errorText());
        return result == SQLITE_ROW;
    }

    bool isNull(int column) const override { return sqlite3_column_type(m_statement, column) == SQLITE_NULL; }
    qint64 number(int column) const override { return sqlite3_column_int64(m_statement, column); }

    QString text(int column) const override
    {
        const auto* bytes = reinterpret_cast<const char*>(sqlite3_column_text(m_statement, column));
        return QString::fromUtf8(bytes, sqlite3_column_bytes(m_statement, column));
    }

private:
    int bind(int place, const QVariant& value)
    {
        if (value.type() != QVariant::String)
            return sqlite3_bind_int64(m_statement, place, value.toLongLong());
        const QByteArray bytes = value.toString().toUtf8();
        return sqlite3_bind_text(m_statement, place, bytes.constData(), bytes.size(), SQLITE_TRANSIENT);
    }

    QString errorText() const { return QString::fromUtf8(sqlite3_errmsg(m_db)); }

    sqlite3* const m_db;
    sqlite3_stmt* m_statement = nullptr;
};

#endif

SqlRows::SqlRows(const QSqlDatabase& db, const char* statement)
{
#ifdef VEMO_SQLITE_SHARED
    if (sqlite3* handle = handleOf(db)) {
        m_cursor = std::make_unique<SharedCursor>(handle, statement);
        return;
    }
#endif
    m_cursor = std::make_unique<QueryCursor>(db, statement);
}

SqlRows::~SqlRows() = default;

bool SqlRows::run(const QVariantList& values)
{
    return m_cursor->run(values);
}

bool SqlRows::next()
{
    return m_cursor->next();
}

bool SqlRows::isGood() const
{
    return m_cursor->isGood();
}

bool SqlRows::isNull(int column) const
{
    return m_cursor->isNull(column);
}

qint64 SqlRows::number(int column) const
{
    return m_cursor->number(column);
}

QString SqlRows::text(int column) const
{
    return m_cursor->text(column);
}

} // namespace vemo_data
