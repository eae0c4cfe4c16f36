#pragma once

#include "VCOMMON_global.h"

#include <QString>

namespace VCOMMON {

enum class PwdStrength : int { VeryWeak = 0, Weak, Medium, Strong };

/// How hard a password is to guess, by its length and by how many kinds of characters it has of four: small letters,
/// capitals, digits, others. Below six characters: very weak; below eight, or of one kind: weak; from
/// twelve on with three kinds, or with all four: strong.
VCOMMON_EXPORT PwdStrength checkPwdStrength(const QString& password);
VCOMMON_EXPORT PwdStrength checkPwdStrength(int length, int kinds);

} // namespace VCOMMON
