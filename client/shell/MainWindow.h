#pragma once

#include "QueueWatch.h"

#include <QHash>
#include <QWidget>

class QStackedWidget;

namespace vemo_base {
class BaseForm;
}

namespace vemo_client {

class PlaybackPage;
class RecorderLogins;
class StatusBar;
class TopBar;

/// The client's window: top bar, the pages of the modules one upon another, status bar, toasts. It owns the forms that
/// it is given. Size, place and the page that was shown are remembered. GUI thread.
class MainWindow final : public QWidget
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(MainWindow)

public:
    explicit MainWindow(RecorderLogins* logins, QWidget* parent = nullptr);
    ~MainWindow() override;

    void placeForm(vemo_base::BaseForm* form);
    /// The page that was shown last; the recorders while there is none.
    void showFirstPage();
    void comeToFront();
    /// What the stores have to say: in a box the first time, since it may be that nothing is kept, then as a toast.
    void tellStore(const QString& text);

    QueueWatch* queue() { return &m_queue; }

    /// Name of the setting that holds the chosen theme.
    static QString themeSetting();

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void addPage(const QString& key, const QString& title, const QString& icon, QWidget* page);
    void restorePlace();
    void chooseTheme(const QString& name);
    void showModule(const QString& key);
    void showDownloads();
    void showOffline();
    void tellQueued(int added, int asked);
    void tellEmptied(int done, int failed);
    /// F6: the first focusable widget of the next area.
    void nextArea();
    QList<QWidget*> areas() const;

    RecorderLogins* m_logins;
    QueueWatch m_queue;
    TopBar* m_topBar = nullptr;
    QStackedWidget* m_forms = nullptr;
    StatusBar* m_statusBar = nullptr;
    PlaybackPage* m_playback = nullptr;
    QHash<QString, QWidget*> m_pageByKey;
    QString m_currentKey;
    bool m_storeTold = false;
};

} // namespace vemo_client
