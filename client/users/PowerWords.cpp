#include "PowerWords.h"

#include <SystemWorker.h>

namespace vemo_client {

QVector<PowerWords::Entry> PowerWords::all()
{
    return {
        {vemo_worker::PowerLive, tr("live view"), tr("Watch live video, record it, take snapshots")},
        {vemo_worker::PowerPlayback, tr("playback"), tr("Search and play what the recorders hold")},
        {vemo_worker::PowerDownload, tr("downloads"), tr("Download recordings and plan backups")},
        {vemo_worker::PowerLocalRecordings, tr("local recordings"), tr("Play, save and delete local recordings")},
        {vemo_worker::PowerLocalSnapshots, tr("local snapshots"), tr("View, save and delete local snapshots")},
        {vemo_worker::PowerDevices, tr("recorders"), tr("Add, change and remove recorders")},
        {vemo_worker::PowerLogs, tr("logs"), tr("Read and export the logs")},
        {vemo_worker::PowerSettings, tr("settings"), tr("Change settings that concern everybody here")},
    };
}

QString PowerWords::summary(int powers)
{
    if ((powers & vemo_worker::PowerUsers) != 0)
        return tr("Administrator");
    QStringList words;
    for (const Entry& entry : all()) {
        if ((powers & entry.power) == entry.power)
            words.append(entry.shortWords);
    }
    QString text = words.isEmpty() ? tr("nothing but local files") : words.join(QStringLiteral(", "));
    text[0] = text.at(0).toUpper();
    return text;
}

} // namespace vemo_client
