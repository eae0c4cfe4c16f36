#pragma once

#include <vaws_download.h>

#include <QHash>
#include <QSet>
#include <QStringList>

/// Stands in for the media download SDK and for the stream requests of the device client SDK: a program that links this
/// file gets these functions instead of the libraries'. Every call is noted as one line; the signals of ClientSignals
/// stay real.
class FakeSdks final
{
public:
    static FakeSdks& instance();

    void reset();
    /// Calls since the last take, "<function> <arguments>".
    QStringList takeCalls();

    // What the calls answer.
    int startResult = VAWS_OK;
    int status = VAWS_STATUS_RUNNING;
    qint64 stopCount = 0;
    QByteArray stopTime;
    quint64 nextStreamId = 1;
    bool isRepaired = true;
    QByteArray repairReport = "[]";
    QHash<QByteArray, QByteArray> reports; ///< by task id; without one the task is not known
    QSet<QByteArray> pausedTasks;          ///< kept by pause and resume, answered as status 12

    // What was registered.
    vaws_event_callback onEvent = nullptr;
    vaws_file_toggle_callback onFileToggle = nullptr;
    vaws_bitrate_callback onBitRate = nullptr;
    vaws_consumed_callback onConsumed = nullptr;
    QString tempDir;

    /// The library's callbacks come on its threads; so do these. They wait until the callback returned.
    void libraryEvent(const QByteArray& taskId, int event, int value = 0) const;
    void fileToggle(const QByteArray& taskId, const QByteArray& fileName, int offset, const QByteArray& time) const;
    void bitRate(int kbitPerSecond) const;
    void consumed(const QByteArray& taskId, qint64 bytes) const;

    void note(const QString& call);

private:
    QStringList m_calls;
};
