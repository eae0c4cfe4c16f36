#pragma once

#include "RecorderLogins.h"

#include <ThemeTokens.h>

#include <QString>

namespace vemo_client {

/// How the login of a recorder is told to a person: as the short state in a list, and as a failure with its cause and
/// what can be done. Plain functions.
class LoginWords final
{
public:
    LoginWords() = delete;

    struct State
    {
        QString icon;
        vemo_base::Token color = vemo_base::Token::Text2;
        QString word;
    };
    static State stateOf(const RecorderLogins::Login& login);
    /// With what the device itself tells beside a login that succeeded, or in place of it.
    static State stateOf(const RecorderLogins::Login& login, vms_sdk::DevStatus status);

    struct Failure
    {
        QString title;
        QString cause;
        QString advice;
        bool isWarning = false; ///< mends itself, or may do so
    };
    /// For Failed, PasswordWanted and CertificateUnknown; empty texts otherwise.
    static Failure failureOf(const RecorderLogins::Login& login);
};

} // namespace vemo_client
