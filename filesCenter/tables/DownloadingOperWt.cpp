#include "DownloadingOperWt.h"

#include <Icons.h>

#include <QToolButton>

namespace vemo_filesCenter {

DownloadingOperWt::DownloadingOperWt(const vemo_data::DownloadTaskInfo& task, QWidget* parent)
    : TableOperWt(parent)
    , m_startBt(addOperButton(QStringLiteral("startBt"), QStringLiteral("start"), tr("start downloading")))
{
    setKey(task.taskId);
    m_startBt->setCheckable(true);
    QToolButton* clean = addOperButton(QStringLiteral("cleanBt"), QStringLiteral("clean"), tr("clean the task"));
    QToolButton* folder =
        addOperButton(QStringLiteral("openFolderBt"), QStringLiteral("open-folder"), tr("open folder"));
    connect(m_startBt, &QToolButton::clicked, this, &DownloadingOperWt::slotStartBtClicked);
    connect(folder, &QToolButton::clicked, this, &DownloadingOperWt::slotOpenFolderBtClicked);
    connect(clean, &QToolButton::clicked, this, &DownloadingOperWt::slotCleanBtClicked);
}

void DownloadingOperWt::setStartBtChecked(bool checked)
{
    m_startBt->setChecked(checked);
    m_startBt->setIcon(vemo_base::Icons::icon(checked ? QStringLiteral("stop") : QStringLiteral("start")));
    setOperButtonText(m_startBt, checked ? tr("stop downloading") : tr("start downloading"));
}

void DownloadingOperWt::setStartBtEnabled(bool enabled)
{
    m_startBt->setEnabled(enabled);
}

bool DownloadingOperWt::isStartBtEnabled() const
{
    return m_startBt->isEnabled();
}

// The key is copied: a receiver may make the table let go of this widget.

void DownloadingOperWt::slotStartBtClicked(bool checked)
{
    const QString key = getKey();
    setStartBtChecked(checked);
    if (checked)
        emit signalStartDownloading(key);
    else
        emit signalStopDownloading(key);
}

void DownloadingOperWt::slotOpenFolderBtClicked()
{
    const QString key = getKey();
    emit signalOpenDownloadFolder(key);
}

void DownloadingOperWt::slotCleanBtClicked()
{
    const QString key = getKey();
    emit signalCleanDownloadTask(key);
}

} // namespace vemo_filesCenter
