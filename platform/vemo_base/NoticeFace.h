#pragma once

#include "Notice.h"
#include "ThemeTokens.h"
#include "vemo_base_global.h"

#include <QString>

namespace vemo_base {

/// Icon and colour by which a kind of notice is known, as a toast and in the list.
struct VEMO_BASE_EXPORT NoticeFace
{
    QString icon;
    Token token = Token::AccentText;

    static NoticeFace of(Notice::Kind kind);
};

} // namespace vemo_base
