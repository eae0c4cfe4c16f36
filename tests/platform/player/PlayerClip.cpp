#include "PlayerClip.h"

#include <QFile>
#include <QProcess>

bool PlayerClip::makeWithGap(const QString& path)
{
    QFile chapters(path + QStringLiteral(".txt"));
    if (!chapters.open(QIODevice::WriteOnly))
        return false;
    chapters.write(";FFMETADATA1\ncom.vemo.start=2026-01-10T08:29:00.000Z\ncom.vemo.end=2026-01-10T08:29:20.000Z\n"
                   "[CHAPTER]\nTIMEBASE=1/1000\nSTART=0\nEND=4000\ntitle=08:29:00\n"
                   "[CHAPTER]\nTIMEBASE=1/1000\nSTART=4000\nEND=10000\ntitle=08:29:14, after 10 s not recorded\n");
    chapters.close();
    return QProcess::execute(QStringLiteral("ffmpeg"),
                             {QStringLiteral("-v"), QStringLiteral("error"), QStringLiteral("-y"), QStringLiteral("-f"),
                              QStringLiteral("lavfi"), QStringLiteral("-i"),
                              QStringLiteral("testsrc=duration=10:size=320x180:rate=25"), QStringLiteral("-i"),
                              chapters.fileName(), QStringLiteral("-map_metadata"), QStringLiteral("1"),
                              QStringLiteral("-map_chapters"), QStringLiteral("1"), QStringLiteral("-movflags"),
                              QStringLiteral("use_metadata_tags"), QStringLiteral("-pix_fmt"),
                              QStringLiteral("yuv420p"), path}) == 0;
}
