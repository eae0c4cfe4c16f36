#pragma once

class QSqlDatabase;
class QSqlError;

namespace vemo_data {

/// The schema's versions, kept in `user_version`, and the steps that lead from each to the next.
class DatabaseSchema final
{
public:
    DatabaseSchema() = delete;

    enum class Outcome { Unknown, UpToDate, Newer, Failed };

    static int newestVersion();
    /// Carries out every missing step, each in a transaction of its own. `error` is set for Failed.
    static Outcome upgrade(QSqlDatabase& db, QSqlError* error);
};

} // namespace vemo_data
