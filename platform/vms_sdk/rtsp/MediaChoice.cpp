#include "MediaChoice.h"

namespace vms_sdk::rtsp {

std::vector<ChosenMedium> chooseMedia(const SdpSession& session, const QByteArray& base, bool wantAudio,
                                      QByteArray& refused)
{
    std::vector<ChosenMedium> chosen;
    for (const QByteArray& type : {QByteArrayLiteral("video"), QByteArrayLiteral("audio")}) {
        if (type == "audio" && !wantAudio)
            continue;
        for (const SdpMedia& media : session.media) {
            if (media.type != type)
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
