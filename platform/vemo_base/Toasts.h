#pragma once

#include "Notice.h"
#include "vemo_base_global.h"

#include <QObject>
#include <QPointer>
#include <QVector>

class QWidget;

namespace vemo_base {

class ToastWt;

/// Shows notices as they come in the bottom trailing corner of a widget, the page area of the main window: at most
/// three, the newest below, for 6 s; errors stay until they are closed. Repeats count up in place. The pointer stops
/// the clock; a toast never takes the focus. GUI thread, child of the host.
class VEMO_BASE_EXPORT Toasts final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(Toasts)

public:
    static constexpr int atMost = 3;
    static constexpr int shownMs = 6000;

    explicit Toasts(QWidget* host);

    int shownCount() const;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void show(const Notice& notice);
    void arrange();
    /// While there are toasts, each page and each bar that comes or goes changes what they must keep free; a page that
    /// comes would else lie above them.
    void watchRoom();
    bool changesRoom(const QObject* watched) const;
    /// Where the host ends, or where its bar with the property `bottomBar` begins: what can be pressed stays free.
    int roomBottom() const;

    QWidget* m_host;
    QVector<QPointer<ToastWt>> m_toasts; ///< the newest last
};

} // namespace vemo_base
