#pragma once

#include "vemo_base_global.h"

#include <QAbstractButton>

namespace vemo_base {

/// A switch with words: on or off, at once or once it is saved, as its page has it. The words belong to it: a click on
/// them turns it too. GUI thread.
class VEMO_BASE_EXPORT ToggleSwitch final : public QAbstractButton
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(ToggleSwitch)

public:
    explicit ToggleSwitch(const QString& words, QWidget* parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    bool m_isKeyboard = false;
};

} // namespace vemo_base
