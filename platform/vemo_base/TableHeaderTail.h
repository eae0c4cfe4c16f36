#pragma once

#include <QWidget>

namespace vemo_base {

/// Continues the header of a table above its vertical scroll bar, up to the panel's round corner. GUI thread.
class TableHeaderTail final : public QWidget
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(TableHeaderTail)

public:
    explicit TableHeaderTail(QWidget* table);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QWidget* m_table;
};

} // namespace vemo_base
