#include "SuccessOperWt.h"

#include <QToolButton>

namespace vemo_filesCenter {

SuccessOperWt::SuccessOperWt(const vemo_data::DownloadTaskInfo& task, QWidget* parent)
    : TableOperWt(parent)
{
    setKey(task.taskId);
    QToolButton* file = addOperButton(QStringLiteral("openFileBt"), QStringLiteral("open-file"), tr("open the file"));
    QToolButton* folder =
        addOperButton(QStringLiteral("openFolderBt"), QStringLiteral("open-folder"), tr("open folder"));
    QToolButton* clean = addOperButton(QStringLiteral("cleanBt"), QStringLiteral("clean"), tr("clean the task"));
    connect(file, &QToolButton::clicked, this, &SuccessOperWt::slotOpenFileBtClickd);
    connect(folder, &QToolButton::clicked, this, &SuccessOperWt::slotOpenFolderBtClicked);
    connect(clean, &QToolButton::clicked, this, &SuccessOperWt::slotCleanBtClicked);
}

// The key is copied: a receiver may make the table let go of this widget.

void SuccessOperWt::slotOpenFileBtClickd()
{
    const QString key = getKey();
    emit signalOpenDownloadFile(key);
}

void SuccessOperWt::slotOpenFolderBtClicked()
{
    const QString key = getKey();
    emit signalOpenDownloadFolder(key);
}

void SuccessOperWt::slotCleanBtClicked()
{
    const QString key = getKey();
    emit signalCleanDownloadTask(key);
}

} // namespace vemo_filesCenter
