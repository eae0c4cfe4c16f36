#pragma once

#include "vemo_data_global.h"

#include <QString>

namespace vemo_data {

/// What may be known of a password without knowing it. Kept in memory only.
struct VEMO_DATA_EXPORT PasswordTraits
{
    int length = 0; ///< characters; 0: there is none
    int kinds = 0;  ///< how many of four kinds it has: small letters, capitals, digits, others

    static PasswordTraits of(const QString& password);
};

} // namespace vemo_data
