#include "FailedOperWt.h"

#include <QToolButton>

namespace vemo_filesCenter {

FailedOperWt::FailedOperWt(const vemo_data::DownloadTaskInfo& task, QWidget* parent)
    : TableOperWt(parent)
    , m_redownloadBt(addOperButton(QStringLiteral("redownloadBt"), QStringLiteral("redownload"), tr("redownload")))
{
    setKey(task.taskId);
    QToolButton* clean = addOperButton(QStringLiteral("cleanBt"), QStringLiteral("clean"), tr("clean the task"));
    connect(m_redownloadBt, &QToolButton::clicked, this, &FailedOperWt::slotRedownloadBtClickd);
    connect(clean, &QToolButton::clicked, this, &FailedOperWt::slotCleanBtClicked);
}

void FailedOperWt::setRedownloadBtEnabled(bool enabled)
{
    m_redownloadBt->setEnabled(enabled);
}

// The key is copied: a receiver may make the table let go of this widget.

void FailedOperWt::slotRedownloadBtClickd()
{
    const QString key = getKey();
    emit signalRedownloadTask(key);
}

void FailedOperWt::slotCleanBtClicked()
{
    const QString key = getKey();
    emit signalCleanDownloadTask(key);
}

} // namespace vemo_filesCenter
