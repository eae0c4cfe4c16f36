#pragma once

#include <TableOperWt.h>

class QLabel;
class QProgressBar;

namespace vemo_filesCenter {

/// The progress cell of a download: a bar and a text. It shows what it is told and holds nothing that the table does
/// not know, since it lives only while its row is in view.
class DownloadStateWt final : public vemo_base::TableOperWt
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(DownloadStateWt)

public:
    explicit DownloadStateWt(QWidget* parent = nullptr);

    /// `state` is a DownloadTaskState of a task that waits, runs or is paused; `progress` in percent, -1 keeps the bar.
    void setState(int state, int progress);

protected:
    void styleChanged() override;

private:
    void applyStyle();

    QProgressBar* m_bar;
    QLabel* m_text;
    int m_state = -1; ///< shown last; -1: none yet
};

} // namespace vemo_filesCenter
