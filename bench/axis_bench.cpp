// What time axes cost: a frame of the playback axis with 16 channels and 10,000 segments of a day while it is zoomed
// and panned, and the backup page with 200 rows: opening it, a step of scrolling, and five running tasks that tell
// their progress once a second each. Runs offscreen in a data folder of its own; prints one table, with the argument
// time-line only its part of it.
#include "JsonLine.h"

#include <axis/DayAxis.h>
#include <backup/BackupTasksBox.h>
#include <backup/BackupTaskTimeAxisWt.h>
#include <backup/BackupWorker.h>
#include <backup/DevRecordingsBackupPage.h>
#include <BackupTaskData.h>
#include <Database.h>
#include <DataFolder.h>
#include <playback/DayAxisWt.h>
#include <Theme.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QScrollArea>
#include <QScrollBar>
#include <QTemporaryDir>
#include <QTimer>
#include <QTimeZone>
#include <QUuid>

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <functional>
#include <vector>

namespace {

using vemo_data::BackupTaskInfo;

constexpr int channels = 16;
constexpr int segmentsAChannel = 10'000 / channels;
constexpr int frames = 400;
constexpr int rows = 200;
constexpr int running = 5;

const QDate day(2026, 1, 10);

/// Time on the clock, and CPU time, which neighbours on a busy machine don't lengthen.
struct Cost
{
    double ms = 0;
    double cpuMs = 0;
};

Cost timed(const std::function<void()>& work)
{
    QElapsedTimer clock;
    clock.start();
    const std::clock_t before = std::clock();
    work();
    const double cpuMs = static_cast<double>(std::clock() - before) * 1e3 / CLOCKS_PER_SEC;
    return {static_cast<double>(clock.nsecsElapsed()) / 1e6, cpuMs};
}

class Times final
{
public:
    void add(const Cost& cost)
    {
        m_ms.push_back(cost.ms);
        m_cpuMs.push_back(cost.cpuMs);
    }

    double p99() { return at(m_ms, 0.99); }

    void print(const char* what)
    {
        std::printf("  %-42s %6.2f %6.2f %6.2f\n", what, at(m_ms, 0.5), at(m_ms, 0.99), at(m_cpuMs, 0.99));
    }

private:
    static double at(std::vector<double>& values, double share)
    {
        std::sort(values.begin(), values.end());
        return values.at(
            std::min(values.size() - 1, static_cast<std::size_t>(share * static_cast<double>(values.size()))));
    }

    std::vector<double> m_ms;
    std::vector<double> m_cpuMs;
};

QList<vms_sdk::VideoRecording> segments()
{
    QList<vms_sdk::VideoRecording> recordings;
    const qint64 stepMs = 24LL * 3600 * 1000 / segmentsAChannel;
    const QDateTime midnight(day, QTime(0, 0));
    for (int i = 0; i < segmentsAChannel; ++i) {
        vms_sdk::VideoRecording recording;
        recording.begin = midnight.addMSecs(i * stepMs);
        recording.end = recording.begin.addMSecs(stepMs * 3 / 4);
        recording.type = i % 10 == 0 ? 1 : 0;
        recordings.append(recording);
    }
    return recordings;
}

QJsonObject benchTimeLine()
{
    vemo_client::DayAxisWt axis;
    axis.setDay(vemo_base::DayAxis(day, QTimeZone::systemTimeZone()));
    QVector<vemo_client::ChannelDay> days(channels);
    for (int i = 0; i < channels; ++i) {
        days[i].channel = {QStringLiteral("dev"), i + 1};
        days[i].name = QStringLiteral("Channel %1").arg(i + 1);
        days[i].state = vemo_client::ChannelDay::State::Found;
        days[i].recordings = segments();
    }
    axis.setChannels(days);
    axis.resize(2000, 18 * 22 + 60);
    axis.show();
    QApplication::processEvents();
    QImage target(4000, 600, QImage::Format_ARGB32_Premultiplied);

    Times zoom;
    Times pan;
    for (int i = 0; i < frames; ++i) {
        // In to four minutes and out again, every segment laid anew; then along the day.
        axis.zoom(i % 50 < 25 ? 1.25 : 1 / 1.25, 0.4);
        zoom.add(timed([&] { axis.viewport()->render(&target); }));
        axis.pan(i % 40 < 20 ? 0.1 : -0.1);
        pan.add(timed([&] { axis.viewport()->render(&target); }));
    }
    std::printf("ms: median, p99, p99 of CPU time\n");
    std::printf("time line, 24 h, %d channels, %d segments, %d px wide:\n", channels, channels * segmentsAChannel,
                axis.width());
    zoom.print("frame while zooming");
    pan.print("frame while panning");
    return {{QStringLiteral("zoom_p99_ms"), zoom.p99()}, {QStringLiteral("pan_p99_ms"), pan.p99()}};
}

BackupTaskInfo makeTask(int number)
{
    BackupTaskInfo task;
    task.taskId = QUuid::createUuid().toString();
    task.date = day;
    task.channelId = QStringLiteral("dev|%1").arg(number);
    task.channelName = QStringLiteral("Channel %1").arg(number);
    task.deviceNo = QStringLiteral("dev");
    task.channelNo = number;
    task.timeSegments = {
        {QTime(1, 0), QTime(5, 0, 59)}, {QTime(6, 0), QTime(12, 0, 59)}, {QTime(13, 0), QTime(20, 0, 59)}};
    for (int hour = 1; hour < 5; ++hour) {
        BackupTaskInfo::FileInfo entry;
        entry.startTime = QTime(hour, 0);
        entry.endTime = QTime(hour + 1, 0);
        entry.filePath = hour == 3 ? QString() : QStringLiteral("/nowhere.mp4");
        entry.finished = true;
        task.fileInfos.append(entry);
    }
    BackupTaskInfo::FileInfo open;
    open.startTime = QTime(6, 0);
    open.endTime = QTime(12, 0, 59);
    open.filePath = QStringLiteral("/nowhere.mp4");
    task.fileInfos.append(open);
    return task;
}

void benchBackupPage()
{
    QList<BackupTaskInfo> tasks;
    for (int i = 1; i <= rows; ++i)
        tasks.append(makeTask(i));
    vemo_data::BackupTaskData::instance().addBackupTasks(tasks);
    for (const BackupTaskInfo& task : tasks)
        vemo_data::BackupTaskData::instance().updateBackupResults(task.taskId, task.fileInfos);
    vemo_data::BackupTaskData::instance().flush();
    QApplication::processEvents();

    vemo_filesCenter::DevRecordingsBackupPage page;
    page.resize(1200, 820);
    Times open;
    open.add(timed([&] {
        page.showDate(day);
        page.show();
        QApplication::processEvents();
        page.grab();
    }));
    std::printf("backup page, %d rows:\n", page.box()->rowCount());
    open.print("opened and painted");

    auto* bar = page.findChild<QScrollArea*>()->verticalScrollBar();
    Times scroll;
    for (int i = 0; i < frames; ++i) {
        bar->setValue((i * 32) % std::max(1, bar->maximum()));
        scroll.add(timed([] { QApplication::processEvents(); }));
    }
    scroll.print("a step of scrolling");

    bar->setValue(0);
    QApplication::processEvents();
    QElapsedTimer elapsed;
    elapsed.start();
    const std::clock_t before = std::clock();
    constexpr int seconds = 8;
    auto& worker = vemo_filesCenter::BackupWorker::instance();
    for (int second = 0; second < seconds; ++second) {
        for (int i = 0; i < running; ++i) {
            emit worker.signalBackupProgress(tasks.at(i).taskId, QTime(6, second));
            QEventLoop pause;
            QTimer::singleShot(1000 / running, &pause, &QEventLoop::quit);
            pause.exec();
        }
    }
    const double cpu = static_cast<double>(std::clock() - before) / CLOCKS_PER_SEC;
    std::printf("  five tasks telling progress each second:   %6.2f %% of a core\n",
                cpu * 100'000.0 / static_cast<double>(elapsed.elapsed()));
}

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("TZ", QTimeZone::systemTimeZoneId()); // as the program does
    QApplication application(argc, argv);
    const QTemporaryDir folder;
    vemo_data::DataFolder::setRoot(folder.path());
    vemo_base::Theme::instance().apply();
    const QJsonObject timeLine = benchTimeLine();
    if (argc < 2 || qstrcmp(argv[1], "time-line") != 0)
        benchBackupPage();
    std::fflush(stdout);
    json_line::print(timeLine);
    vemo_data::Database::instance().close();
    return 0;
}
