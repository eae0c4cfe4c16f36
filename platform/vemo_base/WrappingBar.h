#pragma once

#include "vemo_base_global.h"

#include <QWidget>

namespace vemo_base {

/// The bar of tools above a list: what chooses leading, what filters and acts trailing. Its layout is a grid with these
/// two groups side by side; where the window or the bar is too narrow the second goes below the first. GUI thread.
class VEMO_BASE_EXPORT WrappingBar final : public QWidget
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(WrappingBar)

public:
    explicit WrappingBar(QWidget* parent = nullptr);

    QSize minimumSizeHint() const override;

protected:
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void arrange();

    bool m_isWrapped = false;
};

} // namespace vemo_base
