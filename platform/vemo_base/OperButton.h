#pragma once

#include "vemo_base_global.h"

#include <QToolButton>

namespace vemo_base {

/// An icon button inside a row: 28 px with an icon of 18; under the pointer it gets a ground of its own, which on a
/// selected row is a tint of the text colour. GUI thread.
class VEMO_BASE_EXPORT OperButton final : public QToolButton
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(OperButton)

public:
    explicit OperButton(QWidget* parent);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace vemo_base
