#include "TestWorld.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QVariant>

using vemo_data::Database;

namespace {

bool addLine(QSqlDatabase& db)
{
    return QSqlQuery(db).exec(QStringLiteral("INSERT INTO files_center_logs (time_utc_ms, kind, device, channel_no, "
                                             "channel_name, text) VALUES (1, 1, '', 1, '', '')"));
}

} // namespace

TEST(DatabaseEnd, keepsWhatWasPostedWhenTheApplicationEnds)
{
    int argc = 1;
    char name[] = "database_end_test";
    char* argv[] = {name, nullptr};
    const TestWorld world;
    {
        QCoreApplication application(argc, argv);
        ASSERT_TRUE(Database::instance().run([](QSqlDatabase&) { return true; })); // it is open
        Database::instance().post(addLine);
    }
    QCoreApplication application(argc, argv);
    int lines = 0;
    Database::instance().run([&lines](QSqlDatabase& db) {
        QSqlQuery count(db);
        const bool ok = count.exec(QStringLiteral("SELECT count(*) FROM files_center_logs")) && count.next();
        lines = count.value(0).toInt();
        return ok;
    });
    EXPECT_EQ(lines, 1);
}
