#include "SearchVerb.h"

#include "Failures.h"
#include "Terminal.h"
#include "TimeText.h"

#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>

namespace vemo_client {

namespace {

QString asJson(const RecordingSearch& search, const vms_sdk::VideoRecording& recording)
{
    const QJsonObject object{{QStringLiteral("channel"), search.channelNo()},
                             {QStringLiteral("name"), recording.fileName},
                             {QStringLiteral("begin"), TimeText::iso(recording.begin)},
                             {QStringLiteral("end"), TimeText::iso(recording.end)},
                             {QStringLiteral("type"), recording.type},
                             {QStringLiteral("replayUri"), recording.replayUri.toString(QUrl::RemoveUserInfo)}};
    return QString::fromUtf8(QJsonDocument(object).toJson(QJsonDocument::Compact));
}

QString asRow(const QString& channel, const QString& begin, const QString& end, const QString& type,
              const QString& name)
{
    return channel.rightJustified(7) % QLatin1String("  ") % begin.leftJustified(19) % QLatin1String("  ") %
           end.leftJustified(19) % QLatin1String("  ") % type.leftJustified(6) % QLatin1String("  ") % name;
}

} // namespace

SearchVerb::SearchVerb(const CliCommand& command, QObject* parent)
    : QObject(parent)
    , m_command(command)
    , m_session(command.device)
{
    connect(&m_session, &RecorderSession::signalFailed, this,
            [this] { leave(m_session.failure().code, m_session.failure().sentence); });
    connect(&m_session, &RecorderSession::signalOpened, this, &SearchVerb::searchAll);
}

SearchVerb::~SearchVerb() = default;

void SearchVerb::run()
{
    m_session.open();
}

void SearchVerb::interrupt()
{
    leave(ExitCode::Interrupted, tr("Interrupted."));
}

void SearchVerb::searchAll()
{
    for (const int channelNo : m_command.channels) {
        if (!m_session.info().channels.isEmpty() && !m_session.hasChannel(channelNo)) {
            const Outcome outcome =
                Failures::unknownChannel(channelNo, m_session.info().channels, m_session.addressText());
            leave(outcome.code, outcome.sentence);
            return;
        }
    }
    for (const int channelNo : m_command.channels) {
        m_searches.push_back(
            std::make_unique<RecordingSearch>(m_session.devId(), channelNo, Span{m_command.begin, m_command.end}));
        connect(m_searches.back().get(), &RecordingSearch::signalFinished, this, &SearchVerb::printAll);
    }
    for (const auto& search : m_searches)
        search->start();
}

void SearchVerb::printAll()
{
    if (std::any_of(m_searches.cbegin(), m_searches.cend(), [](const auto& search) { return !search->isFinished(); }))
        return;
    for (const auto& search : m_searches) {
        if (search->error()) {
            const Outcome outcome = Failures::of(search->error(), m_session.place(search->channelNo()));
            leave(outcome.code, outcome.sentence);
            return;
        }
    }
    int count = 0;
    for (const auto& search : m_searches) {
        for (const vms_sdk::VideoRecording& recording : search->recordings()) {
            if (!m_command.json && count == 0)
                Terminal::out(asRow(tr("Channel"), tr("Begin"), tr("End"), tr("Type"), tr("Name")));
            ++count;
            Terminal::out(m_command.json ? asJson(*search, recording)
                                         : asRow(QString::number(search->channelNo()), TimeText::plain(recording.begin),
                                                 TimeText::plain(recording.end),
                                                 recording.type == 1 ? tr("alarm") : tr("normal"), recording.fileName));
        }
    }
    if (count == 0)
        leave(ExitCode::NoRecording,
              tr("%1: no recording from %2 to %3.")
                  .arg(m_session.addressText(), TimeText::plain(m_command.begin), TimeText::plain(m_command.end)));
    else
        leave(ExitCode::Done);
}

} // namespace vemo_client
