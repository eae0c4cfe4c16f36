#include "CopyFolder.h"

#include <QRandomGenerator>

namespace VCOMMON {

QString CopyFolder::temporaryName()
{
    const quint64 number = QRandomGenerator::global()->generate64();
    return QStringLiteral(".vemo-%1.part").arg(number, 16, 16, QLatin1Char('0'));
}

QString CopyFolder::replaced(const QString& path)
{
    return tr("%1 is not the folder any more that it was at the beginning.").arg(path);
}

bool CopyFolder::isOther(const Id& known) const
{
    return known.isKnown() && !(known == rootId());
}

QString CopyFolder::notThere() const
{
    return tr("The folder %1 can't be written to: %2.").arg(m_path, qt_error_string());
}

} // namespace VCOMMON
