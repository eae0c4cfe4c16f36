#include "media/ClipMaker.h"

#include "media/ClipParser.h"

#include <QDir>
#include <QFile>
#include <QLockFile>
#include <QProcess>
#include <QStandardPaths>
#include <QStringList>
#include <QTemporaryDir>

namespace recorder_sim {
namespace {

constexpr int makeTimeoutMs = 600'000;
const QString streamName = QStringLiteral("stream");
const QString packetsName = QStringLiteral("packets.csv");

bool readFile(const QString& path, std::string& bytes)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    bytes = file.readAll().toStdString();
    return !bytes.empty();
}

/// Runs a program to its end; its standard output goes to `output` when given. The text of the failure, or an empty
/// one.
QString runProgram(const QString& program, const QStringList& arguments, QByteArray* output = nullptr)
{
    QProcess process;
    process.start(program, arguments, QIODevice::ReadOnly);
    if (!process.waitForStarted())
        return QStringLiteral("cannot start the program ") + program;
    if (!process.waitForFinished(makeTimeoutMs)) {
        process.kill();
        process.waitForFinished();
        return program + QStringLiteral(" took more than ten minutes");
    }
    if (process.exitStatus() != QProcess::NormalExit || process.exitCode() != 0)
        return program + QStringLiteral(" failed: ") +
               QString::fromLocal8Bit(process.readAllStandardError()).trimmed().left(400);
    if (output)
        *output = process.readAllStandardOutput();
    return {};
}

} // namespace

struct ClipMaker::VideoRecipe
{
    QString name; ///< changes with everything that changes the bytes
    Codec codec;
    int width;
    int height;
    QString filters;
    QStringList encoder;
};

struct ClipMaker::AudioRecipe
{
    QString name;
    Codec codec;
    int sampleRate;
    int channels;
    int samplesPerUnit;
    int unitsPerPacket;
    QStringList encoder;
};

ClipMaker::ClipMaker(const QString& folder)
    : m_folder(folder)
{
    if (m_folder.isEmpty())
        m_folder = QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation) +
                   QStringLiteral("/vemo-recorder-sim");
}

bool ClipMaker::fail(const QString& text)
{
    m_error = text;
    return false;
}

bool ClipMaker::load(ClipSet& clips)
{
    const QString gop =
        QStringLiteral("keyint=50:min-keyint=50:scenecut=0:bframes=2:b-adapt=0:repeat-headers=1:open-gop=0");
    const QStringList x264{QStringLiteral("-c:v"), QStringLiteral("libx264"), QStringLiteral("-preset"),
                           QStringLiteral("superfast"), QStringLiteral("-x264-params")};
    const QStringList x265{QStringLiteral("-c:v"), QStringLiteral("libx265"), QStringLiteral("-preset"),
                           QStringLiteral("ultrafast"), QStringLiteral("-x265-params")};
    const auto rate = [](const char* bits) {
        const QString value = QLatin1String(bits);
        return QStringList{QStringLiteral("-b:v"),     value, QStringLiteral("-maxrate"), value,
                           QStringLiteral("-bufsize"), value};
    };
    const QString noise = QStringLiteral(",noise=alls=8:allf=t");
    const VideoRecipe videos[] = {
        {QStringLiteral("h264-1080p-2"), Codec::H264, 1920, 1080, QStringLiteral("testsrc2") + noise,
         x264 + QStringList{gop} + rate("6M")},
        {QStringLiteral("h265-720p-1"), Codec::H265, 1280, 720, QStringLiteral("testsrc2") + noise,
         x265 + QStringList{gop + QStringLiteral(":b-pyramid=0:log-level=error")} + rate("3M")},
        {QStringLiteral("h264-360p-2"), Codec::H264, 640, 360, QStringLiteral("testsrc2") + noise,
         x264 + QStringList{gop + QStringLiteral(":aud=1")} + rate("1M")},
        {QStringLiteral("h265-360p-2"), Codec::H265, 640, 360, QStringLiteral("testsrc2") + noise,
         x265 + QStringList{gop + QStringLiteral(":b-pyramid=0:aud=1:log-level=error")} + rate("800k")},
    };
    const auto aac = [](const char* bits) {
        return QStringList{QStringLiteral("-c:a"), QStringLiteral("aac"), QStringLiteral("-b:a"),
                           QLatin1String(bits),    QStringLiteral("-f"),  QStringLiteral("adts")};
    };
    const AudioRecipe audios[] = {
        {QStringLiteral("aac-48k-2"), Codec::Aac, 48000, 2, 1024, 1, aac("96k")},
        {QStringLiteral("pcma-2"), Codec::Pcma, 8000, 1, 320, 1, {QStringLiteral("-f"), QStringLiteral("alaw")}},
        {QStringLiteral("pcmu-2"), Codec::Pcmu, 8000, 1, 160, 1, {QStringLiteral("-f"), QStringLiteral("mulaw")}},
        {QStringLiteral("aac-16k-2"), Codec::Aac, 16000, 1, 1024, 2, aac("32k")},
    };

    if (!QDir().mkpath(m_folder))
        return fail(QStringLiteral("cannot make the folder ") + m_folder);
    // One process makes the clips, a second one waits for it; without the lock both would make them, with the same
    // outcome.
    QLockFile lock(m_folder + QStringLiteral("/making.lock"));
    lock.setStaleLockTime(0);
    if (!lock.tryLock(makeTimeoutMs) && lock.error() == QLockFile::PermissionError)
        return fail(QStringLiteral("cannot write to the folder ") + m_folder);

    clips = {};
    for (const VideoRecipe& recipe : videos) {
        clips.video.push_back(loadVideo(recipe));
        if (!clips.video.back())
            return false;
    }
    for (const AudioRecipe& recipe : audios) {
        clips.audio.push_back(loadAudio(recipe));
        if (!clips.audio.back())
            return false;
    }
    return true;
}

std::shared_ptr<const VideoClip> ClipMaker::loadVideo(const VideoRecipe& recipe)
{
    const QString folder = m_folder + QLatin1Char('/') + recipe.name;
    auto clip = std::make_shared<VideoClip>();
    clip->codec = recipe.codec;
    clip->width = recipe.width;
    clip->height = recipe.height;
    std::string probe;
    if (!QFile::exists(folder) && !makeVideo(recipe, folder))
        return nullptr;
    std::string error = "the file is missing";
    if (!readFile(folder + QLatin1Char('/') + streamName, clip->bytes) ||
        !readFile(folder + QLatin1Char('/') + packetsName, probe) || !indexVideo(*clip, parseProbe(probe), error)) {
        fail(QStringLiteral("cannot use the clip ") + folder + QStringLiteral(": ") + QString::fromStdString(error));
        return nullptr;
    }
    return clip;
}

std::shared_ptr<const AudioClip> ClipMaker::loadAudio(const AudioRecipe& recipe)
{
    const QString folder = m_folder + QLatin1Char('/') + recipe.name;
    auto clip = std::make_shared<AudioClip>();
    clip->codec = recipe.codec;
    clip->sampleRate = recipe.sampleRate;
    clip->channels = recipe.channels;
    clip->samplesPerUnit = recipe.samplesPerUnit;
    clip->unitsPerPacket = recipe.unitsPerPacket;
    if (!QFile::exists(folder) && !makeAudio(recipe, folder))
        return nullptr;
    std::string error = "the file is missing";
    if (!readFile(folder + QLatin1Char('/') + streamName, clip->bytes) || !indexAudio(*clip, error)) {
        fail(QStringLiteral("cannot use the clip ") + folder + QStringLiteral(": ") + QString::fromStdString(error));
        return nullptr;
    }
    return clip;
}

bool ClipMaker::makeVideo(const VideoRecipe& recipe, const QString& folder)
{
    const QTemporaryDir temporary(m_folder + QStringLiteral("/making-XXXXXX"));
    if (!temporary.isValid())
        return fail(QStringLiteral("cannot write to the folder ") + m_folder);
    const QString source = QStringLiteral("%1=size=%2x%3:rate=25%4")
                               .arg(recipe.filters.section(QLatin1Char(','), 0, 0))
                               .arg(recipe.width)
                               .arg(recipe.height)
                               .arg(recipe.filters.contains(QLatin1Char(','))
                                        ? QLatin1Char(',') + recipe.filters.section(QLatin1Char(','), 1)
                                        : QString());
    // NUT keeps the byte stream as the encoder made it, and its presentation times.
    const QString container = temporary.filePath(QStringLiteral("clip.nut"));
    const QString stream = temporary.filePath(streamName);
    const QStringList quiet{QStringLiteral("-nostdin"), QStringLiteral("-v"), QStringLiteral("error"),
                            QStringLiteral("-y")};
    QString failure = runProgram(
        QStringLiteral("ffmpeg"),
        quiet +
            QStringList{QStringLiteral("-f"), QStringLiteral("lavfi"), QStringLiteral("-i"), source,
                        QStringLiteral("-frames:v"), QString::number(loopSeconds * VideoClip::framesPerSecond),
                        QStringLiteral("-pix_fmt"), QStringLiteral("yuv420p")} +
            recipe.encoder + QStringList{QStringLiteral("-f"), QStringLiteral("nut"), container});
    QByteArray probe;
    if (failure.isEmpty())
        failure =
            runProgram(QStringLiteral("ffprobe"),
                       {QStringLiteral("-v"), QStringLiteral("error"), QStringLiteral("-show_entries"),
                        QStringLiteral("packet=pts,size"), QStringLiteral("-of"), QStringLiteral("csv=p=0"), container},
                       &probe);
    if (failure.isEmpty())
        failure = runProgram(
            QStringLiteral("ffmpeg"),
            quiet + QStringList{QStringLiteral("-i"), container, QStringLiteral("-c"), QStringLiteral("copy"),
                                QStringLiteral("-f"),
                                recipe.codec == Codec::H265 ? QStringLiteral("hevc") : QStringLiteral("h264"), stream});
    if (!failure.isEmpty())
        return fail(failure);
    QFile packets(temporary.filePath(packetsName));
    if (!packets.open(QIODevice::WriteOnly) || packets.write(probe) != probe.size())
        return fail(QStringLiteral("cannot write to the folder ") + m_folder);
    packets.close();
    QFile::remove(container);
    return publish(temporary.path(), folder);
}

bool ClipMaker::makeAudio(const AudioRecipe& recipe, const QString& folder)
{
    const QTemporaryDir temporary(m_folder + QStringLiteral("/making-XXXXXX"));
    if (!temporary.isValid())
        return fail(QStringLiteral("cannot write to the folder ") + m_folder);
    // A rising tone with a little noise, so that no two units are alike.
    const QString source =
        QStringLiteral("aevalsrc=exprs=0.3*sin(2*PI*(300+15*t)*t)+0.05*(random(0)-0.5):sample_rate=%1")
            .arg(recipe.sampleRate);
    const QString failure = runProgram(
        QStringLiteral("ffmpeg"),
        QStringList{QStringLiteral("-nostdin"), QStringLiteral("-v"), QStringLiteral("error"), QStringLiteral("-y"),
                    QStringLiteral("-f"), QStringLiteral("lavfi"), QStringLiteral("-i"), source, QStringLiteral("-t"),
                    QString::number(loopSeconds + 1), QStringLiteral("-ac"), QString::number(recipe.channels)} +
            recipe.encoder + QStringList{temporary.filePath(streamName)});
    if (!failure.isEmpty())
        return fail(failure);
    return publish(temporary.path(), folder);
}

bool ClipMaker::publish(const QString& temporaryFolder, const QString& name)
{
    if (QDir().rename(temporaryFolder, name) || QFile::exists(name))
        return true;
    return fail(QStringLiteral("cannot make the folder ") + name);
}

} // namespace recorder_sim
