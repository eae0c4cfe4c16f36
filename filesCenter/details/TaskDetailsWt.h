#pragma once

#include <DownloadTaskInfo.h>

#include <QWidget>

#include <memory>

namespace vemo_data {
struct TaskFacts;
}

namespace vemo_filesCenter {

/// The full facts of one row: asked and received span, gaps, losses, codec, size, path, checksum, and the reason of a
/// failure with what to do; below them Verify, Copy checksum and Open folder. A side tool, 424 wide, on the GUI thread,
/// owned by the page that places it beside its table. It loads what the store keeps of the task by itself and follows
/// the verifier; it changes no record.
///
/// How a page uses it: one widget, hidden; showTask() when a row is picked and again when its record changed,
/// clearTask() when the row goes; signalCloseRequested hides it. Rows that need no panel take toolTipText().
class TaskDetailsWt final : public QWidget
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(TaskDetailsWt)

public:
    static constexpr int panelWidth = 424;
    static constexpr int narrowWidth = 400; ///< for small windows, set by the page

    explicit TaskDetailsWt(QWidget* parent = nullptr);
    ~TaskDetailsWt() override;

    void showTask(const vemo_data::DownloadTaskInfo& task);
    void clearTask();
    QString taskId() const;

    /// The same facts as plain text of a few lines; `facts` may be empty.
    static QString toolTipText(const vemo_data::DownloadTaskInfo& task, const vemo_data::TaskFacts& facts);

signals:
    void signalCloseRequested();

protected:
    void changeEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    class Private;
    const std::unique_ptr<Private> d;
};

} // namespace vemo_filesCenter
