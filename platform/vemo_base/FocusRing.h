#pragma once

#include <QFocusFrame>
#include <QPointer>

namespace vemo_base {

/// The ring around the control that has the focus: around buttons and boxes only when focus came by keyboard, around
/// fields always. One object for the application, made by the style; it follows the focus and lies outside the control,
/// where the control itself cannot paint. Widgets that draw their ring inside (rows, cards, navigation) are left alone.
class FocusRing final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(FocusRing)

public:
    explicit FocusRing(QObject* parent = nullptr);
    ~FocusRing() override;

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void show(QWidget* widget);

    QPointer<QFocusFrame> m_frame;
};

} // namespace vemo_base
