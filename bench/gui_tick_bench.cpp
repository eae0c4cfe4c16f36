// Lateness of a 16 ms tick on the GUI thread while downloads run through the module, asked for as any module of the
// client asks. usage: gui_tick_bench DEVICE_URL USER PASSWORD_FILE CHANNEL BEGIN END OUT_DIR DOWNLOADS SECONDS [ROWS]
// (times ISO 8601). With ROWS the downloads page stands open with so many stored tasks and is scrolled all the time.
#include "FilesCenterInit.h"

#include <BaseForm.h>
#include <BaseTools.h>
#include <DevsMgrData.h>
#include <DownloadTaskData.h>
#include <ModuleAccess.h>
#include <Theme.h>
#include <vaws_download.h>
#include <vms_sdk.h>

#include <QApplication>
#include <QDir>
#include <QDirIterator>
#include <QElapsedTimer>
#include <QFile>
#include <QScrollBar>
#include <QTableWidget>
#include <QTextStream>
#include <QTimer>
#include <QTimeZone>

#include <algorithm>
#include <cmath>
#include <memory>
#include <vector>

namespace {

constexpr int tickMs = 16;
constexpr int settleMs = 1500; // login, search and the first fragments are not what is measured

qint64 folderBytes(const QString& folder)
{
    qint64 bytes = 0;
    for (QDirIterator it(folder, QDir::Files); it.hasNext();) {
        it.next();
        bytes += it.fileInfo().size();
    }
    return bytes;
}

QString password(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()).trimmed() : QString();
}

/// The downloads page with stored tasks, and a person who turns the wheel over it.
class ScrolledPage final
{
public:
    explicit ScrolledPage(int rows)
    {
        QList<vemo_data::DownloadTaskInfo> tasks;
        for (int i = 0; i < rows; ++i) {
            vemo_data::DownloadTaskInfo task;
            task.taskId = QStringLiteral("{row-%1}").arg(i);
            task.channelId = QStringLiteral("other|%1").arg(i % 64 + 1);
            task.channelName = QStringLiteral("Channel %1").arg(i % 64 + 1);
            task.beginTime = QDateTime(QDate(2026, 1, 10), QTime(0, 0)).addSecs(i * 60);
            task.endTime = task.beginTime.addSecs(60);
            task.downloadMode = vemo_data::DownloadByTimeRange;
            task.state = vemo_data::TaskPaused;
            tasks.append(task);
        }
        vemo_data::DownloadTaskData::instance().addDownloadTasks(tasks);
        vemo_data::DownloadTaskData::instance().flush();
        vemo_base::Theme::instance().apply();
        m_form.reset(vemo_filesCenter::FilesCenterInit::instance().createFilesCenterForm());
        m_form->resize(1280, 800);
        m_form->show();
        QObject::connect(&m_wheel, &QTimer::timeout, [this] { turn(); });
        m_wheel.start(wheelMs);
    }

private:
    static constexpr int wheelMs = 33;
    static constexpr int stepPx = 120;

    void turn()
    {
        auto* table = m_form->findChild<QTableWidget*>(QStringLiteral("downloadingTable"));
        QScrollBar* bar = table->verticalScrollBar();
        bar->setValue(bar->value() + stepPx >= bar->maximum() ? 0 : bar->value() + stepPx);
    }

    std::unique_ptr<vemo_base::BaseForm> m_form;
    QTimer m_wheel;
};

} // namespace

int main(int argc, char** argv)
{
    qputenv("TZ", QTimeZone::systemTimeZoneId()); // as the program does
    QApplication app(argc, argv);
    const QStringList args = QCoreApplication::arguments();
    if (args.size() != 10 && args.size() != 11) {
        QTextStream(stderr) << "usage: gui_tick_bench DEVICE_URL USER PASSWORD_FILE CHANNEL BEGIN END OUT_DIR "
                               "DOWNLOADS SECONDS [ROWS]\n";
        return 2;
    }
    const QDir outDir(args[7]);
    const int downloads = args[8].toInt();
    const int seconds = args[9].toInt();
    qputenv("VEMO_DATA_DIR", outDir.filePath(QStringLiteral("data")).toLocal8Bit());
    vemo_filesCenter::FilesCenterInit::instance();

    auto& devices = vemo_data::DevsMgrData::instance();
    vemo_data::DevRecord record;
    record.name = QStringLiteral("bench");
    record.address = QUrl(args[1]);
    record.user = args[2];
    const QString devId = devices.addSessionDev(record);

    std::unique_ptr<ScrolledPage> page;
    if (const int rows = args.value(10).toInt(); rows > 0)
        page = std::make_unique<ScrolledPage>(rows);

    int failures = 0;
    auto& access = vemo_contact::ModuleAccess::instance();
    QObject::connect(&access, &vemo_contact::ModuleAccess::signalDownloadRecordingByTimeRangeImplicitlyResult, &app,
                     [&](const QString&, bool ok) { failures += ok ? 0 : 1; });

    std::vector<double> lateMs;
    QElapsedTimer clock;
    double expectedMs = 0;
    qint64 bytesAtBegin = 0;
    double measuredSeconds = 0;
    QTimer tick;
    tick.setTimerType(Qt::PreciseTimer);
    QObject::connect(&tick, &QTimer::timeout, &app, [&] {
        const double nowMs = static_cast<double>(clock.nsecsElapsed()) * 1e-6;
        // A late tick is followed by the next one on the timer's own grid; ticks that fell out count as one long one.
        lateMs.push_back(std::max(0.0, nowMs - expectedMs));
        expectedMs = std::max(expectedMs + tickMs, (std::floor(nowMs / tickMs) + 1) * tickMs);
        if (nowMs > seconds * 1000.0) {
            measuredSeconds = nowMs / 1000;
            QCoreApplication::quit();
        }
    });
    const auto measure = [&] {
        bytesAtBegin = folderBytes(outDir.path());
        clock.start();
        expectedMs = tickMs;
        tick.start(tickMs);
    };
    QObject::connect(
        &vms_sdk::ClientSignals::instance(), &vms_sdk::ClientSignals::signalDevLoginRes, &app,
        [&](const QString& id, const vms_sdk::Error& error) {
            if (id != devId)
                return;
            if (error) {
                QTextStream(stderr) << error.message << "\n";
                QCoreApplication::exit(1);
                return;
            }
            for (int i = 0; i < downloads; ++i)
                emit access.signalDownloadRecordingByTimeRangeImplicitly(
                    vemo_base::BaseTools::instance().formatChannelId(devId, args[4].toInt()), 0,
                    QStringLiteral("{tick-%1}").arg(i), outDir.filePath(QStringLiteral("tick-%1.mp4").arg(i)),
                    QDateTime::fromString(args[5], Qt::ISODate), QDateTime::fromString(args[6], Qt::ISODate));
            QTimer::singleShot(settleMs, &app, measure);
        });
    devices.login(devId, password(args[3]));
    const int code = QCoreApplication::exec();
    const qint64 bytes = folderBytes(outDir.path()) - bytesAtBegin;
    page.reset();
    vms_sdk::uninit_sdk();
    vaws_download_shutdown();
    if (code != 0 || lateMs.empty())
        return 1;
    std::sort(lateMs.begin(), lateMs.end());
    QTextStream(stdout) << "{\"ticks\": " << lateMs.size() << ", \"p50_ms\": " << lateMs[lateMs.size() / 2]
                        << ", \"p99_ms\": " << lateMs[lateMs.size() * 99 / 100] << ", \"max_ms\": " << lateMs.back()
                        << ", \"rate_mb_s\": " << static_cast<double>(bytes) * 1e-6 / measuredSeconds
                        << ", \"failed\": " << failures << "}\n";
    return failures == 0 ? 0 : 1;
}
