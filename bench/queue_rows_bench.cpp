// What ten thousand tasks cost the person who looks at them: loading, adding, checking, sorting, scrolling and deleting
// rows of the three task tables, and how long the GUI thread was away meanwhile. Runs offscreen in a data folder of its
// own; prints one table. With the arguments "sort ROUNDS" it only sorts one table by range, again and again.
#include "JsonLine.h"

#include <BaseForm.h>
#include <Database.h>
#include <DataFolder.h>
#include <DevsMgrData.h>
#include <DownloadTaskData.h>
#include <FilesCenterInit.h>
#include <NavigationWidget.h>
#include <SystemAssistant.h>
#include <SystemConfig.h>
#include <TableWidget.h>
#include <Theme.h>
#include <VMessageBox.h>

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QPushButton>
#include <QScrollBar>
#include <QStackedWidget>
#include <QTemporaryDir>
#include <QTimer>
#include <QTimeZone>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <vector>

namespace {

using vemo_base::TableWidget;
using vemo_data::DownloadTaskInfo;

constexpr int rows = 10'000;

/// How long the event loop was away at most, seen by a timer of 4 ms.
class StallWatch final
{
public:
    StallWatch()
    {
        QObject::connect(&m_timer, &QTimer::timeout, [this] { note(); });
        m_timer.setTimerType(Qt::PreciseTimer);
        m_timer.start(tickMs);
    }

    void begin()
    {
        m_longestMs = 0;
        m_clock.start();
    }

    double longestMs() const { return m_longestMs; }

private:
    static constexpr int tickMs = 4;

    void note()
    {
        if (m_clock.isValid())
            m_longestMs = std::max(m_longestMs, static_cast<double>(m_clock.nsecsElapsed()) / 1e6 - tickMs);
        m_clock.start();
    }

    QTimer m_timer;
    QElapsedTimer m_clock;
    double m_longestMs = 0;
};

DownloadTaskInfo makeTask(int number, int state)
{
    DownloadTaskInfo task;
    task.taskId = QStringLiteral("{%1-%2}").arg(state).arg(number, 8, 10, QLatin1Char('0'));
    task.channelId = QStringLiteral("dev|%1").arg(number % 64 + 1);
    task.channelName = QStringLiteral("Channel %1").arg(number % 64 + 1);
    task.devLabel = QStringLiteral("Recorder");
    task.channelNo = number % 64 + 1;
    task.beginTime = QDateTime(QDate(2026, 1, 10), QTime(0, 0)).addSecs(number * 60);
    task.endTime = task.beginTime.addSecs(60);
    task.durationMs = 60'000;
    task.downloadMode = vemo_data::DownloadByTimeRange;
    task.state = state;
    task.savePath = QStringLiteral("c@d_1@%1@Device.mp4").arg(number);
    return task;
}

void waitFor(const std::function<bool()>& done)
{
    QElapsedTimer clock;
    clock.start();
    while (!done() && clock.elapsed() < 60'000)
        QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents, 100);
}

void line(const char* what, double totalMs, double stallMs)
{
    std::printf("%-44s %9.1f %12.1f\n", what, totalMs, stallMs);
    std::fflush(stdout);
}

double percentile99(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values.empty() ? 0 : values[values.size() * 99 / 100];
}

} // namespace

int main(int argc, char* argv[])
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM") && qEnvironmentVariableIsEmpty("DISPLAY"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("TZ", QTimeZone::systemTimeZoneId()); // as the program does
    QApplication application(argc, argv);
    const QTemporaryDir world;
    vemo_data::DataFolder::setRoot(world.path());
    QDir().mkpath(world.filePath(QStringLiteral("v/d")));
    vemo_worker::SystemConfig& config = vemo_worker::SystemConfig::instance();
    config.setVideoFilePath(world.filePath(QStringLiteral("v")));
    config.setDownloadPath(world.filePath(QStringLiteral("v/d")));
    vemo_base::Theme::instance().setChoice(vemo_base::Theme::Choice::Dark);
    vemo_base::Theme::instance().apply();
    vemo_worker::SystemAssistant::instance().setPresenter([](const QString&, const QString&) {});
    vemo_base::VMessageBox::setAnswerer([](const QString&) { return 1; });
    vemo_data::DevRecord device;
    device.devId = QStringLiteral("dev");
    device.name = QStringLiteral("Recorder");
    device.address = QUrl(QStringLiteral("http://127.0.0.1:1/onvif"));
    vemo_data::DevsMgrData::instance().addSessionDev(device);

    vemo_data::DownloadTaskData& store = vemo_data::DownloadTaskData::instance();
    QList<DownloadTaskInfo> paused;
    QList<DownloadTaskInfo> others;
    for (int i = 0; i < rows; ++i) {
        paused.append(makeTask(i, vemo_data::TaskPaused));
        others.append(makeTask(i, vemo_data::TaskLoginFailed));
        DownloadTaskInfo finished = makeTask(i, vemo_data::TaskSucceeded);
        finished.savePath = world.filePath(QStringLiteral("v/d/%1.mp4").arg(i));
        QFile file(finished.savePath);
        if (!file.open(QIODevice::WriteOnly))
            return 1;
        others.append(finished);
    }
    store.addDownloadTasks(others);
    store.flush();

    std::printf("%-44s %9s %12s\n", "10,000 tasks a table", "ms", "longest stall");
    StallWatch watch;
    QElapsedTimer clock;
    const auto measure = [&](const char* what, const std::function<void()>& act, const std::function<bool()>& done) {
        // Called by the event loop, as everything in the program is: what is deleted later goes with the turn.
        bool acted = false;
        watch.begin();
        clock.start();
        QTimer::singleShot(0, [&] {
            act();
            acted = true;
        });
        waitFor([&] { return acted && done(); });
        const double total = static_cast<double>(clock.nsecsElapsed()) / 1e6;
        // One tick more, so that the last piece of work is seen as well.
        bool ticked = false;
        QTimer::singleShot(10, [&ticked] { ticked = true; });
        waitFor([&ticked] { return ticked; });
        line(what, total, watch.longestMs());
    };

    std::unique_ptr<vemo_base::BaseForm> form;
    const auto table = [&form](const char* name) { return form->findChild<TableWidget*>(QString::fromLatin1(name)); };
    measure(
        "form made, 20,000 stored tasks handed out",
        [&] {
            form.reset(vemo_filesCenter::FilesCenterInit::instance().createFilesCenterForm());
            form->resize(1280, 800);
            form->show();
        },
        [&] { return table("failedTable")->rowCount() == rows && table("successTable")->rowCount() == rows; });
    TableWidget* downloading = table("downloadingTable");
    measure(
        "10,000 tasks stored and announced", [&] { store.addDownloadTasks(paused); },
        [&] { return downloading->rowCount() == rows; });
    if (argc == 3 && qstrcmp(argv[1], "sort") == 0) {
        std::vector<double> sorts;
        for (int round = QString::fromLocal8Bit(argv[2]).toInt(); round > 0; --round) {
            clock.start();
            downloading->sortRows(2, Qt::DescendingOrder);
            QCoreApplication::processEvents(); // and paints
            sorts.push_back(static_cast<double>(clock.nsecsElapsed()) / 1e6);
            downloading->sortNaturally();
        }
        json_line::print({{QStringLiteral("sort"), json_line::array(sorts)}});
        form.reset();
        vemo_data::Database::instance().close();
        return 0;
    }
    measure(
        "check all", [&] { downloading->checkAll(true); }, [&] { return downloading->checkedCount() == rows; });
    measure(
        "uncheck all", [&] { downloading->checkAll(false); }, [&] { return downloading->checkedCount() == 0; });
    measure(
        "sort by range", [&] { downloading->sortRows(2, Qt::DescendingOrder); }, [] { return true; });
    measure(
        "back to natural order", [&] { downloading->sortNaturally(); }, [] { return true; });

    std::vector<double> frames;
    QScrollBar* bar = downloading->verticalScrollBar();
    for (int step = 0; step < 2000; ++step) {
        clock.start();
        QTimer::singleShot(
            0, [bar, step] { bar->setValue(step < 1000 ? step : (step - 1000) * (bar->maximum() / 1000)); });
        QCoreApplication::processEvents();
        frames.push_back(static_cast<double>(clock.nsecsElapsed()) / 1e6);
    }
    line("scrolling, a step (99th percentile; longest)", percentile99(frames),
         *std::max_element(frames.begin(), frames.end()));

    auto* pages = form->findChild<QStackedWidget*>(QStringLiteral("stackedWidget"));
    measure(
        "success page shown, files looked for", [&] { pages->setCurrentIndex(1); }, [] { return true; });
    measure(
        "failed page shown", [&] { pages->setCurrentIndex(2); }, [] { return true; });
    pages->setCurrentIndex(0);
    downloading->checkAll(true);
    downloading->verticalScrollBar()->setValue(0);
    measure(
        "batch cancel of 10,000", [&] { form->findChild<QPushButton*>(QStringLiteral("batchCancelBt"))->click(); },
        [&] { return downloading->rowCount() == 0; });
    // Nothing starts without the folder, so that rows alone are measured.
    config.setVideoFilePath(world.filePath(QStringLiteral("gone")));
    TableWidget* failed = table("failedTable");
    failed->checkAll(true);
    measure(
        "batch redownload of 10,000",
        [&] { form->findChild<QPushButton*>(QStringLiteral("batchRedownloadBt"))->click(); },
        [&] { return failed->rowCount() == 0 && downloading->rowCount() == rows; });
    form.reset();
    vemo_data::Database::instance().close();
    return 0;
}
