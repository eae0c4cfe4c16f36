#include "OnvifAnswers.h"

#include "OnvifTime.h"
#include "SoapAnswer.h"

#include <QDateTime>

#include <algorithm>

namespace vms_sdk::onvif {

namespace {

// Longest token kept; ONVIF's ReferenceToken has 64 characters.
constexpr int maxTokenLength = 128;
constexpr int maxPictureSide = 32'768;

QString tokenText(const QString& text)
{
    return text.size() <= maxTokenLength ? text : QString();
}

std::optional<bool> booleanText(const QString& text)
{
    const QString value = text.toLower();
    if (value == QLatin1String("true") || value == QLatin1String("1") || value == QLatin1String("on") ||
        value == QLatin1String("active"))
        return true;
    if (value == QLatin1String("false") || value == QLatin1String("0") || value == QLatin1String("off") ||
        value == QLatin1String("inactive"))
        return false;
    return std::nullopt;
}

Service serviceOf(const QString& namespaceUri)
{
    for (const Service service :
         {Service::Device, Service::Media, Service::Recording, Service::Search, Service::Replay}) {
        if (namespaceOf(service) == namespaceUri)
            return service;
    }
    return Service::Unknown;
}

/// "tns1:RecordingHistory/tns1:Track/State" as "RecordingHistory/Track/State".
QString plainTopic(const QString& topic)
{
    QStringList steps;
    for (const QString& step : topic.left(256).trimmed().split(QLatin1Char('/'), Qt::SkipEmptyParts))
        steps.append(step.mid(step.lastIndexOf(QLatin1Char(':')) + 1));
    return steps.join(QLatin1Char('/'));
}

/// Only RTSP, and with a host.
QUrl rtspUri(const QString& text)
{
    const QUrl uri(text, QUrl::StrictMode);
    const QString scheme = uri.scheme().toLower();
    const bool isRtsp = scheme == QLatin1String("rtsp") || scheme == QLatin1String("rtsps");
    return isRtsp && uri.isValid() && !uri.host().isEmpty() ? uri : QUrl();
}

bool searchCompleted(const SoapElement& list)
{
    return list.textAt(QLatin1String("SearchState")).compare(QLatin1String("Completed"), Qt::CaseInsensitive) == 0;
}

RecordingEntry recordingInformation(const SoapElement& element)
{
    RecordingEntry entry;
    entry.token = tokenText(element.textAt(QLatin1String("RecordingToken")));
    entry.sourceId = shownText(element.textAt(QLatin1String("Source/SourceId")));
    entry.sourceName = shownText(element.textAt(QLatin1String("Source/Name")));
    entry.earliestMs = parseDateTime(element.textAt(QLatin1String("EarliestRecording")));
    entry.latestMs = parseDateTime(element.textAt(QLatin1String("LatestRecording")));
    entry.isRecording = element.textAt(QLatin1String("RecordingStatus")) == QLatin1String("Recording");
    for (const SoapElement* track : element.all(QLatin1String("Track"))) {
        if (track->textAt(QLatin1String("TrackType")) == QLatin1String("Video"))
            entry.videoTracks.append(tokenText(track->textAt(QLatin1String("TrackToken"))));
    }
    return entry;
}

} // namespace

namespace answers {

std::optional<qint64> systemDateAndTime(const SoapElement& payload)
{
    const SoapElement& utc = payload.at(QLatin1String("SystemDateAndTime/UTCDateTime"));
    const QDate date(utc.textAt(QLatin1String("Date/Year")).toInt(), utc.textAt(QLatin1String("Date/Month")).toInt(),
                     utc.textAt(QLatin1String("Date/Day")).toInt());
    const QTime time(utc.textAt(QLatin1String("Time/Hour")).toInt(), utc.textAt(QLatin1String("Time/Minute")).toInt(),
                     qMin(utc.textAt(QLatin1String("Time/Second")).toInt(), 59));
    if (utc.isNull() || !date.isValid() || !time.isValid())
        return std::nullopt;
    return QDateTime(date, time, Qt::UTC).toMSecsSinceEpoch();
}

QMap<Service, QUrl> services(const SoapElement& payload)
{
    QMap<Service, QUrl> found;
    for (const SoapElement* element : payload.all(QLatin1String("Service"))) {
        const Service service = serviceOf(element->textAt(QLatin1String("Namespace")));
        const QUrl address(element->textAt(QLatin1String("XAddr")), QUrl::StrictMode);
        if (service != Service::Unknown && address.isValid() && !found.contains(service))
            found.insert(service, address);
    }
    return found;
}

QMap<Service, QUrl> capabilities(const SoapElement& payload)
{
    QMap<Service, QUrl> found;
    const SoapElement& list = payload.at(QLatin1String("Capabilities"));
    const struct
    {
        Service service;
        const char* path;
    } places[] = {{Service::Device, "Device/XAddr"},
                  {Service::Media, "Media/XAddr"},
                  {Service::Recording, "Extension/Recording/XAddr"},
                  {Service::Search, "Extension/Search/XAddr"},
                  {Service::Replay, "Extension/Replay/XAddr"}};
    for (const auto& place : places) {
        const QUrl address(list.textAt(QLatin1String(place.path)), QUrl::StrictMode);
        if (!address.isEmpty() && address.isValid())
            found.insert(place.service, address);
    }
    return found;
}

DeviceIdentity deviceInformation(const SoapElement& payload)
{
    return {shownText(payload.textAt(QLatin1String("Manufacturer"))), shownText(payload.textAt(QLatin1String("Model"))),
            shownText(payload.textAt(QLatin1String("FirmwareVersion"))),
            shownText(payload.textAt(QLatin1String("SerialNumber")))};
}

QVector<VideoProfile> profiles(const SoapElement& payload)
{
    QVector<VideoProfile> found;
    for (const SoapElement* element : payload.all(QLatin1String("Profiles"))) {
        const SoapElement& size = element->at(QLatin1String("VideoEncoderConfiguration/Resolution"));
        const int width = qBound(0, size.textAt(QLatin1String("Width")).toInt(), maxPictureSide);
        const int height = qBound(0, size.textAt(QLatin1String("Height")).toInt(), maxPictureSide);
        found.append(
            {tokenText(element->attribute(QLatin1String("token"))), shownText(element->textAt(QLatin1String("Name"))),
             tokenText(element->textAt(QLatin1String("VideoSourceConfiguration/SourceToken"))), width * height});
    }
    return found;
}

QStringList videoSourceTokens(const SoapElement& payload)
{
    QStringList tokens;
    for (const SoapElement* element : payload.all(QLatin1String("VideoSources")))
        tokens.append(tokenText(element->attribute(QLatin1String("token"))));
    return tokens;
}

QVector<RecordingEntry> recordings(const SoapElement& payload)
{
    QVector<RecordingEntry> found;
    for (const SoapElement* element : payload.all(QLatin1String("RecordingItem"))) {
        RecordingEntry entry;
        entry.token = tokenText(element->textAt(QLatin1String("RecordingToken")));
        entry.sourceId = shownText(element->textAt(QLatin1String("Configuration/Source/SourceId")));
        entry.sourceName = shownText(element->textAt(QLatin1String("Configuration/Source/Name")));
        for (const SoapElement* track : element->at(QLatin1String("Tracks")).all(QLatin1String("Track"))) {
            if (track->textAt(QLatin1String("Configuration/TrackType")) == QLatin1String("Video"))
                entry.videoTracks.append(tokenText(track->textAt(QLatin1String("TrackToken"))));
        }
        if (!entry.token.isEmpty())
            found.append(entry);
    }
    return found;
}

QString searchToken(const SoapElement& payload)
{
    return tokenText(payload.textAt(QLatin1String("SearchToken")));
}

SearchResults<RecordingEntry> recordingSearchResults(const SoapElement& payload)
{
    SearchResults<RecordingEntry> results;
    const SoapElement& list = payload.at(QLatin1String("ResultList"));
    results.isValid = !list.isNull();
    results.completed = searchCompleted(list);
    for (const SoapElement* element : list.all(QLatin1String("RecordingInformation"))) {
        RecordingEntry entry = recordingInformation(*element);
        if (!entry.token.isEmpty())
            results.entries.append(entry);
    }
    return results;
}

SearchResults<EventEntry> eventSearchResults(const SoapElement& payload)
{
    SearchResults<EventEntry> results;
    const SoapElement& list = payload.at(QLatin1String("ResultList"));
    results.isValid = !list.isNull();
    results.completed = searchCompleted(list);
    for (const SoapElement* element : list.all(QLatin1String("Result"))) {
        const SoapElement& message = element->at(QLatin1String("Event/Message/Message"));
        std::optional<qint64> time = parseDateTime(element->textAt(QLatin1String("Time")));
        if (!time)
            time = parseDateTime(message.attribute(QLatin1String("UtcTime")));
        if (!time)
            continue;
        EventEntry entry;
        entry.recordingToken = tokenText(element->textAt(QLatin1String("RecordingToken")));
        entry.trackToken = tokenText(element->textAt(QLatin1String("TrackToken")));
        entry.timeMs = *time;
        entry.topic = plainTopic(element->textAt(QLatin1String("Event/Topic")));
        entry.isStartState = booleanText(element->textAt(QLatin1String("StartStateEvent"))).value_or(false);
        for (const SoapElement* item : message.at(QLatin1String("Source")).all(QLatin1String("SimpleItem")))
            entry.sourceKey += item->attribute(QLatin1String("Value")).left(maxTokenLength) + QLatin1Char('\n');
        for (const SoapElement* item : message.at(QLatin1String("Data")).all(QLatin1String("SimpleItem"))) {
            if (!entry.state)
                entry.state = booleanText(item->attribute(QLatin1String("Value")));
        }
        results.entries.append(entry);
    }
    return results;
}

QString endpointReference(const SoapElement& payload)
{
    return endpointId(payload.textAt(QLatin1String("GUID")));
}

QUrl replayUri(const SoapElement& payload)
{
    return rtspUri(payload.textAt(QLatin1String("Uri")));
}

QUrl streamUri(const SoapElement& payload)
{
    return rtspUri(payload.textAt(QLatin1String("MediaUri/Uri")));
}

} // namespace answers

QString endpointId(const QString& reference)
{
    if (reference.size() > maxTokenLength)
        return {};
    QString id = shownText(reference).toLower();
    for (const QLatin1String prefix : {QLatin1String("urn:"), QLatin1String("uuid:")}) {
        if (id.startsWith(prefix))
            id.remove(0, prefix.size());
    }
    return id;
}

} // namespace vms_sdk::onvif
