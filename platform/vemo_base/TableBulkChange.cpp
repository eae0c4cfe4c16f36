#include "TableBulkChange.h"

#include "TableWidget.h"

namespace vemo_base {

TableBulkChange::TableBulkChange(TableWidget* table)
    : m_table(table)
{
    m_table->beginBulkChange();
}

TableBulkChange::~TableBulkChange()
{
    m_table->endBulkChange();
}

} // namespace vemo_base
