#pragma once

#include <QDateTime>
#include <QList>
#include <QString>
#include <QStringList>

namespace vemo_client {

/// What the media download SDK tells of one of its tasks (vaws_download_get_report).
struct DownloadReport
{
    struct Gap
    {
        QDateTime begin;
        QDateTime end;
        QString cause;
    };

    bool known = false; ///< the library has a task of that id
    int event = 0;      ///< the ending one, 0 while it runs
    QString error;
    QString path;
    QStringList files;
    qint64 bytes = 0;
    QDateTime begin;
    QDateTime end;
    int frames = 0;
    int lost = 0;
    QList<Gap> gaps;
    QString video;
    QString audio;
    bool verified = false; ///< read back by its index

    static DownloadReport ofTask(const QString& taskId);
    static DownloadReport fromJson(const QByteArray& json);
};

} // namespace vemo_client
