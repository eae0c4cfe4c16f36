#pragma once

#include <QPointer>
#include <QWidget>

namespace vemo_client {

class ShellWt;

/// The client's window: it holds the login or, behind it, the shell. Size and place are remembered. GUI thread.
class MainWindow final : public QWidget
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(MainWindow)

public:
    explicit MainWindow(QWidget* parent = nullptr);
    ~MainWindow() override;

    /// Shows this and nothing else; the window owns it, what was shown before is deleted.
    void setBody(QWidget* body);
    void comeToFront();
    /// What the stores have to say: in a box the first time, since it may be that nothing is kept, then as a toast.
    void tellStore(const QString& text);

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void restorePlace();

    QPointer<QWidget> m_body;
    bool m_storeTold = false;
};

} // namespace vemo_client
