#include "VerbStore.h"

#include "Terminal.h"

#include <Database.h>

namespace vemo_client {

bool VerbStore::open(VerbExit* exit)
{
    vemo_data::Database& database = vemo_data::Database::instance();
    const bool isUsable = database.run([](QSqlDatabase&) { return true; });
    const QString notice = database.notice();
    if (!isUsable)
        exit->leave(ExitCode::Disk, notice);
    else if (!notice.isEmpty())
        Terminal::error(notice);
    return isUsable;
}

} // namespace vemo_client
