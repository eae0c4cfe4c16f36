#pragma once

#include <QString>

#include <optional>

namespace vms_sdk::onvif {

/// The stable name of a recording: its token and its span, "TOKEN_20260110T080000000Z_20260110T090000000Z". A by-file
/// request finds token and span again in it, on another day and after a restart. Only letters, digits, '-', '_' and '~'
/// occur: every other byte of the token's UTF-8 stands as "~XX", so the name is legal on every file system. Pure.
struct RecordingFileName
{
    QString recordingToken;
    qint64 beginMs = 0; ///< since 1970 UTC
    qint64 endMs = 0;

    QString encode() const;
    /// Nothing when the name was not made by encode().
    static std::optional<RecordingFileName> decode(const QString& name);
};

} // namespace vms_sdk::onvif
