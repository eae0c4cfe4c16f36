#include "DownloadVerb.h"

#include "Terminal.h"

#include <BaseTools.h>
#include <ClientSignals.h>
#include <FilesCenterInit.h>
#include <SystemMsg.h>
#include <vms_sdk.h>

#include <algorithm>

namespace vemo_client {

namespace {

constexpr int pollMs = 200;
constexpr int locationDevice = 0;

/// Files are asked for in whole seconds: the begin goes back to one, the end goes on to one.
Span wholeSeconds(const Span& span)
{
    constexpr qint64 second = 1000;
    const qint64 begin = span.begin.toMSecsSinceEpoch();
    const qint64 end = span.end.toMSecsSinceEpoch();
    return {QDateTime::fromMSecsSinceEpoch(begin / second * second),
            QDateTime::fromMSecsSinceEpoch((end + second - 1) / second * second)};
}

} // namespace

DownloadVerb::DownloadVerb(const CliCommand& command, QObject* parent)
    : QObject(parent)
    , m_command(command)
    , m_asked(wholeSeconds({command.begin, command.end}))
    , m_out(command.out, command.channels.size() > 1)
    , m_printer(command.json)
    , m_session(command.device)
{
    // Before the module listens: at the end of a stream it lets go of it, and of the error with it.
    connect(&vms_sdk::ClientSignals::instance(), &vms_sdk::ClientSignals::signalStreamEventPush, this,
            &DownloadVerb::streamEvent);
    connect(&m_pollTimer, &QTimer::timeout, this, &DownloadVerb::poll);
}

DownloadVerb::~DownloadVerb() = default;

void DownloadVerb::run()
{
    const Outcome place = m_out.prepare();
    if (place.code != ExitCode::Done) {
        Terminal::error(place.sentence);
        leave(place.code);
        return;
    }
    vemo_filesCenter::FilesCenterInit::instance().moduleInit();
    m_session.open();
    for (const int channelNo : m_command.channels) {
        m_downloads.push_back(std::make_unique<ChannelDownload>(m_session, channelNo, m_asked));
        ChannelDownload* download = m_downloads.back().get();
        connect(download, &ChannelDownload::signalFinished, this, [this, download] { finished(*download); });
    }
    connect(&m_session, &RecorderSession::signalFailed, this, [this] {
        for (const auto& download : m_downloads)
            download->sessionFailed();
    });
    // A file with a name of its own is named after channel and device, which the recorder tells at login. Otherwise
    // nothing has to be waited for: the requests queue up behind the login.
    if (m_out.namesItself())
        connect(&m_session, &RecorderSession::signalOpened, this, &DownloadVerb::startAll);
    else
        startAll();
    m_pollTimer.start(pollMs);
}

void DownloadVerb::startAll()
{
    for (const auto& download : m_downloads) {
        const vemo_base::BaseTools& tools = vemo_base::BaseTools::instance();
        const int channelNo = download->channelNo();
        QString devLabel = m_session.info().name;
        if (devLabel.isEmpty())
            devLabel = m_command.device.address.host();
        QString name;
        if (m_out.namesItself())
            name = OutPath::fileName(tools.getChannelName(m_session.devId(), channelNo), devLabel, channelNo,
                                     m_asked.begin, m_asked.end, tools.strReocordingLocation(locationDevice));
        download->start(m_out.take(name));
    }
}

/// The SDK numbers streams upwards, and tells of them first in the order in which they were asked for; which is ours.
void DownloadVerb::streamEvent(quint64 streamId, vms_sdk::StreamEvent event)
{
    if (!m_downloadByStream.contains(streamId)) {
        const auto takesStream = [this](const auto& download) {
            return download->isStarted() && !download->isRefused() &&
                   !m_downloadByStream.values().contains(download.get());
        };
        const auto next = std::find_if(m_downloads.cbegin(), m_downloads.cend(), takesStream);
        if (next == m_downloads.cend())
            return;
        m_downloadByStream.insert(streamId, next->get());
    }
    if (event != vms_sdk::StreamConnecting && event != vms_sdk::StreamPlaying)
        m_downloadByStream.value(streamId)->setStreamError(vms_sdk::stream_error(streamId));
}

QList<ChannelDownload*> DownloadVerb::downloads() const
{
    QList<ChannelDownload*> list;
    for (const auto& download : m_downloads)
        list.append(download.get());
    return list;
}

void DownloadVerb::poll()
{
    for (const auto& download : m_downloads)
        download->poll();
    m_printer.progress(downloads());
}

void DownloadVerb::finished(ChannelDownload& download)
{
    m_printer.result(download);
    m_code = worse(m_code, download.outcome().code);
    if (std::all_of(m_downloads.cbegin(), m_downloads.cend(), [](const auto& other) { return other->isFinished(); }))
        leave(m_code);
}

void DownloadVerb::interrupt()
{
    if (m_exit.isOver())
        return;
    m_pollTimer.stop();
    m_printer.clear();
    // As at the end of the client: whoever has a download running finishes its file. The results that come of it are no
    // verdicts.
    for (const auto& download : m_downloads)
        download->expectEnd();
    emit vemo_contact::SystemMsg::instance().signalPrepareQuitSystem();
    for (const auto& download : m_downloads)
        download->interrupted();
    leave(ExitCode::Interrupted);
}

void DownloadVerb::leave(ExitCode code)
{
    m_pollTimer.stop();
    m_exit.leave(code);
}

} // namespace vemo_client
