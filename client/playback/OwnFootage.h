#pragma once

#include <axis/TimeSpan.h>
#include <DownloadTaskInfo.h>

#include <QHash>
#include <QObject>
#include <QSet>
#include <QVector>

namespace vemo_client {

/// What of the footage lies on this computer's disks: the spans of the finished downloads. The store is asked once, by
/// start(), then its announcements are followed. GUI thread.
class OwnFootage final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(OwnFootage)

public:
    explicit OwnFootage(QObject* parent = nullptr);

    void start();
    /// What of a channel touches the span.
    QVector<vemo_base::TimeSpan> spans(const QString& channelId, const vemo_base::TimeSpan& within) const;

signals:
    void signalChanged();

private:
    void take(const QList<vemo_data::DownloadTaskInfo>& tasks);
    void remove(const QSet<QString>& taskIds);

    bool m_isStarted = false;
    QHash<QString, QHash<QString, vemo_base::TimeSpan>> m_spans; ///< by channel id, then task id
};

} // namespace vemo_client
