#pragma once

#include "LiveViews.h"

#include <QWidget>

class QSplitter;
class QStackedLayout;
class QVBoxLayout;

namespace vemo_client {

class FirstRecorderWt;
class LiveBar;
class LiveColumn;
class LiveStage;
class RecorderLogins;

/// The page of live video: recorders with their channels, tiles, named views, recording and snapshots by hand. Without
/// a recorder it is the form that adds the first one. What was shown last is shown again at the next start. GUI thread.
class LivePage final : public QWidget
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(LivePage)

public:
    explicit LivePage(RecorderLogins* logins, QWidget* parent = nullptr);
    ~LivePage() override;

    LiveStage* stage() const { return m_stage; }
    /// Recordings that the end of the client would end.
    int recordingCount() const;
    /// The same in words, empty when there are none.
    QString quitConcern() const;
    void remember() const;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    bool takeKey(int key);
    void takeRecorders();
    void takeChange();
    void showSelected();
    void showViews();
    void chooseView(const QString& name);
    void saveViewAs();
    void renameView();
    void deleteView();
    void setTileCount(int count);
    void toggleFullScreen();

    RecorderLogins* m_logins;
    LiveViews m_views;
    QString m_viewName; ///< of what is shown; empty: it has none
    QStackedLayout* m_pages;
    QSplitter* m_splitter;
    LiveColumn* m_column;
    LiveStage* m_stage;
    LiveBar* m_bar;
    FirstRecorderWt* m_first = nullptr;
};

} // namespace vemo_client
