#pragma once

#include <DownloadTaskInfo.h>
#include <TableOperWt.h>

class QToolButton;

namespace vemo_filesCenter {

/// The buttons of a row of the downloading table. Lives only while its row is in view.
class DownloadingOperWt final : public vemo_base::TableOperWt
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(DownloadingOperWt)

public:
    explicit DownloadingOperWt(const vemo_data::DownloadTaskInfo& task, QWidget* parent = nullptr);

    /// Checked means that the task is wanted, and that the button would stop it. Tells no one.
    void setStartBtChecked(bool checked);
    void setStartBtEnabled(bool enabled);
    bool isStartBtEnabled() const;

signals:
    void signalStartDownloading(const QString& key);
    void signalStopDownloading(const QString& key);
    void signalOpenDownloadFolder(const QString& key);
    void signalCleanDownloadTask(const QString& key);

private slots:
    void slotStartBtClicked(bool checked);
    void slotOpenFolderBtClicked();
    void slotCleanBtClicked();

private:
    QToolButton* m_startBt;
};

} // namespace vemo_filesCenter
