#pragma once

#include <QHash>
#include <QWidget>

class QStackedWidget;

namespace vemo_base {
class BaseForm;
}

namespace vemo_client {

class StatusBar;
class TopBar;

/// The client's window: top bar, the forms of the modules one upon another, status bar. It owns the forms that it is
/// given. Size and place are remembered. GUI thread.
class MainWindow final : public QWidget
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(MainWindow)

public:
    explicit MainWindow(QWidget* parent = nullptr);
    ~MainWindow() override;

    void placeForm(vemo_base::BaseForm* form);
    void comeToFront();

    /// Name of the setting that holds the chosen theme.
    static QString themeSetting();

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void restorePlace();
    void chooseTheme(const QString& name);
    void showModule(const QString& key);
    void showDownloads();
    /// F6: the first focusable widget of the next area.
    void nextArea();

    TopBar* m_topBar = nullptr;
    QStackedWidget* m_forms = nullptr;
    StatusBar* m_statusBar = nullptr;
    QHash<QString, vemo_base::BaseForm*> m_formByKey;
};

} // namespace vemo_client
