#include "NoticeFace.h"

namespace vemo_base {

NoticeFace NoticeFace::of(Notice::Kind kind)
{
    switch (kind) {
    case Notice::Kind::Success:
        return {QStringLiteral("success"), Token::Success};
    case Notice::Kind::Warning:
        return {QStringLiteral("warning"), Token::Warning};
    case Notice::Kind::Error:
        return {QStringLiteral("error"), Token::Error};
    case Notice::Kind::Information:
        break;
    }
    return {QStringLiteral("info"), Token::AccentText};
}

} // namespace vemo_base
