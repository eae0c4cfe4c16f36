#include "OwnLibrary.h"

#include <QCoreApplication>
#include <QLibrary>

namespace vemo_base {

QFunctionPointer OwnLibrary::resolve(const QString& library, const char* function, QString& error)
{
    const QString program = QCoreApplication::applicationDirPath();
    for (const QString& folder : {QStringLiteral("/../lib/vemo/"), QStringLiteral("/../lib/"), QStringLiteral("/")}) {
        QLibrary candidate(program + folder + library);
        if (const QFunctionPointer found = candidate.resolve(function))
            return found;
        error = candidate.errorString();
    }
    return nullptr;
}

} // namespace vemo_base
