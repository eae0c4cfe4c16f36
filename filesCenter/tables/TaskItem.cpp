#include "TaskItem.h"

namespace vemo_filesCenter {

TaskItem::TaskItem(const QString& text, const QString& key)
    : QTableWidgetItem(text)
    , m_key(key)
{}

} // namespace vemo_filesCenter
