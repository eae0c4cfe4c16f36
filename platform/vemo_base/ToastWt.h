#pragma once

#include "Notice.h"

#include <QTimer>
#include <QWidget>

class QHBoxLayout;
class QLabel;

namespace vemo_base {

/// One toast. Asks to be closed by its button, after an action and, unless it is an error, when its time is over. GUI
/// thread, owned by Toasts.
class ToastWt final : public QWidget
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(ToastWt)

public:
    ToastWt(const Notice& notice, int shownMs, QWidget* parent);

    void setNotice(const Notice& notice);
    quint64 noticeId() const { return m_notice.id; }
    bool staysUntilClosed() const { return m_notice.kind == Notice::Kind::Error; }
    /// As high as its words need.
    void fitHeight();
    /// The card without the room of its shadow.
    QRect cardRect() const;

signals:
    void signalClosed();

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void fillActions();

    Notice m_notice;
    QTimer m_clock;
    int m_shownMs;
    QLabel* m_title;
    QLabel* m_text;
    QHBoxLayout* m_actions;
};

} // namespace vemo_base
