#include "VerbExit.h"

#include "Terminal.h"

#include <QCoreApplication>

#include <utility>

namespace vemo_client {

bool VerbExit::leave(ExitCode code, const QString& sentence)
{
    if (std::exchange(m_left, true))
        return false;
    if (!sentence.isEmpty())
        Terminal::error(sentence);
    QCoreApplication::exit(static_cast<int>(code));
    return true;
}

} // namespace vemo_client
