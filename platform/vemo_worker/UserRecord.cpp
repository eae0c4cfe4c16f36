#include "UserRecord.h"

#include "SystemWorker.h"

namespace vemo_worker {

bool UserRecord::isAdministrator() const
{
    return (powers & PowerUsers) != 0;
}

} // namespace vemo_worker
