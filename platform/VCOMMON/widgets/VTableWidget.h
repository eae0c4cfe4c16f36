#pragma once

#include "VCOMMON_widgets_global.h"

#include <TableWidget.h>

#include <functional>

namespace VCOMMON {

/// The table of a page that lists files: what TableWidget does, and its rows can be dragged into other programs as
/// file addresses, always as copies. GUI thread.
class VCOMMON_WIDGETS_EXPORT VTableWidget final : public vemo_base::TableWidget
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(VTableWidget)

public:
    /// The path of a row's file, empty when there is none to give away; must not wait for a disk.
    using FileOfRow = std::function<QString(int row)>;

    explicit VTableWidget(QWidget* parent = nullptr);

    /// Rows that are shown and whose item in `column` is checked, ascending.
    QList<int> getCheckedRows(int column) const;
    void removeAllRows();
    /// Rows can be dragged from then on.
    void setFileOfRow(FileOfRow fileOfRow);
    /// Of all selected rows that have one, in the table's order.
    QStringList selectedFiles() const;

protected:
    void startDrag(Qt::DropActions supportedActions) override;

private:
    FileOfRow m_fileOfRow;
};

} // namespace VCOMMON
