#include "LocalPlaybackDlg.h"

#include <QKeyEvent>

namespace vemo_base {

class LocalPlaybackDlg::Private final
{
public:
    QString path;
};

LocalPlaybackDlg::LocalPlaybackDlg(QWidget* parent)
    : QDialog(parent)
    , d(std::make_unique<Private>())
{}

LocalPlaybackDlg::~LocalPlaybackDlg() = default;

void LocalPlaybackDlg::setLocalVideoRecordingPath(const QString& path, const VCOMMON::ChannelInfo&,
                                                  const QString& title)
{
    d->path = path;
    setWindowTitle(title);
}

void LocalPlaybackDlg::showLocalPlaybackDlg()
{
    open();
}

void LocalPlaybackDlg::done(int result)
{
    QDialog::done(result);
    emit signalPlaybackDlgClosed(d->path);
}

} // namespace vemo_base
