#include "PasswordTraits.h"

namespace vemo_data {

PasswordTraits PasswordTraits::of(const QString& password)
{
    bool small = false;
    bool capital = false;
    bool digit = false;
    bool other = false;
    for (const QChar character : password) {
        small = small || character.isLower();
        capital = capital || character.isUpper();
        digit = digit || character.isDigit();
        other = other || !character.isLetterOrNumber();
    }
    return {password.size(), int(small) + int(capital) + int(digit) + int(other)};
}

} // namespace vemo_data
