#include "ModuleAccess.h"

namespace vemo_contact {

ModuleAccess::ModuleAccess() = default;

ModuleAccess& ModuleAccess::instance()
{
    static ModuleAccess access;
    return access;
}

} // namespace vemo_contact
