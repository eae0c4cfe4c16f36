// Copies of one large file beside `cp` on the same disk (row F7), and how soon a copy stands still or ends when it is
// told to.
//
//   copy_bench [--folder DIR] [--mib 4096] [--runs 5] [--stops 20]
//
// All ways of copying take turns in shuffled order; before each the output is unlinked and the disk synced, and the
// source lies in the cache as far as it fits. Ours syncs the copy before it ends and `cp` does not, so `cp` stands
// there twice, alone and followed by `sync -d`. Speeds are medians (lowest to highest). platform file: /proc and sync.

#include "JsonLine.h"

#include <VCopyLocalFile.h>

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTextStream>
#include <QThread>
#include <QTimer>
#include <QVector>

#include <algorithm>
#include <functional>
#include <unistd.h>

namespace {

using VCOMMON::VCopyLocalFile;

constexpr qint64 mib = 1024 * 1024;
constexpr double nsASecond = 1e9;

QTextStream& out()
{
    static QTextStream stream(stdout);
    return stream;
}

[[noreturn]] void fail(const QString& text)
{
    QTextStream(stderr) << "copy_bench: " << text << '\n';
    std::exit(1);
}

struct Way
{
    QString name;
    std::function<void()> copy;
    QVector<double> mbPerS = {};
};

void makeSource(const QString& path, qint64 sizeMib)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        fail(file.errorString());
    QVector<quint64> chunk(static_cast<int>(mib / 8));
    for (qint64 i = 0; i < sizeMib; ++i) {
        QRandomGenerator::global()->fillRange(chunk.data(), chunk.size());
        if (file.write(reinterpret_cast<const char*>(chunk.constData()), mib) != mib)
            fail(file.errorString());
    }
}

void shell(const QString& command, const QStringList& arguments)
{
    if (QProcess::execute(command, arguments) != 0)
        fail(command + QStringLiteral(" failed"));
}

void ours(const QString& source, const QString& target, bool verified)
{
    VCopyLocalFile copy(QStringLiteral("bench"));
    copy.setVerified(verified);
    QEventLoop loop;
    bool ok = false;
    QObject::connect(&copy, &VCopyLocalFile::signalCopyFileFinished, &loop,
                     [&](const QString&, const QString&, bool well) {
                         ok = well;
                         loop.quit();
                     });
    copy.copyFile(source, target);
    loop.exec();
    if (!ok)
        fail(copy.errorText());
}

double median(QVector<double> values)
{
    std::sort(values.begin(), values.end());
    return values.isEmpty() ? 0 : values.at(values.size() / 2);
}

QString spread(const QVector<double>& values)
{
    const auto ends = std::minmax_element(values.cbegin(), values.cend());
    return QStringLiteral("%1 (%2-%3)")
        .arg(median(values), 0, 'f', 0)
        .arg(*ends.first, 0, 'f', 0)
        .arg(*ends.second, 0, 'f', 0);
}

/// Peak of this process's own memory.
QString peakMemory()
{
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly))
        return {};
    for (const QByteArray& line : status.readAll().split('\n')) {
        if (line.startsWith("VmHWM:"))
            return QString::fromLatin1(line.mid(6).trimmed());
    }
    return {};
}

qint64 growingBytes(const QDir& folder)
{
    const QFileInfoList files = folder.entryInfoList({QStringLiteral(".vemo-*.part")}, QDir::Files | QDir::Hidden);
    return files.isEmpty() ? -1 : files.first().size();
}

/// How long the copy still grows after it was told to pause, ms.
double pauseLatency(VCopyLocalFile& copy, const QDir& folder)
{
    constexpr qint64 watchedNs = 300'000'000;
    QElapsedTimer sincePause;
    copy.pauseCopyFile();
    sincePause.start();
    qint64 size = growingBytes(folder);
    qint64 lastGrowthNs = 0;
    while (sincePause.nsecsElapsed() < watchedNs) {
        QThread::usleep(500);
        const qint64 now = growingBytes(folder);
        if (now != size)
            lastGrowthNs = sincePause.nsecsElapsed();
        size = now;
    }
    return double(lastGrowthNs) / 1e6;
}

/// Pauses a copy in its middle, lets it go on and cancels it, many times.
void measureStops(const QString& source, const QDir& folder, bool verified, int count)
{
    QVector<double> pauses;
    QVector<double> cancels;
    for (int i = 0; i < count; ++i) {
        VCopyLocalFile copy(QStringLiteral("bench"));
        copy.setVerified(verified);
        copy.copyFile(source, folder.filePath(QStringLiteral("stopped")));
        QEventLoop loop;
        QTimer::singleShot(50 + QRandomGenerator::global()->bounded(300), &loop, &QEventLoop::quit);
        loop.exec();
        pauses.append(pauseLatency(copy, folder));
        copy.continueCopyFile();
        QTimer::singleShot(QRandomGenerator::global()->bounded(100), &loop, &QEventLoop::quit);
        loop.exec();
        QElapsedTimer sinceCancel;
        QObject::connect(&copy, &VCopyLocalFile::signalCopyFileCancelled, &loop, &QEventLoop::quit);
        sinceCancel.start();
        copy.cancelCopyFile();
        loop.exec();
        cancels.append(double(sinceCancel.nsecsElapsed()) / 1e6);
    }
    out() << (verified ? "verified: " : "by the kernel: ") << "pause ms " << spread(pauses) << ", cancel ms "
          << spread(cancels) << Qt::endl;
}

} // namespace

int main(int count, char** arguments)
{
    QCoreApplication application(count, arguments);
    QCommandLineParser parser;
    parser.addHelpOption();
    parser.addOption(
        {QStringLiteral("folder"), QStringLiteral("on the disk to measure"), QStringLiteral("DIR"), QDir::tempPath()});
    parser.addOption(
        {QStringLiteral("mib"), QStringLiteral("size of the file"), QStringLiteral("N"), QStringLiteral("4096")});
    parser.addOption({QStringLiteral("runs"), QStringLiteral("of each way"), QStringLiteral("N"), QStringLiteral("5")});
    parser.addOption(
        {QStringLiteral("stops"), QStringLiteral("pauses and cancels"), QStringLiteral("N"), QStringLiteral("20")});
    parser.process(application);
    const qint64 sizeMib = parser.value(QStringLiteral("mib")).toLongLong();
    const int runs = parser.value(QStringLiteral("runs")).toInt();

    QTemporaryDir place(parser.value(QStringLiteral("folder")) + QStringLiteral("/copy-bench-XXXXXX"));
    if (!place.isValid())
        fail(place.errorString());
    const QString source = place.filePath(QStringLiteral("source"));
    const QDir targets(place.filePath(QStringLiteral("to")));
    if (!targets.mkpath(QStringLiteral(".")))
        fail(targets.path());
    const QString target = targets.filePath(QStringLiteral("copy"));
    makeSource(source, sizeMib);

    const QString script = QStringLiteral("cp \"$1\" \"$2\" && ");
    const auto andThen = [&](const char* rest) {
        return [=] {
            shell(QStringLiteral("sh"),
                  {QStringLiteral("-c"), script + QLatin1String(rest), QStringLiteral("sh"), source, target});
        };
    };
    QVector<Way> ways{
        {QStringLiteral("ours"), [&] { ours(source, target, false); }},
        {QStringLiteral("cp"),
         [&] {
             shell(QStringLiteral("cp"), {source, target});
         }},
        {QStringLiteral("cp, sync -d"), andThen("sync -d \"$2\"")},
        {QStringLiteral("ours, verified"), [&] { ours(source, target, true); }},
        {QStringLiteral("cp, sha256sum"), andThen("sha256sum \"$2\" >/dev/null")},
    };
    for (int run = 0; run < runs; ++run) {
        QVector<int> order;
        for (int i = 0; i < ways.size(); ++i)
            order.append(i);
        std::shuffle(order.begin(), order.end(), *QRandomGenerator::global());
        for (const int i : qAsConst(order)) {
            QFile::remove(target);
            ::sync();
            QElapsedTimer timer;
            timer.start();
            ways[i].copy();
            ways[i].mbPerS.append(double(sizeMib) * nsASecond / double(timer.nsecsElapsed()));
        }
    }
    for (const Way& way : qAsConst(ways))
        out() << way.name << ": " << spread(way.mbPerS) << " MiB/s" << Qt::endl;
    const auto ratio = [&ways](int one, int other) {
        return median(ways.at(one).mbPerS) / median(ways.at(other).mbPerS);
    };
    out() << "ours / cp " << QString::number(ratio(0, 1), 'f', 2) << ", ours / cp with sync "
          << QString::number(ratio(0, 2), 'f', 2) << ", verified / cp with sha256sum "
          << QString::number(ratio(3, 4), 'f', 2) << Qt::endl;
    QFile::remove(target);
    if (const int stops = parser.value(QStringLiteral("stops")).toInt(); stops > 0) {
        measureStops(source, targets, false, stops);
        measureStops(source, targets, true, stops);
    }
    out() << "peak memory of this process: " << peakMemory() << Qt::endl;
    QJsonObject figures;
    for (const Way& way : qAsConst(ways))
        figures.insert(way.name, json_line::array(way.mbPerS));
    json_line::print(figures);
    return 0;
}
