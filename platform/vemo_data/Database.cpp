#include "Database.h"

#include "DatabaseSchema.h"
#include "DataFolder.h"
#include "DataSignals.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QDebug>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QMutex>
#include <QMutexLocker>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QThread>
#include <QVariant>

#include <algorithm>
#include <atomic>
#include <utility>
#include <vector>

namespace vemo_data {

namespace {

constexpr int busyTimeoutMs = 5000;
constexpr qint64 reopenAfterMs = 30'000;

// Result codes of SQLite, https://www.sqlite.org/rescode.html
constexpr int sqliteError = 1;
constexpr int sqliteCorrupt = 11;
constexpr int sqliteNotADatabase = 26;

QString connectionName()
{
    return QStringLiteral("vemo_data");
}

void onGuiThread(std::function<void()> call)
{
    if (QCoreApplication* app = QCoreApplication::instance())
        QMetaObject::invokeMethod(app, std::move(call), Qt::QueuedConnection);
}

void tell(const QString& text)
{
    qWarning().noquote() << "store:" << text;
    onGuiThread([text] { emit DataSignals::instance().signalStoreNotice(text); });
}

enum class Verdict { Unknown, Good, Damaged, Newer, Unavailable };

struct Opening
{
    Verdict verdict = Verdict::Unknown;
    QString cause;
};

Opening judge(const QSqlError& error)
{
    const int code = error.nativeErrorCode().toInt() & 0xff; // the low byte of an extended code
    const bool damaged = code == sqliteCorrupt || code == sqliteNotADatabase || code == sqliteError;
    return {damaged ? Verdict::Damaged : Verdict::Unavailable, error.text()};
}

/// Opens the file, checks it through and brings the schema up to date.
Opening openAndCheck(QSqlDatabase& db)
{
    if (!db.open())
        return judge(db.lastError());
    QSqlQuery query(db);
    for (const char* pragma : {"PRAGMA journal_mode = WAL", "PRAGMA synchronous = FULL", "PRAGMA foreign_keys = ON"}) {
        if (!query.exec(QString::fromLatin1(pragma)))
            return judge(query.lastError());
    }
    if (!query.exec(QStringLiteral("PRAGMA quick_check(1)")) || !query.next())
        return judge(query.lastError());
    const QString health = query.value(0).toString();
    query.finish();
    if (health != QLatin1String("ok"))
        return {Verdict::Damaged, health};
    QSqlError error;
    switch (DatabaseSchema::upgrade(db, &error)) {
    case DatabaseSchema::Outcome::UpToDate:
        return {Verdict::Good, {}};
    case DatabaseSchema::Outcome::Newer:
        return {Verdict::Newer, {}};
    default:
        return judge(error);
    }
}

/// Renames the database with its companions; returns the new name, empty when it could not be renamed.
QString setAside(const QString& path)
{
    const QString stamp = QDateTime::currentDateTime().toString(QStringLiteral("yyyyMMdd-hhmmss"));
    QString target = path + QStringLiteral(".damaged-") + stamp;
    for (int i = 2; QFileInfo::exists(target); ++i)
        target = path + QStringLiteral(".damaged-%1-%2").arg(stamp).arg(i);
    if (!QFile::rename(path, target))
        return {};
    for (const char* companion : {"-wal", "-shm"}) {
        const QLatin1String suffix(companion);
        if (QFileInfo::exists(path + suffix))
            QFile::rename(path + suffix, target + suffix);
    }
    return target;
}

} // namespace

/// Lives on the database's thread, with the connection.
class Database::Worker final : public QObject
{
    Q_DECLARE_TR_FUNCTIONS(vemo_data::Database::Worker)

public:
    struct Posted
    {
        Job job;
        Done done;
        bool stored = false;
    };

    /// One transaction for all; a job that fails is undone alone.
    void carryOut(std::vector<Posted>& group);
    void close();
    QString notice() const;
    bool takeBegunAnew() { return m_begunAnew.exchange(false); }

private:
    enum class JobEnd { Stored, Undone, TransactionLost };

    static JobEnd carryOutOne(QSqlDatabase& db, const Job& job);
    bool ensureOpen();
    Opening openFile(const QString& path);
    void note(const QString& text);

    QElapsedTimer m_failedSince; ///< valid after a failed opening
    bool m_open = false;
    std::atomic<bool> m_begunAnew{false}; ///< any thread

    mutable QMutex m_noticeMutex;
    QString m_notice; ///< guarded by m_noticeMutex
};

Opening Database::Worker::openFile(const QString& path)
{
    // Somebody protected it on purpose, so its permissions are not touched.
    if (QFile::exists(path) && !(QFile::permissions(path) & QFile::WriteOwner))
        return {Verdict::Unavailable, tr("the file is read-only")};
    if (!DataFolder::makePrivateFile(path))
        return {Verdict::Unavailable, tr("the file can't be written")};
    Opening opening;
    {
        QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), connectionName());
        db.setConnectOptions(QStringLiteral("QSQLITE_BUSY_TIMEOUT=%1").arg(busyTimeoutMs));
        db.setDatabaseName(path);
        opening = openAndCheck(db);
        if (opening.verdict != Verdict::Good)
            db.close();
    }
    if (opening.verdict != Verdict::Good)
        QSqlDatabase::removeDatabase(connectionName());
    return opening;
}

void Database::Worker::note(const QString& text)
{
    {
        const QMutexLocker lock(&m_noticeMutex);
        m_notice = text;
    }
    if (!text.isEmpty())
        tell(text);
}

QString Database::Worker::notice() const
{
    const QMutexLocker lock(&m_noticeMutex);
    return m_notice;
}

bool Database::Worker::ensureOpen()
{
    if (m_open)
        return true;
    if (m_failedSince.isValid() && m_failedSince.elapsed() < reopenAfterMs)
        return false;

    const QString path = DataFolder::databaseFile();
    Opening opening = openFile(path);
    QString text;
    if (opening.verdict == Verdict::Damaged || opening.verdict == Verdict::Newer) {
        const QString aside = setAside(path);
        if (!aside.isEmpty()) {
            text =
                opening.verdict == Verdict::Newer
                    ? tr("The database was written by a newer version. It was set aside as %1 and an empty one begun.")
                          .arg(aside)
                    : tr("The database was damaged (%1). It was set aside as %2 and an empty one begun.")
                          .arg(opening.cause, aside);
            opening = openFile(path);
            m_begunAnew = opening.verdict == Verdict::Good;
        }
    }
    m_open = opening.verdict == Verdict::Good;
    if (m_open) {
        m_failedSince.invalidate();
    } else {
        m_failedSince.start();
        text = tr("The database %1 can't be opened: %2. Changes are not kept.").arg(path, opening.cause);
    }
    note(text);
    return m_open;
}

/// The job alone takes effect or not; what went before it in the transaction stands. A full or broken disk makes SQLite
/// roll the whole transaction back, savepoints included.
Database::Worker::JobEnd Database::Worker::carryOutOne(QSqlDatabase& db, const Job& job)
{
    QSqlQuery query(db);
    if (!query.exec(QStringLiteral("SAVEPOINT job")))
        return JobEnd::TransactionLost;
    if (job(db) && query.exec(QStringLiteral("RELEASE job")))
        return JobEnd::Stored;
    const bool undone = query.exec(QStringLiteral("ROLLBACK TO job")) && query.exec(QStringLiteral("RELEASE job"));
    return undone ? JobEnd::Undone : JobEnd::TransactionLost;
}

void Database::Worker::carryOut(std::vector<Posted>& group)
{
    if (!ensureOpen())
        return;
    QSqlDatabase db = QSqlDatabase::database(connectionName(), false);
    QSqlQuery query(db);
    bool committed = query.exec(QStringLiteral("BEGIN IMMEDIATE"));
    if (committed) {
        for (auto posted = group.begin(); posted != group.end() && committed; ++posted) {
            const JobEnd end = carryOutOne(db, posted->job);
            posted->stored = end == JobEnd::Stored;
            committed = end != JobEnd::TransactionLost;
        }
        committed = committed && query.exec(QStringLiteral("COMMIT"));
    }
    const QString cause = (query.lastError().isValid() ? query.lastError() : db.lastError()).databaseText();
    if (!committed) {
        query.exec(QStringLiteral("ROLLBACK"));
        for (Posted& posted : group)
            posted.stored = false;
    }
    if (std::any_of(group.cbegin(), group.cend(), [](const Posted& posted) { return !posted.stored; }))
        tell(tr("A change could not be saved in %1: %2")
                 .arg(db.databaseName(), cause.isEmpty() ? tr("the database refused it") : cause));
}

void Database::Worker::close()
{
    m_failedSince.invalidate();
    if (!m_open)
        return;
    QSqlDatabase::database(connectionName(), false).close();
    QSqlDatabase::removeDatabase(connectionName());
    m_open = false;
}

class Database::Private
{
public:
    Private()
    {
        thread.setObjectName(QStringLiteral("database"));
        worker.moveToThread(&thread);
    }

    void ensureRunning()
    {
        const QMutexLocker lock(&startMutex);
        if (!thread.isRunning())
            thread.start();
    }

    /// Carries out what was posted, closes the file and ends the thread.
    void shutdown()
    {
        const QMutexLocker lock(&startMutex);
        if (!thread.isRunning())
            return;
        QMetaObject::invokeMethod(
            &worker, [this] { worker.close(); }, Qt::BlockingQueuedConnection);
        thread.quit();
        thread.wait();
    }

    /// Hands what was posted so far to the database's thread, as one transaction.
    void handOver()
    {
        auto group = std::make_shared<std::vector<Worker::Posted>>();
        {
            const QMutexLocker lock(&groupMutex);
            group->swap(posted);
        }
        if (group->empty())
            return;
        ensureRunning();
        QMetaObject::invokeMethod(
            &worker,
            [this, group] {
                worker.carryOut(*group);
                const auto hasDone = [](const Worker::Posted& each) { return bool(each.done); };
                if (std::none_of(group->cbegin(), group->cend(), hasDone))
                    return;
                onGuiThread([group] {
                    for (const Worker::Posted& each : *group) {
                        if (each.done)
                            each.done(each.stored);
                    }
                });
            },
            Qt::QueuedConnection);
    }

    QMutex startMutex;
    QThread thread;
    Worker worker;

    QMutex groupMutex;
    std::vector<Worker::Posted> posted; ///< guarded by groupMutex; not handed over yet
};

Database::Database()
    : d(std::make_unique<Private>())
{
    // The SQL drivers go with the application object, so the connection must be gone by then: their own routine, which
    // the first look at them registers, runs behind this one.
    QSqlDatabase::drivers();
    qAddPostRoutine([] {
        Database::instance().d->handOver();
        Database::instance().d->shutdown();
    });
}

Database::~Database()
{
    d->shutdown();
}

Database& Database::instance()
{
    static Database database;
    return database;
}

void Database::post(Job job, Done done)
{
    const QCoreApplication* app = QCoreApplication::instance();
    const bool groups = app && QThread::currentThread() == app->thread();
    bool first = false;
    {
        const QMutexLocker lock(&d->groupMutex);
        first = d->posted.empty();
        d->posted.push_back({std::move(job), std::move(done)});
    }
    if (!groups)
        d->handOver();
    else if (first)
        onGuiThread([this] { d->handOver(); });
}

bool Database::run(const Job& job)
{
    d->handOver();
    d->ensureRunning();
    std::vector<Worker::Posted> group(1);
    group.front().job = job;
    QMetaObject::invokeMethod(
        &d->worker, [this, &group] { d->worker.carryOut(group); }, Qt::BlockingQueuedConnection);
    return group.front().stored;
}

void Database::close()
{
    d->handOver();
    if (d->thread.isRunning())
        QMetaObject::invokeMethod(
            &d->worker, [this] { d->worker.close(); }, Qt::BlockingQueuedConnection);
}

QString Database::notice() const
{
    return d->worker.notice();
}

bool Database::takeBegunAnew()
{
    return d->worker.takeBegunAnew();
}

} // namespace vemo_data
