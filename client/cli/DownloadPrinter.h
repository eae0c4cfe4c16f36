#pragma once

#include "ChannelDownload.h"

#include <QList>

namespace vemo_client {

/// Tells how downloads go: lines of JSON on the standard output, or a bar on the terminal and a line a file at the end.
class DownloadPrinter final
{
public:
    explicit DownloadPrinter(bool json);

    void progress(const QList<ChannelDownload*>& downloads);
    void result(const ChannelDownload& download);
    void clear();

    /// "0:42", "1:02:03".
    static QString duration(int seconds);
    static QByteArray resultJson(const ChannelDownload& download);

private:
    void bar(const QList<ChannelDownload*>& downloads);

    const bool m_json;
    const bool m_bar;
    bool m_barShown = false;
};

} // namespace vemo_client
