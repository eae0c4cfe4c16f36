#pragma once

#include "vemo_base_global.h"

#include <QtGlobal>

namespace vemo_base {

class TableWidget;

/// While one exists the table paints nothing, makes no cell widgets and tells no counts; all is done once when the last
/// of them goes. Lives shorter than its table. GUI thread.
class VEMO_BASE_EXPORT TableBulkChange final
{
    Q_DISABLE_COPY_MOVE(TableBulkChange)

public:
    explicit TableBulkChange(TableWidget* table);
    ~TableBulkChange();

private:
    TableWidget* m_table;
};

} // namespace vemo_base
