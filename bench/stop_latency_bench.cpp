// How long pause, resume, cancel and stop take on the GUI thread while a download runs at full rate: the calls that the
// download worker makes, in its order, against a real recorder. usage: stop_latency_bench DEVICE_URL USER PASSWORD_FILE
// CHANNEL BEGIN END OUT_DIR [ROUNDS]   (times ISO 8601)
#include "JsonLine.h"

#include "vaws_download.h"
#include "vms_sdk.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTextStream>
#include <QTimer>

#include <functional>
#include <vector>

namespace {

const QString timeFormat = QStringLiteral("yyyyMMddhhmmss");
quint64 currentStream = 0;

double timed(const std::function<void()>& call)
{
    QElapsedTimer timer;
    timer.start();
    call();
    return static_cast<double>(timer.nsecsElapsed()) * 1e-6;
}

void waitMs(int ms)
{
    QEventLoop loop;
    QTimer::singleShot(ms, &loop, &QEventLoop::quit);
    loop.exec();
}

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    const QStringList args = QCoreApplication::arguments();
    if (args.size() < 8) {
        QTextStream(stderr)
            << "usage: stop_latency_bench DEVICE_URL USER PASSWORD_FILE CHANNEL BEGIN END OUT_DIR [ROUNDS]\n";
        return 2;
    }
    vms_sdk::DevLogin login;
    login.devId = QStringLiteral("bench");
    login.address = QUrl(args[1]);
    login.user = args[2];
    QFile passwordFile(args[3]);
    if (passwordFile.open(QIODevice::ReadOnly))
        login.password = QString::fromUtf8(passwordFile.readAll()).trimmed();
    const QDateTime begin = QDateTime::fromString(args[5], Qt::ISODate);
    const QDateTime end = QDateTime::fromString(args[6], Qt::ISODate);
    const QDir outDir(args[7]);
    const int rounds = args.size() > 8 ? args[8].toInt() : 10;

    vaws_download_init_sdk(outDir.filePath(QStringLiteral("journal")).toUtf8().constData());
    vaws_download_register_event_callback([](const char*, int, int) {});
    vaws_download_register_consumed_callback(
        [](const char*, int64_t bytes) { vms_sdk::stream_data_consumed(currentStream, bytes); });

    auto& signalHub = vms_sdk::ClientSignals::instance();
    QByteArray task;
    qint64 received = 0;
    QObject::connect(
        &signalHub, &vms_sdk::ClientSignals::signalStreamData, &app, [&](quint64 stream, const QByteArray& data) {
            if (stream != currentStream)
                return;
            received += data.size();
            vaws_download_push_vavframe(task.constData(), data.constData(), static_cast<size_t>(data.size()));
        });
    QObject::connect(&signalHub, &vms_sdk::ClientSignals::signalStreamEventPush, &app,
                     [&](quint64 stream, vms_sdk::StreamEvent event) {
                         if (stream == currentStream && event == vms_sdk::StreamPlaying)
                             vaws_download_push_player_event(task.constData(), VAWS_PLAYER_PLAYING);
                     });
    vms_sdk::login_dev_req(login);

    std::vector<double> pause;
    std::vector<double> resume;
    std::vector<double> cancel;
    std::vector<double> stop;
    double rate = 0;
    for (int round = 0; round < rounds; ++round) {
        task = QByteArrayLiteral("bench-") + QByteArray::number(round);
        const QString path = outDir.filePath(QStringLiteral("latency-%1.mp4").arg(round));
        QFile::remove(path);
        vaws_download_time_range("vavFrame", begin.toString(timeFormat).toUtf8().constData(),
                                 end.toString(timeFormat).toUtf8().constData(), path.toUtf8().constData(),
                                 task.constData());
        vms_sdk::PlaybackByTimeCondition condition;
        condition.devId = login.devId;
        condition.channelNo = args[4].toInt();
        condition.beginTime = begin;
        condition.endTime = end;
        condition.downloadFlag = 1;
        received = 0;
        currentStream = vms_sdk::playback_by_time_req(condition);
        QElapsedTimer clock;
        clock.start();
        waitMs(700);
        rate = static_cast<double>(received) / static_cast<double>(clock.elapsed()) / 1000.0;
        pause.push_back(timed([&] {
            vms_sdk::playback_ctrl_req(currentStream, vms_sdk::PlaybackPause);
            vaws_download_pause(task.constData());
        }));
        waitMs(100);
        resume.push_back(timed([&] {
            vms_sdk::playback_ctrl_req(currentStream, vms_sdk::PlaybackResume);
            vms_sdk::download_speed_set_req(currentStream, QStringLiteral("100X"));
            vaws_download_resume(task.constData());
        }));
        waitMs(300);
        if (round % 2 == 0) {
            cancel.push_back(timed([&] {
                vms_sdk::disconnect_stream_req(currentStream);
                vaws_download_cancel(task.constData());
            }));
        } else {
            stop.push_back(timed([&] {
                int64_t count = 0;
                char text[24] = {};
                vms_sdk::disconnect_stream_req(currentStream);
                vaws_download_stop(task.constData(), &count, text);
            }));
        }
        QFile::remove(path);
    }
    json_line::print({{QStringLiteral("rate_mb_s"), rate},
                      {QStringLiteral("pause"), json_line::array(pause)},
                      {QStringLiteral("resume"), json_line::array(resume)},
                      {QStringLiteral("cancel"), json_line::array(cancel)},
                      {QStringLiteral("stop"), json_line::array(stop)}});
    vms_sdk::uninit_sdk();
    vaws_download_shutdown();
    return 0;
}
