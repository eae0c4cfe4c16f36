#pragma once

#include <QWidget>

namespace vemo_base {

/// Darkens the window that a dialog stands over, for as long as it lives. A child of that window, which it always
/// covers.
class DimVeil final : public QWidget
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(DimVeil)

public:
    explicit DimVeil(QWidget* window);

    bool eventFilter(QObject* watched, QEvent* event) override;

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace vemo_base
