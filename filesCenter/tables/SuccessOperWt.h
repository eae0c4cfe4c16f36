#pragma once

#include <DownloadTaskInfo.h>
#include <TableOperWt.h>

namespace vemo_filesCenter {

/// The buttons of a row of the success table. Lives only while its row is in view.
class SuccessOperWt final : public vemo_base::TableOperWt
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(SuccessOperWt)

public:
    explicit SuccessOperWt(const vemo_data::DownloadTaskInfo& task, QWidget* parent = nullptr);

signals:
    void signalOpenDownloadFile(const QString& key);
    void signalOpenDownloadFolder(const QString& key);
    void signalCleanDownloadTask(const QString& key);

private slots:
    void slotOpenFileBtClickd();
    void slotOpenFolderBtClicked();
    void slotCleanBtClicked();
};

} // namespace vemo_filesCenter
