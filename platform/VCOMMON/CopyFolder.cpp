#include "CopyFolder.h"

#include <QRandomGenerator>

namespace VCOMMON {

QString CopyFolder::temporaryName()
{
    const quint64 number = QRandomGenerator::global()->generate64();
    return QStringLiteral(".vemo-%1.part").arg(number, 16, 16, QLatin1Char('0'));
}

QString CopyFolder::notThere() const
{
    return tr("The folder %1 can't be written to: %2.").arg(m_path, qt_error_string());
}

} // namespace VCOMMON
