#include "BackupAccess.h"

namespace vemo_contact {

BackupAccess::BackupAccess() = default;

BackupAccess& BackupAccess::instance()
{
    static BackupAccess access;
    return access;
}

} // namespace vemo_contact
