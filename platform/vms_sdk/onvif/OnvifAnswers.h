#pragma once

#include "OnvifRequests.h"
#include "SoapElement.h"

#include <QMap>
#include <QUrl>
#include <QVector>

#include <optional>

namespace vms_sdk::onvif {

struct DeviceIdentity
{
    QString manufacturer;
    QString model;
    QString firmware;
    QString serialNumber;
};

struct VideoProfile
{
    QString token;
    QString name;
    QString sourceToken;
    int pixels = 0; ///< of its pictures; 0 when it tells no size
};

/// A recording as the recording control or the search service describes it. Times are ms since 1970 UTC.
struct RecordingEntry
{
    QString token;
    QString sourceId;
    QString sourceName;
    QStringList videoTracks;
    std::optional<qint64> earliestMs;
    std::optional<qint64> latestMs;
    bool isRecording = false; ///< being written to now
};

/// One result of an event search.
struct EventEntry
{
    QString recordingToken;
    QString trackToken;
    qint64 timeMs = 0;
    QString topic;     ///< without prefixes: "RecordingHistory/Track/State"
    QString sourceKey; ///< which source of the topic, to keep the states of several apart
    std::optional<bool> state;
    bool isStartState = false;
};

template <typename Entry>
struct SearchResults
{
    QVector<Entry> entries;
    bool completed = false;
    /// The answer has the shape of search results at all.
    bool isValid = false;
};

/// Readers of answers' payloads, one an operation. What is missing or cannot be read is left empty: devices leave out
/// much. Pure.
namespace answers {

/// The device's clock as ms since 1970 UTC.
std::optional<qint64> systemDateAndTime(const SoapElement& payload);
QMap<Service, QUrl> services(const SoapElement& payload);
QMap<Service, QUrl> capabilities(const SoapElement& payload);
DeviceIdentity deviceInformation(const SoapElement& payload);
QVector<VideoProfile> profiles(const SoapElement& payload);
QStringList videoSourceTokens(const SoapElement& payload);
QVector<RecordingEntry> recordings(const SoapElement& payload);
QString searchToken(const SoapElement& payload);
SearchResults<RecordingEntry> recordingSearchResults(const SoapElement& payload);
SearchResults<EventEntry> eventSearchResults(const SoapElement& payload);
/// The device's own UUID, as endpointId() writes it.
QString endpointReference(const SoapElement& payload);
QUrl replayUri(const SoapElement& payload);
QUrl streamUri(const SoapElement& payload);

} // namespace answers

/// An endpoint reference (WS-Addressing) made comparable: lower case, without "urn:uuid:"; empty when it is none.
QString endpointId(const QString& reference);

} // namespace vms_sdk::onvif
