#pragma once

#include "vemo_base_global.h"

#include <QPointer>
#include <QUuid>
#include <QWidget>

class QPushButton;

namespace vemo_base {

/// Covers a widget while something runs that must not be disturbed: takes its clicks and keys at once, and after 150 ms
/// veils it and shows a card with a ring and the words. A child of the widget, which it always covers, known to
/// DisabledWaitingWtManager by its id until it is deleted. GUI thread.
class VEMO_BASE_EXPORT DisabledWaitingWt final : public QWidget
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(DisabledWaitingWt)

public:
    /// `second` is a line in smaller letters below the text; may be empty. With `cancellable` the card has a button,
    /// and Esc does the same.
    DisabledWaitingWt(QWidget* parent, const QString& text, const QString& second = QString(),
                      bool cancellable = false);
    ~DisabledWaitingWt() override;

    QUuid getUuid() const { return m_uuid; }
    void show();
    void setDescription(const QString& text);
    QString description() const { return m_text; }
    /// The veil is painted, no longer only waited for.
    bool isVeiling() const { return m_isVeiling; }

signals:
    /// The person wants it to end. The widget stays until its owner destroys it.
    void signalCancelled(const QUuid& uuid);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void timerEvent(QTimerEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    QRect cardRect() const;
    void placeCancel();
    void cancel();

    const QUuid m_uuid;
    QString m_text;
    const QString m_second;
    QPushButton* m_cancel = nullptr;
    QPointer<QWidget> m_focusBefore;
    int m_turnTimer = 0;
    int m_angle = 0; ///< of the ring, in degrees
    int m_widestCard = 0;
    bool m_isVeiling = false;
};

} // namespace vemo_base
