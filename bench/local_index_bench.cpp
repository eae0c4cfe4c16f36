#include "JsonLine.h"
#include "local/LocalRecordingsData.h"

#include <Database.h>
#include <DataFolder.h>
#include <LocalRecordingIndexes.h>
#include <LocalSnapImageIndexes.h>

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QProcess>
#include <QSqlQuery>
#include <QTemporaryDir>
#include <QTextStream>
#include <QTimeZone>
#include <QVariant>

#include <algorithm>
#include <functional>
#include <vector>

// What a search in the page of local recordings costs beside the sqlite3 shell reading the same rows, and what the
// snapshots' index answers in. Usage: local_index_bench [records] [rounds]

namespace {

using VCOMMON::LocalRecordingIndexes;
using VCOMMON::LocalRecordingIndexInfo;
using VCOMMON::LocalSnapImageIndexes;
using VCOMMON::LocalSnapImageIndexInfo;
using vemo_filesCenter::LocalRecordingsData;

constexpr int channels = 16;
constexpr int pageSize = 100;
constexpr int mostDaysAsked = 31; ///< by the page in one search

QDateTime timeOf(int number)
{
    return QDateTime(QDate(2026, 1, 1), QTime(0, 0)).addMSecs(number * 61'007LL);
}

LocalRecordingIndexInfo recordingOf(int number)
{
    LocalRecordingIndexInfo record;
    record.devId = QStringLiteral("{8f14e45f-ceea-467f-9575-4d1a0c2b1f%1}").arg(number % 4, 2, 16, QLatin1Char('0'));
    record.channelNo = number % channels + 1;
    record.channelId = record.devId + QLatin1Char('|') + QString::number(record.channelNo);
    record.channelName = QStringLiteral("Camera %1").arg(record.channelNo);
    record.devName = QStringLiteral("Recorder %1").arg(number % 4);
    record.beginTime = timeOf(number);
    record.endTime = record.beginTime.addSecs(900);
    record.filePath = QStringLiteral("/home/user/Videos/Vemo/Recordings/%1/%2@%1@%3.mp4")
                          .arg(record.channelName, record.devName)
                          .arg(number);
    return record;
}

void print(const char* what, std::vector<double> ms)
{
    std::sort(ms.begin(), ms.end());
    QTextStream(stdout) << QString::fromLatin1(what).leftJustified(52) << QString::number(ms[ms.size() / 2], 'f', 1)
                        << " ms (" << QString::number(ms.front(), 'f', 1) << " to "
                        << QString::number(ms.back(), 'f', 1) << ")\n";
}

double timed(const std::function<void()>& work)
{
    QElapsedTimer timer;
    timer.start();
    work();
    return double(timer.nsecsElapsed()) / 1e6;
}

QList<LocalRecordingIndexInfo> ask(const QDateTime& begin, const QDateTime& end)
{
    QList<LocalRecordingIndexInfo> answer;
    QEventLoop loop;
    QObject context;
    LocalRecordingIndexes& indexes = LocalRecordingIndexes::instance();
    QObject::connect(&indexes, &LocalRecordingIndexes::signalGetLocalRecordingIndexesInfoResult, &context,
                     [&](const QString&, const QList<LocalRecordingIndexInfo>& records, int) {
                         answer = records;
                         loop.quit();
                     });
    emit indexes.signalGetLocalRecordingIndexesInfo(QStringLiteral("bench"), begin, end, 0);
    loop.exec();
    return answer;
}

double shell(const QString& statement)
{
    return timed([&statement] {
        QProcess process;
        process.setStandardOutputFile(QProcess::nullDevice());
        process.start(QStringLiteral("sqlite3"), {vemo_data::DataFolder::databaseFile(), statement});
        process.waitForFinished(-1);
    });
}

void fill(int count)
{
    for (int number = 0; number < count; ++number) {
        const LocalRecordingIndexInfo recording = recordingOf(number);
        LocalRecordingIndexes::instance().addLocalRecordingIndex(recording);
    }
    vemo_data::Database::instance().run([](QSqlDatabase&) { return true; });
    QList<LocalSnapImageIndexInfo> snapshots;
    for (int number = 0; number < count; ++number) {
        LocalSnapImageIndexInfo snapshot;
        snapshot.devId = QStringLiteral("{8f14e45f-ceea-467f-9575-4d1a0c2b1f00}");
        snapshot.channelNo = number % channels + 1;
        snapshot.channelName = QStringLiteral("Camera");
        snapshot.captureTime = timeOf(number);
        snapshot.filePath = QStringLiteral("/home/user/Videos/Vemo/Snapshots/%1.jpg").arg(number);
        snapshots.append(snapshot);
    }
    LocalSnapImageIndexes::instance().takeScanned(snapshots, {});
}

} // namespace

int main(int argc, char* argv[])
{
    qputenv("TZ", QTimeZone::systemTimeZoneId()); // as the program does
    QCoreApplication application(argc, argv);
    const int count = argc > 1 ? QString::fromLocal8Bit(argv[1]).toInt() : 100'000;
    const int rounds = argc > 2 ? QString::fromLocal8Bit(argv[2]).toInt() : 7;
    const QTemporaryDir world;
    vemo_data::DataFolder::setRoot(world.path());
    fill(count);

    std::vector<double> answers;
    std::vector<double> firstPages;
    std::vector<double> weeks;
    std::vector<double> months;
    std::vector<double> shellMonth;
    int monthRecords = 0;
    std::vector<double> filters;
    std::vector<double> pages;
    std::vector<double> snapshots;
    std::vector<double> shellAll;
    std::vector<double> shellWeek;
    LocalRecordingsData data;
    const QDateTime first = timeOf(0).addDays(-1);
    const QDateTime last = timeOf(count).addDays(1);
    const QDateTime weekEnd = timeOf(count / 2);
    for (int round = 0; round < rounds; ++round) {
        QList<LocalRecordingIndexInfo> records;
        const double answered = timed([&] { records = ask(first, last); });
        answers.push_back(answered);
        firstPages.push_back(answered + timed([&] {
                                 data.setRecordings(records);
                                 data.getPage(pageSize, 1);
                             }));
        if (data.filteredCount() != count)
            return 1;
        filters.push_back(timed([&] {
            data.filter(QStringLiteral("camera 1"));
            data.getPage(pageSize, 1);
        }));
        pages.push_back(timed([&] { data.getPage(pageSize, data.filteredCount() / pageSize); }));
        weeks.push_back(timed([&] {
            data.setRecordings(ask(weekEnd.addDays(-7), weekEnd));
            data.getPage(pageSize, 1);
        }));
        months.push_back(timed([&] {
            data.setRecordings(ask(weekEnd.addDays(-mostDaysAsked), weekEnd));
            data.getPage(pageSize, 1);
        }));
        monthRecords = data.filteredCount();
        snapshots.push_back(timed(
            [&] { LocalSnapImageIndexes::instance().getLocalSnapImageIndexesInfo(weekEnd.addDays(-7), weekEnd); }));
        shellAll.push_back(shell(QStringLiteral("SELECT * FROM local_recordings ORDER BY begin_utc_ms")));
        const auto shellSince = [&weekEnd](int days) {
            return shell(QStringLiteral("SELECT * FROM local_recordings WHERE begin_utc_ms < %1 AND end_utc_ms > %2 "
                                        "ORDER BY begin_utc_ms")
                             .arg(weekEnd.toMSecsSinceEpoch())
                             .arg(weekEnd.addDays(-days).toMSecsSinceEpoch()));
        };
        shellWeek.push_back(shellSince(7));
        shellMonth.push_back(shellSince(mostDaysAsked));
    }
    QTextStream(stdout) << count << " records, " << rounds << " rounds: median (from to)\n";
    print("recordings: all answered", answers);
    print("recordings: all answered, sorted, first page", firstPages);
    print("recordings: filtered, first page", filters);
    print("recordings: page changed", pages);
    print("recordings: a week answered, sorted, first page", weeks);
    print("recordings: 31 days answered, sorted, first page", months);
    print("snapshots: a week answered", snapshots);
    print("sqlite3 shell: all", shellAll);
    print("sqlite3 shell: a week", shellWeek);
    print("sqlite3 shell: 31 days", shellMonth);
    const auto both = [](int records, const std::vector<double>& ours, const std::vector<double>& others) {
        return QJsonObject{{QStringLiteral("records"), records},
                           {QStringLiteral("ours"), json_line::array(ours)},
                           {QStringLiteral("shell"), json_line::array(others)}};
    };
    json_line::print({{QStringLiteral("all"), both(count, firstPages, shellAll)},
                      {QStringLiteral("month"), both(monthRecords, months, shellMonth)}});
    return 0;
}
