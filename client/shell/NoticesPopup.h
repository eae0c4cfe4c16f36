#pragma once

#include <QFrame>

class QListView;
class QPushButton;
class QStackedWidget;

namespace vemo_client {

class NoticeDelegate;
class NoticesModel;

/// The kept notices under the bell, newest first. Arrow keys go through them, Enter or a click does what a notice
/// offers, Clear forgets them all, Esc closes. What is shown counts as read. A pop-up on the GUI thread, owned by the
/// bell and used again and again.
class NoticesPopup final : public QFrame
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(NoticesPopup)

public:
    explicit NoticesPopup(QWidget* parent);

    /// Below the anchor, its trailing edge under the anchor's, within the anchor's window.
    void popUp(const QWidget* anchor);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void refresh();
    void act(int row, int action);

    NoticesModel* m_model;
    NoticeDelegate* m_delegate;
    QStackedWidget* m_pages;
    QListView* m_list;
    QPushButton* m_clear;
};

} // namespace vemo_client
