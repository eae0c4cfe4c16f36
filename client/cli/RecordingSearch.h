#pragma once

#include "Coverage.h"

#include <VmsTypes.h>

#include <QObject>

namespace vemo_client {

/// One search for the recordings of a channel in a span. GUI thread; signalFinished comes once after start().
class RecordingSearch final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(RecordingSearch)

public:
    RecordingSearch(const QString& devId, int channelNo, const Span& span, QObject* parent = nullptr);
    ~RecordingSearch() override;

    void start();

    bool isFinished() const { return m_finished; }
    const vms_sdk::Error& error() const { return m_error; }
    const QList<vms_sdk::VideoRecording>& recordings() const { return m_recordings; }
    QList<Span> spans() const;
    int channelNo() const { return m_condition.channelNo; }

signals:
    void signalFinished();

private:
    void finish();

    vms_sdk::RecsSearchCondition m_condition;
    bool m_finished = false;
    vms_sdk::Error m_error;
    QList<vms_sdk::VideoRecording> m_recordings;
};

} // namespace vemo_client
