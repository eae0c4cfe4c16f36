#include "UserRules.h"

#include <PwdStrength.h>

#include <QCoreApplication>

#include <algorithm>

namespace vemo_worker {

namespace {

QString tr(const char* text)
{
    return QCoreApplication::translate("vemo_worker::UserRules", text);
}

/// Controls, marks of writing direction, private and unassigned characters, lone surrogates: what can't be seen.
bool isUnseen(uint character)
{
    switch (QChar::category(character)) {
    case QChar::Other_Control:
    case QChar::Other_Format:
    case QChar::Other_Surrogate:
    case QChar::Other_PrivateUse:
    case QChar::Other_NotAssigned:
    case QChar::Separator_Line:
    case QChar::Separator_Paragraph:
        return true;
    default:
        return false;
    }
}

} // namespace

QString UserRules::tidyName(const QString& name)
{
    return name.normalized(QString::NormalizationForm_C).trimmed();
}

QString UserRules::nameKey(const QString& name)
{
    return tidyName(name).toCaseFolded().normalized(QString::NormalizationForm_C);
}

QString UserRules::nameProblem(const QString& name)
{
    const QString tidy = tidyName(name);
    if (tidy.isEmpty())
        return tr("The user name is missing.");
    if (tidy.size() > longestName)
        return tr("The user name is longer than %1 characters.").arg(longestName);
    const QVector<uint> characters = tidy.toUcs4();
    if (!tidy.isValidUtf16() || std::any_of(characters.begin(), characters.end(), isUnseen))
        return tr("The user name has a character that can't be seen.");
    return {};
}

QString UserRules::passwordProblem(const QString& password, const QString& name, bool isAdministrator)
{
    const int shortest = isAdministrator ? shortestAdministratorPassword : shortestPassword;
    if (password.size() < shortest)
        return isAdministrator ? tr("The password of an administrator has %1 characters or more.").arg(shortest)
                               : tr("The password has %1 characters or more.").arg(shortest);
    if (password.size() > longestPassword)
        return tr("The password is longer than %1 characters.").arg(longestPassword);
    if (nameKey(password) == nameKey(name))
        return tr("The password is the user name; choose another one.");
    if (VCOMMON::checkPwdStrength(password) <= VCOMMON::PwdStrength::Weak)
        return tr("The password is too easy to guess. Mix letters with digits or signs.");
    return {};
}

} // namespace vemo_worker
