#pragma once

#include <DownloadTaskInfo.h>
#include <TableOperWt.h>

class QToolButton;

namespace vemo_filesCenter {

/// The buttons of a row of the failed table. Lives only while its row is in view.
class FailedOperWt final : public vemo_base::TableOperWt
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(FailedOperWt)

public:
    explicit FailedOperWt(const vemo_data::DownloadTaskInfo& task, QWidget* parent = nullptr);

    void setRedownloadBtEnabled(bool enabled);

signals:
    void signalRedownloadTask(const QString& key);
    void signalCleanDownloadTask(const QString& key);

private slots:
    void slotRedownloadBtClickd();
    void slotCleanBtClicked();

private:
    QToolButton* m_redownloadBt;
};

} // namespace vemo_filesCenter
