#pragma once

#include <QString>

#include <optional>

namespace vms_sdk::onvif {

/// xs:dateTime (XML Schema part 2, 3.2.7) as ms since 1970 UTC. A time without a zone counts as UTC, which is what
/// ONVIF devices mean by it. Nothing when the text is no time.
std::optional<qint64> parseDateTime(const QString& text);

/// "2026-01-10T08:00:00.000Z".
QString formatDateTime(qint64 utcMs);

} // namespace vms_sdk::onvif
