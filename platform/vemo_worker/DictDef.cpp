#include "DictDef.h"

namespace vemo_worker {

QString DictDef::titleAlert()
{
    return tr("Alert");
}

QString DictDef::titlePrompt()
{
    return tr("Prompt");
}

QString DictDef::titleWarning()
{
    return tr("Warning");
}

} // namespace vemo_worker
