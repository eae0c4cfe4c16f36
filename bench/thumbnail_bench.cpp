// Thumbnails of many pictures of 12 megapixels: how long they take beside ffmpeg, cold and out of the cache, and how
// fluent the files browser and the snapshots stay while they are scrolled through.
//   thumbnail_bench make FOLDER COUNT        one picture under COUNT names, which are files of their own to the cache
//   thumbnail_bench decode FOLDER            all thumbnails; with XDG_CACHE_HOME empty: cold, the second time: cached
//   thumbnail_bench ffmpeg FOLDER            the same pictures scaled by one ffmpeg
//   thumbnail_bench visible FOLDER           how many others are made before those that came into view
//   thumbnail_bench scroll FOLDER            longest wait of the event loop while both pages are scrolled through
#include "JsonLine.h"
#include "local/ChannelSnapImagesWtsBox.h"
#include "local/FileIconProvider.h"
#include "local/LocalFilesModel.h"
#include "local/LocalFilesView.h"

#include <pictures/Thumbnails.h>
#include <Theme.h>

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QRandomGenerator>
#include <QScrollArea>
#include <QScrollBar>
#include <QTemporaryDir>
#include <QTextStream>
#include <QThread>
#include <QTimer>

#include <cmath>
#include <cstdio>
#include <filesystem>

using VCOMMON::LocalSnapImageIndexInfo;
using vemo_base::Thumbnail;
using vemo_base::ThumbnailKey;
using vemo_base::Thumbnails;

namespace {

constexpr QSize pictureSize{4000, 3000};
constexpr QSize card{300, 170};
constexpr int quality = 88;
constexpr int cardsInView = 24;
constexpr int madeBefore = 8;
constexpr int tickMs = 4;
constexpr int stepMs = 16;
constexpr int scrollForMs = 20'000;
constexpr int loadForMs = 4000;

QTextStream& out()
{
    static QTextStream stream(stdout);
    return stream;
}

/// Edges, gradients and the noise of a camera: about 4 MB as a JPEG.
bool makePictures(const QString& folder, int count)
{
    QImage image(pictureSize, QImage::Format_RGB32);
    QRandomGenerator random(1);
    for (int y = 0; y < image.height(); ++y) {
        auto* line = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < image.width(); ++x) {
            const int noise = random.bounded(24);
            const int base = static_cast<int>(110 + 60 * std::sin(x / 90.0) * std::cos(y / 70.0)) + (x / 200 % 2) * 20;
            line[x] = qRgb(base + noise, base + noise / 2, qMin(255, base / 2 + y / 30 + noise));
        }
    }
    const QString first = folder + QStringLiteral("/00000.jpg");
    if (!QDir().mkpath(folder) || !image.save(first, "jpg", quality))
        return false;
    for (int i = 1; i < count; ++i) {
        std::error_code error;
        const QString name = folder + QStringLiteral("/%1.jpg").arg(i, 5, 10, QLatin1Char('0'));
        std::filesystem::create_hard_link(first.toStdString(), name.toStdString(), error);
        if (error)
            return false;
    }
    QFile file(first);
    return file.open(QIODevice::ReadWrite) &&
           file.setFileTime(QDateTime::currentDateTime().addDays(-1), QFileDevice::FileModificationTime);
}

QStringList picturesIn(const QString& folder)
{
    QStringList paths;
    for (const QString& name : QDir(folder).entryList({QStringLiteral("*.jpg")}, QDir::Files))
        paths.append(folder + QLatin1Char('/') + name);
    return paths;
}

double megabytesInUse()
{
    QFile statm(QStringLiteral("/proc/self/statm"));
    if (!statm.open(QIODevice::ReadOnly))
        return 0;
    return statm.readAll().split(' ').value(1).toDouble() * 4096 / 1e6;
}

int decodeAll(const QString& folder)
{
    const QStringList paths = picturesIn(folder);
    int left = paths.size();
    int failed = 0;
    QElapsedTimer watch;
    QObject::connect(&Thumbnails::instance(), &Thumbnails::signalThumbnail, qApp,
                     [&](const ThumbnailKey&, const Thumbnail& thumbnail) {
                         failed += thumbnail.state == Thumbnail::State::Ready ? 0 : 1;
                         if (--left == 0)
                             QCoreApplication::quit();
                     });
    watch.start();
    for (const QString& path : paths)
        Thumbnails::instance().request({path, card, vemo_base::PictureFit::Cover});
    QCoreApplication::exec();
    out() << paths.size() << " thumbnails in " << watch.elapsed() << " ms, " << failed << " failed, "
          << megabytesInUse() << " MB in use\n";
    out().flush();
    json_line::print({{QStringLiteral("seconds"), double(watch.elapsed()) / 1000}});
    return failed == 0 ? 0 : 1;
}

/// All are asked for; after some were made, those of one window are asked for again, as when it is scrolled there.
int makeVisibleFirst(const QString& folder)
{
    const QStringList paths = picturesIn(folder);
    const QStringList inView = paths.mid(0, cardsInView); // asked for first, so what would come last
    int made = 0;
    int ahead = 0;
    int left = inView.size();
    QElapsedTimer watch;
    QObject::connect(&Thumbnails::instance(), &Thumbnails::signalThumbnail, qApp,
                     [&](const ThumbnailKey& key, const Thumbnail&) {
                         if (++made == madeBefore) {
                             for (const QString& path : inView)
                                 Thumbnails::instance().request({path, card, vemo_base::PictureFit::Cover});
                             watch.start();
                         } else if (watch.isValid()) {
                             const bool isInView = inView.contains(key.path);
                             ahead += isInView ? 0 : 1;
                             left -= isInView ? 1 : 0;
                         }
                         if (left == 0)
                             QCoreApplication::quit();
                     });
    for (const QString& path : paths)
        Thumbnails::instance().request({path, card, vemo_base::PictureFit::Cover});
    QCoreApplication::exec();
    out() << inView.size() << " of " << paths.size() << " in view made after " << watch.elapsed() << " ms, " << ahead
          << " others before the last of them\n";
    out().flush();
    json_line::print({{QStringLiteral("ahead_a_thread"), double(ahead) / qMax(1, QThread::idealThreadCount())}});
    return 0;
}

int scaleByFfmpeg(const QString& folder)
{
    const QTemporaryDir target;
    QElapsedTimer watch;
    watch.start();
    const int result = QProcess::execute(QStringLiteral("ffmpeg"),
                                         {QStringLiteral("-v"), QStringLiteral("error"), QStringLiteral("-i"),
                                          folder + QStringLiteral("/%05d.jpg"), QStringLiteral("-vf"),
                                          QStringLiteral("scale=300:-2"), target.filePath(QStringLiteral("%05d.jpg"))});
    out() << "ffmpeg: " << QDir(target.path()).entryList(QDir::Files).size() << " pictures in " << watch.elapsed()
          << " ms\n";
    out().flush();
    json_line::print({{QStringLiteral("seconds"), double(watch.elapsed()) / 1000}});
    return result;
}

/// Scrolls from end to end and back, or with a bar of none waits, and tells how late the event loop's ticks were.
void watch(const QString& what, int forMs, QScrollBar* bar)
{
    QVector<double> gaps;
    QElapsedTimer since;
    QTimer tick;
    tick.setTimerType(Qt::PreciseTimer);
    QObject::connect(&tick, &QTimer::timeout,
                     [&] { gaps.append(double(since.nsecsElapsed()) / 1e6 - tickMs), since.restart(); });
    QTimer step;
    step.setTimerType(Qt::PreciseTimer);
    int direction = 1;
    QObject::connect(&step, &QTimer::timeout, [&] {
        if ((direction > 0 && bar->value() == bar->maximum()) || (direction < 0 && bar->value() == 0))
            direction = -direction;
        bar->setValue(bar->value() + direction * (bar->value() / 2000 % 2 ? 24 : 240)); // slow stretches and fast ones
    });
    since.start();
    tick.start(tickMs);
    if (bar)
        step.start(stepMs);
    QTimer::singleShot(forMs, qApp, &QCoreApplication::quit);
    QCoreApplication::exec();
    std::sort(gaps.begin(), gaps.end());
    out() << what << ": longest stall " << gaps.last() << " ms, 99th percentile " << gaps.at(gaps.size() * 99 / 100)
          << " ms, " << megabytesInUse() << " MB in use, " << double(Thumbnails::instance().memoryBytes()) / 1e6
          << " MB of pictures\n";
    out().flush();
}

void scrollFiles(const QString& folder)
{
    vemo_filesCenter::FileIconProvider icons;
    vemo_filesCenter::LocalFilesModel model(&icons);
    vemo_filesCenter::LocalFilesView view;
    view.setModel(&model);
    view.setRootIndex(model.openFolder(folder));
    view.resize(1150, 700);
    view.show();
    watch(QStringLiteral("files browser, being loaded"), loadForMs, nullptr);
    watch(QStringLiteral("files browser, %1 files").arg(model.rowCount(view.rootIndex())), scrollForMs,
          view.verticalScrollBar());
}

void scrollSnapshots(const QString& folder)
{
    QList<LocalSnapImageIndexInfo> snapshots;
    for (const QString& path : picturesIn(folder)) {
        LocalSnapImageIndexInfo info;
        info.channelName = QStringLiteral("Channel %1").arg(snapshots.size() % 16);
        info.captureTime = QDateTime::currentDateTime().addSecs(-snapshots.size());
        info.filePath = path;
        snapshots.append(info);
    }
    QScrollArea area;
    auto* groups = new vemo_filesCenter::ChannelSnapImagesWtsBox;
    area.setWidget(groups);
    area.setWidgetResizable(true);
    area.resize(1150, 700);
    area.show();
    groups->setSnapshots(snapshots);
    QCoreApplication::processEvents();
    watch(QStringLiteral("snapshots, %1 cards").arg(snapshots.size()), scrollForMs, area.verticalScrollBar());
}

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    vemo_base::Theme::instance().apply();
    const QStringList arguments = QCoreApplication::arguments();
    const QString verb = arguments.value(1);
    const QString folder = QDir(arguments.value(2)).absolutePath();
    if (verb == QLatin1String("make") && arguments.size() == 4)
        return makePictures(folder, arguments.at(3).toInt()) ? 0 : 1;
    if (verb == QLatin1String("decode") && arguments.size() == 3)
        return decodeAll(folder);
    if (verb == QLatin1String("visible") && arguments.size() == 3)
        return makeVisibleFirst(folder);
    if (verb == QLatin1String("ffmpeg") && arguments.size() == 3)
        return scaleByFfmpeg(folder);
    if (verb == QLatin1String("scroll") && arguments.size() == 3) {
        scrollFiles(folder);
        scrollSnapshots(folder);
        return 0;
    }
    out() << "thumbnail_bench make FOLDER COUNT | decode FOLDER | visible FOLDER | ffmpeg FOLDER | scroll FOLDER\n";
    return 2;
}
