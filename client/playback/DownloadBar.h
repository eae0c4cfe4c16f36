#pragma once

#include "ChannelDay.h"

#include <axis/TimeSpan.h>

#include <QVector>
#include <QWidget>

#include <optional>

class QPushButton;

namespace vemo_client {

class SpanBar;

/// What is picked for download, in words, and the button that puts it into the queue: checked recordings, or else the
/// marked span of all channels. The button says why when it can't. GUI thread.
class DownloadBar final : public QWidget
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(DownloadBar)

public:
    explicit DownloadBar(QWidget* parent = nullptr);

    SpanBar* spanBar() const { return m_spanBar; }
    /// Ahead of the rest.
    void addTool(QWidget* tool);
    void showChoice(const QVector<ChannelDay>& days, const std::optional<vemo_base::TimeSpan>& span);

signals:
    void signalDownloadClicked();

private:
    SpanBar* m_spanBar;
    QPushButton* m_download;
};

} // namespace vemo_client
