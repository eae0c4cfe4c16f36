#include "MediaChoice.h"

#include <algorithm>

namespace vms_sdk::rtsp {

std::vector<ChosenMedium> chooseMedia(const SdpSession& session, const QByteArray& base, bool wantAudio,
                                      QByteArray& refused)
{
    std::vector<ChosenMedium> chosen;
    // In the client's view such a medium is a back channel; recorders that mark all of them so mean their own view.
    const bool isRecordersView =
        std::all_of(session.media.begin(), session.media.end(), [](const SdpMedia& media) { return media.isSendOnly; });
    for (const QByteArray& type : {QByteArrayLiteral("video"), QByteArrayLiteral("audio")}) {
        if (type == "audio" && !wantAudio)
            continue;
        for (const SdpMedia& media : session.media) {
            if (media.type != type || (media.isSendOnly && !isRecordersView))
                continue;
            ChosenMedium medium;
            QByteArray reason;
            if (!makeMediaFormat(media, medium.format, reason)) {
                refused += refused.isEmpty() ? reason : QByteArray(", " + reason);
                continue;
            }
            medium.payloadType = static_cast<std::uint8_t>(media.payloadType);
            medium.uri = resolveControl(base, media.control);
            chosen.push_back(medium);
            break;
        }
    }
    return chosen;
}

} // namespace vms_sdk::rtsp
