#include "PwdStrength.h"

#include <PasswordTraits.h>

namespace VCOMMON {

PwdStrength checkPwdStrength(const QString& password)
{
    const vemo_data::PasswordTraits traits = vemo_data::PasswordTraits::of(password);
    return checkPwdStrength(traits.length, traits.kinds);
}

PwdStrength checkPwdStrength(int length, int kinds)
{
    constexpr int shortLength = 6;
    constexpr int usualLength = 8;
    constexpr int longLength = 12;
    constexpr int allKinds = 4;
    if (length < shortLength)
        return PwdStrength::VeryWeak;
    if (length < usualLength || kinds < 2)
        return PwdStrength::Weak;
    if (kinds == allKinds || (length >= longLength && kinds == allKinds - 1))
        return PwdStrength::Strong;
    return PwdStrength::Medium;
}

} // namespace VCOMMON
