#include "SystemMsg.h"

namespace vemo_contact {

SystemMsg::SystemMsg() = default;

SystemMsg& SystemMsg::instance()
{
    static SystemMsg messages;
    return messages;
}

} // namespace vemo_contact
