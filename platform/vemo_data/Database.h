#pragma once

#include "vemo_data_global.h"

#include <QString>

#include <functional>
#include <memory>

class QSqlDatabase;

namespace vemo_data {

/// The client's one database file and the one thread that touches it.
///
/// Opened by the first job, under DataFolder::databaseFile(): WAL, synchronous FULL, foreign keys on, brought up to the
/// newest schema. A file that is damaged, of a newer schema or no database at all is set aside under a dated name and a
/// new one begun; that, and a store that can't be opened at all, is told by DataSignals::signalStoreNotice. Jobs are
/// carried out in the order of posting. Each is stored as a whole when it returns true and rolled back otherwise. Jobs
/// posted in one turn of the GUI thread's event loop share one transaction, so that one action of a person costs one
/// sync and a crash keeps all of it or none. Calls may come from any thread. Jobs posted before close() are carried
/// out; the application's end closes by itself.
class VEMO_DATA_EXPORT Database final
{
public:
    using Job = std::function<bool(QSqlDatabase& db)>;
    using Done = std::function<void(bool stored)>;

    Database(const Database&) = delete;
    Database& operator=(const Database&) = delete;
    ~Database();

    static Database& instance();

    /// `done` is called on the GUI thread after the commit, or with false when the job or the commit failed; those of
    /// one transaction one after another, in order.
    void post(Job job, Done done = {});
    /// Carries the job out behind those posted before and waits for it. For what can't go on without the answer.
    bool run(const Job& job);

    /// Finishes what was posted and closes the file. The next job opens it again, at the then current data folder.
    void close();

    /// What the last opening had to tell, empty when all was well.
    QString notice() const;
    /// A file that could not be used was set aside, and an empty one begun, since the last call.
    bool takeBegunAnew();

private:
    Database();

    class Worker;
    class Private;
    std::unique_ptr<Private> d;
};

} // namespace vemo_data
