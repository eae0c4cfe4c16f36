#pragma once

#include "DigestAuthenticator.h"
#include "Error.h"
#include "RtspRequester.h"

#include <QString>

namespace vms_sdk::rtsp {

/// What a refusing status of `answer` means, in a sentence that names the host.
Error refusalError(const RtspMessage& answer, const RtspRequest& request, const QString& host);

/// Why no login was possible.
Error loginError(DigestAuthenticator::Verdict verdict, const QString& host);

} // namespace vms_sdk::rtsp
