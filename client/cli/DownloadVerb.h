#pragma once

#include "ChannelDownload.h"
#include "CliCommand.h"
#include "DownloadPrinter.h"
#include "OutPath.h"
#include "RecorderSession.h"
#include "VerbExit.h"

#include <QMap>
#include <QTimer>

#include <memory>
#include <vector>

namespace vemo_client {

/// `vemo_client download`: one implicit download a channel, all at once. GUI thread, no window needed. run() starts;
/// the event loop is left with the exit code when the last one is over.
class DownloadVerb final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(DownloadVerb)

public:
    explicit DownloadVerb(const CliCommand& command, QObject* parent = nullptr);
    ~DownloadVerb() override;

    void run();
    void interrupt();

private:
    void startAll();
    void streamEvent(quint64 streamId, vms_sdk::StreamEvent event);
    void finished(ChannelDownload& download);
    void poll();
    QList<ChannelDownload*> downloads() const;
    void leave(ExitCode code);

    const CliCommand m_command;
    const Span m_asked;
    OutPath m_out;
    DownloadPrinter m_printer;
    RecorderSession m_session;
    std::vector<std::unique_ptr<ChannelDownload>> m_downloads;
    QMap<quint64, ChannelDownload*> m_downloadByStream;
    QTimer m_pollTimer;
    ExitCode m_code = ExitCode::Done;
    VerbExit m_exit;
};

} // namespace vemo_client
