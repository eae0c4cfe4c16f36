#pragma once

#include "devices/ChannelRef.h"

#include <QDateTime>
#include <QElapsedTimer>
#include <QObject>
#include <QStringList>
#include <QTimer>
#include <QVector>

namespace vemo_client {

/// Records one live channel into files of this computer, on the wish of a person. GUI thread; disks are asked and
/// written on other threads.
///
/// start() makes the place ready and begins with the packets that it is given from a key frame on; push() goes on until
/// stop(). What the stream leaves out, or a disk too slow to follow, becomes a gap in the file. Files are written by
/// the media download SDK: they play at every moment, and what a crash leaves is repaired at the next start. A file
/// that is finished is made known to the index of local recordings. A full disk or a failure ends the recording; what
/// was written stays.
class LiveRecorder final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(LiveRecorder)

public:
    enum class State : int { Idle = 0, Preparing, Recording, Finishing };

    static constexpr qint64 reserveBytes = 1024LL * 1024 * 1024; ///< of the disk that are left to others

    explicit LiveRecorder(const ChannelRef& channel, QObject* parent = nullptr);
    /// Ends a recording as stopNow() does.
    ~LiveRecorder() override;

    State state() const { return m_state; }
    bool isRecording() const { return m_state == State::Preparing || m_state == State::Recording; }
    /// Since the first picture went into the file.
    qint64 recordedMs() const;

    /// Only when Idle. Answered by signalReady, upon which begin() is to be called, or by signalEnded.
    void start();
    /// `packets` from a key frame on, with the stream's description ahead of them; may be empty.
    void begin(const QVector<QByteArray>& packets);
    void push(const QByteArray& packets);
    /// What comes next has a gap in front of it.
    void markGap();
    /// Ends in signalEnded.
    void stop();
    /// The same, before it returns: for the end of the program.
    void stopNow();

signals:
    void signalReady();
    void signalStateChanged();
    /// `problem` is a sentence, empty when a person ended it; `files` are those of this recording.
    void signalEnded(const QString& problem, const QStringList& files);

private:
    struct Place
    {
        QString path;
        QString problem;
    };

    static Place findPlace(const QString& folder, const QString& fileName);
    QString fileName() const;
    void takePlace(const Place& place);
    void look();
    void askDisk();
    void takeReport(bool isOver);
    void addToIndex(const QStringList& files);
    void endTask();
    void end();
    void setState(State state);

    const ChannelRef m_channel;
    QByteArray m_taskId; ///< of the recording that runs
    QString m_channelName;
    QString m_devName;
    State m_state = State::Idle;
    QString m_path;
    QStringList m_files; ///< finished ones, made known to the index
    QString m_problem;
    QElapsedTimer m_sinceBegin;
    QElapsedTimer m_sinceAsked; ///< for the room on the disk
    QTimer m_lookTimer;
    bool m_hasGap = false;
    bool m_waitsForKey = false;
};

} // namespace vemo_client
