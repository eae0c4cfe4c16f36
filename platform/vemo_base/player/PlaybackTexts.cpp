#include "PlaybackTexts.h"

#include "PlayerState.h"
#include "RecordingClock.h"

#include <SystemConfig.h>

#include <QHash>
#include <QStringList>

namespace vemo_base {

namespace {

constexpr double megabyte = 1048576;

QString codecText(const QString& format)
{
    static const QHash<QString, QString> names{
        {QStringLiteral("h264"), QStringLiteral("H.264")},  {QStringLiteral("hevc"), QStringLiteral("H.265")},
        {QStringLiteral("mjpeg"), QStringLiteral("MJPEG")}, {QStringLiteral("mpeg4"), QStringLiteral("MPEG-4")},
        {QStringLiteral("av1"), QStringLiteral("AV1")},
    };
    return names.value(format, format.toUpper());
}

} // namespace

QString PlaybackTexts::facts(const PlayerState& state, int gaps)
{
    QStringList parts;
    if (gaps > 0)
        parts << (gaps == 1 ? tr("1 gap") : tr("%1 gaps").arg(gaps));
    if (!state.videoFormat.isEmpty() && !state.codedSize.isEmpty())
        parts << QStringLiteral("%1 %2 x %3")
                     .arg(codecText(state.videoFormat))
                     .arg(state.codedSize.width())
                     .arg(state.codedSize.height());
    if (state.fileBytes > 0)
        parts << QString::number(static_cast<double>(state.fileBytes) / megabyte, 'f', 2) + QStringLiteral(" MB");
    return parts.join(QStringLiteral(", "));
}

QString PlaybackTexts::clock(const RecordingClock& clock, qint64 clockMs, const QString& dateFormat, bool standing)
{
    const QString time = clock.timeText(clockMs, standing);
    if (!clock.isKnown())
        return time;
    return QDateTime::fromMSecsSinceEpoch(clockMs).date().toString(dateFormat) + QLatin1Char(' ') + time;
}

QString PlaybackTexts::snapshotName(const QString& channelName, const RecordingClock& clock, qint64 clockMs,
                                    VCOMMON::SnapImageWriter::Format format)
{
    QString time = PlaybackTexts::clock(clock, clockMs, QStringLiteral("yyyy-MM-dd"), true);
    time.replace(QLatin1Char(':'), QLatin1Char('_')).replace(QLatin1Char('.'), QLatin1Char('_'));
    return VCOMMON::SnapImageWriter::fileName(channelName, time, format);
}

QString PlaybackTexts::snapshotFolder()
{
    return vemo_worker::SystemConfig::instance().getLocalSnapshotPath();
}

} // namespace vemo_base
