// Cuts a span out of one local recording through the media download SDK.
// usage: vaws_cut_bench SOURCE SOURCE_BEGIN SOURCE_END BEGIN END OUT   (times ISO 8601; prints one JSON line)
#include "vaws_download.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>
#include <QTextStream>

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <mutex>

namespace {

std::mutex endMutex;
std::condition_variable endReached;
int endEvent = 0;

void onEvent(const char*, int event, int)
{
    switch (event) {
    case VAWS_EVENT_BROKEN:
    case VAWS_EVENT_NO_DATA:
    case VAWS_EVENT_WRITE_ERROR:
    case VAWS_EVENT_INVALID:
    case VAWS_EVENT_FINISHED: {
        const std::lock_guard<std::mutex> guard(endMutex);
        endEvent = event;
        endReached.notify_all();
        break;
    }
    default:
        break;
    }
}

QString libraryTime(const QString& iso)
{
    return QDateTime::fromString(iso, Qt::ISODate).toLocalTime().toString(QStringLiteral("yyyyMMddhhmmss"));
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication app(argc, argv);
    const QStringList args = QCoreApplication::arguments();
    if (args.size() != 7) {
        QTextStream(stderr) << "usage: vaws_cut_bench SOURCE SOURCE_BEGIN SOURCE_END BEGIN END OUT\n";
        return 2;
    }
    const QTemporaryDir journal;
    QElapsedTimer timer;
    timer.start();
    vaws_download_init_sdk(journal.path().toUtf8().constData());
    vaws_download_register_event_callback(onEvent);
    const QString begin = libraryTime(args[4]);
    const QString end = libraryTime(args[5]);
    const QJsonObject record{{QStringLiteral("file_path"), QFileInfo(args[1]).absoluteFilePath()},
                             {QStringLiteral("begin_time"), libraryTime(args[2])},
                             {QStringLiteral("end_time"), libraryTime(args[3])}};
    const QJsonObject list{{QStringLiteral("begin_time"), begin},
                           {QStringLiteral("end_time"), end},
                           {QStringLiteral("play_time"), begin},
                           {QStringLiteral("records"), QJsonArray{record}}};
    const int started = vaws_download_time_range(QJsonDocument(list).toJson().constData(), begin.toUtf8().constData(),
                                                 end.toUtf8().constData(),
                                                 QFileInfo(args[6]).absoluteFilePath().toUtf8().constData(), "cut");
    if (started != VAWS_OK) {
        QTextStream(stderr) << vaws_download_text(started) << "\n";
        return 1;
    }
    std::unique_lock<std::mutex> lock(endMutex);
    const bool ended = endReached.wait_for(lock, std::chrono::minutes(5), [] { return endEvent != 0; });
    lock.unlock();
    QTextStream(stdout) << "{\"seconds\": " << static_cast<double>(timer.nsecsElapsed()) * 1e-9
                        << ", \"bytes\": " << QFileInfo(args[6]).size() << ", \"event\": " << endEvent << "}\n";
    vaws_download_shutdown();
    return ended && endEvent == VAWS_EVENT_FINISHED ? 0 : 1;
}
