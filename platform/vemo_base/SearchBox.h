#pragma once

#include "vemo_base_global.h"

#include <QLineEdit>

class QAction;

namespace vemo_base {

/// The field by which a page is filtered: a filter icon leading, a button that clears it while there is text, Esc
/// clears it as well. Tells of each change by textChanged(), also of those by clear(). GUI thread.
class VEMO_BASE_EXPORT SearchBox final : public QLineEdit
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(SearchBox)

public:
    explicit SearchBox(QWidget* parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    QAction* m_clear;
};

} // namespace vemo_base
