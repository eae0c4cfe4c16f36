#include "DownloadBar.h"

#include "SpanBar.h"

#include <axis/SpanWords.h>
#include <Icons.h>
#include <SystemWorker.h>

#include <QDateTime>
#include <QHBoxLayout>
#include <QPushButton>
#include <QVariant>

namespace vemo_client {

using vemo_base::SpanWords;
using vemo_base::TimeSpan;

DownloadBar::DownloadBar(QWidget* parent)
    : QWidget(parent)
    , m_spanBar(new SpanBar(this))
    , m_download(new QPushButton(vemo_base::Icons::icon(QStringLiteral("download-mgr")), tr("Download"), this))
{
    m_download->setObjectName(QStringLiteral("downloadBt"));
    m_download->setProperty("kind", QStringLiteral("primary"));
    connect(m_download, &QPushButton::clicked, this, &DownloadBar::signalDownloadClicked);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(8);
    layout->addWidget(m_spanBar);
    layout->addWidget(m_download);
}

void DownloadBar::addTool(QWidget* tool)
{
    static_cast<QHBoxLayout*>(layout())->insertWidget(0, tool);
}

void DownloadBar::showChoice(const QVector<ChannelDay>& days, const std::optional<TimeSpan>& span)
{
    int recordings = 0;
    qint64 lengthMs = 0;
    for (const ChannelDay& day : days) {
        recordings += day.chosen.size();
        for (const int index : day.chosen)
            lengthMs += day.recordings.at(index).begin.msecsTo(day.recordings.at(index).end);
    }
    QString words;
    QString reason;
    const bool isAllowed = vemo_worker::SystemWorker::instance().isCurUserHasPower(vemo_worker::PowerDownload);
    if (recordings > 0)
        words = SpanWords::recordings(recordings) + QLatin1String(", ") + SpanWords::length(lengthMs);
    else if (span && span->beginMs >= QDateTime::currentMSecsSinceEpoch())
        reason = tr("The span has not come yet");
    else if (span && days.isEmpty())
        reason = tr("No channel is chosen");
    else if (span)
        words = SpanWords::length(span->lengthMs()) + QLatin1String(", ") + SpanWords::channels(days.size());
    else
        reason = tr("No span is marked");
    m_spanBar->setWords(words.isEmpty() ? reason : words);
    m_download->setEnabled(isAllowed && !words.isEmpty());
    m_download->setToolTip(!isAllowed         ? tr("Downloading is not allowed for this user")
                           : !words.isEmpty() ? tr("Puts it into the download queue")
                           : span             ? reason
                                  : tr("Drag on the time line to mark a span, or check recordings in the list"));
}

} // namespace vemo_client
