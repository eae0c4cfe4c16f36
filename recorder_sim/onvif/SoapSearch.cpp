#include "onvif/SoapSearch.h"

#include "onvif/RecordingDescription.h"
#include "onvif/SearchSessions.h"

#include <algorithm>
#include <limits>

namespace recorder_sim {
namespace {

constexpr auto tse = onvif_ns::search;
constexpr auto tt = onvif_ns::schema;
constexpr auto wsnt = onvif_ns::notification;
constexpr char stateTopic[] = "RecordingHistory/Track/State";
constexpr char alarmTopic[] = "VideoSource/MotionAlarm";
constexpr std::int64_t defaultKeepAliveMs = 10'000;

SoapFault invalidToken()
{
    return SoapFault::sender("ter:InvalidArgVal", "ter:InvalidToken", QStringLiteral("There is no such search"));
}

/// A topic expression of alternatives such as "tns1:RecordingHistory//.|tns1:VideoSource/MotionAlarm"; empty: all.
bool topicMatches(const QString& expression, const char* topic)
{
    const QString name = QLatin1String(topic);
    const QStringList alternatives = expression.split(QLatin1Char('|'), Qt::SkipEmptyParts);
    return alternatives.isEmpty() || std::any_of(alternatives.begin(), alternatives.end(), [&](QString one) {
               one = one.trimmed().section(QLatin1Char(':'), -1);
               if (!one.endsWith(QLatin1String("//.")))
                   return one == name;
               one.chop(3);
               return name == one || name.startsWith(one + QLatin1Char('/'));
           });
}

/// The channels of Scope/IncludedRecordings; all when it names none.
std::vector<int> channelsOfScope(const RecorderState& recorder, const XmlNode& request)
{
    const XmlNode* scope = request.child("Scope");
    const std::vector<QString> tokens = scope ? scope->textsOf("IncludedRecordings") : std::vector<QString>();
    std::vector<int> channels;
    for (int channel = 1; channel <= recorder.options.channels; ++channel) {
        if (tokens.empty() || std::find(tokens.begin(), tokens.end(), tokenOf("recording", channel)) != tokens.end())
            channels.push_back(channel);
    }
    return channels;
}

std::size_t limitOf(const XmlNode& request, const char* name, std::size_t fallback)
{
    bool ok = false;
    const uint value = request.textAt(name).toUInt(&ok);
    return ok && value > 0 ? value : fallback;
}

void addEdges(std::vector<SearchItem>& items, int channel, int track, const std::vector<TimeSpan>& spans)
{
    for (const TimeSpan& span : spans) {
        items.push_back({channel, span.beginNs, track, true, false});
        items.push_back({channel, span.endNs, track, false, false});
    }
}

/// What held at a point of time, as an event of that time.
void addStartState(std::vector<SearchItem>& items, int channel, int track, const std::vector<TimeSpan>& spans,
                   std::int64_t utcNs)
{
    const bool inside = std::any_of(spans.begin(), spans.end(),
                                    [&](const TimeSpan& span) { return span.beginNs <= utcNs && utcNs < span.endNs; });
    items.push_back({channel, utcNs, track, inside, true});
}

SoapFault getRecordingSummary(SoapContext& context, const XmlNode&, QXmlStreamWriter& xml)
{
    const TimeSpan whole = context.recorder.channels.front().calendar.whole();
    const XmlElement response(xml, tse, "GetRecordingSummaryResponse");
    const XmlElement summary(xml, tse, "Summary");
    writeText(xml, tt, "DataFrom", xsdTime(whole.beginNs));
    writeText(xml, tt, "DataUntil", xsdTime(whole.endNs));
    writeText(xml, tt, "NumberRecordings", QString::number(context.recorder.options.channels));
    return {};
}

SoapFault getRecordingInformation(SoapContext& context, const XmlNode& request, QXmlStreamWriter& xml)
{
    const int channel = channelOf(context.recorder, "recording", request.textAt("RecordingToken"));
    if (channel == 0)
        return noSuchRecording();
    const XmlElement response(xml, tse, "GetRecordingInformationResponse");
    writeRecordingInformation(xml, tse, context.recorder, channel);
    return {};
}

SoapFault findRecordings(SoapContext& context, const XmlNode& request, QXmlStreamWriter& xml)
{
    std::vector<SearchItem> items;
    for (const int channel : channelsOfScope(context.recorder, request))
        items.push_back({channel, 0, -1, false, false});
    items.resize(std::min(items.size(), limitOf(request, "MaxMatches", items.size())));
    const std::int64_t keepAliveMs = parseDurationMs(request.textAt("KeepAliveTime"), defaultKeepAliveMs);
    const XmlElement response(xml, tse, "FindRecordingsResponse");
    writeText(xml, tse, "SearchToken",
              context.searches.begin(SearchSessions::Kind::Recordings, std::move(items), keepAliveMs));
    return {};
}

SoapFault findEvents(SoapContext& context, const XmlNode& request, QXmlStreamWriter& xml)
{
    std::int64_t start = 0;
    std::int64_t end = std::numeric_limits<std::int64_t>::max();
    const QString endText = request.textAt("EndPoint");
    if (!parseXsdTime(request.textAt("StartPoint"), start) || (!endText.isEmpty() && !parseXsdTime(endText, end)))
        return SoapFault::sender("ter:InvalidArgVal", "ter:InvalidTime",
                                 QStringLiteral("StartPoint and EndPoint want times"));
    const bool backwards = end < start;
    const QString topics = request.textAt("SearchFilter/TopicExpression") + request.textAt("SearchFilter/TopicFilter");
    const bool states = topicMatches(topics, stateTopic);
    const bool alarms = topicMatches(topics, alarmTopic);
    const bool startStates = request.textAt("IncludeStartState") == QLatin1String("true");

    std::vector<SearchItem> items;
    std::vector<SearchItem> first;
    for (const int channel : channelsOfScope(context.recorder, request)) {
        const RecordingCalendar& calendar = context.recorder.channel(channel)->calendar;
        for (int track = -1; track < static_cast<int>(std::size(recordingTracks)); ++track) {
            if (!(track < 0 ? alarms : states))
                continue;
            const std::vector<TimeSpan>& spans = track < 0 ? calendar.alarms() : calendar.segments();
            addEdges(items, channel, track, spans);
            if (startStates)
                addStartState(first, channel, track, spans, start);
        }
    }
    const std::int64_t from = std::min(start, end);
    const std::int64_t until = std::max(start, end);
    items.erase(std::remove_if(items.begin(), items.end(),
                               [&](const SearchItem& i) { return i.utcNs < from || i.utcNs > until; }),
                items.end());
    std::stable_sort(items.begin(), items.end(), [&](const SearchItem& a, const SearchItem& b) {
        return backwards ? b.utcNs < a.utcNs : a.utcNs < b.utcNs;
    });
    items.insert(items.begin(), first.begin(), first.end());
    items.resize(std::min(items.size(), limitOf(request, "MaxMatches", items.size())));
    const std::int64_t keepAliveMs = parseDurationMs(request.textAt("KeepAliveTime"), defaultKeepAliveMs);
    const XmlElement response(xml, tse, "FindEventsResponse");
    writeText(xml, tse, "SearchToken",
              context.searches.begin(SearchSessions::Kind::Events, std::move(items), keepAliveMs));
    return {};
}

/// A page of results; with the fault slow-search, the first answers are empty.
bool takePage(SoapContext& context, const XmlNode& request, SearchSessions::Kind kind, SearchSessions::Page& page)
{
    const QString token = request.textAt("SearchToken");
    const bool early = context.searches.asked(token) <= context.recorder.faults.number("slow-search").value_or(0);
    return context.searches.take(token, kind, early ? 0 : limitOf(request, "MaxResults", 1000), page);
}

void writeState(QXmlStreamWriter& xml, const SearchSessions::Page& page)
{
    writeText(xml, tt, "SearchState", page.completed ? QStringLiteral("Completed") : QStringLiteral("Searching"));
}

SoapFault getRecordingSearchResults(SoapContext& context, const XmlNode& request, QXmlStreamWriter& xml)
{
    SearchSessions::Page page;
    if (!takePage(context, request, SearchSessions::Kind::Recordings, page))
        return invalidToken();
    const XmlElement response(xml, tse, "GetRecordingSearchResultsResponse");
    const XmlElement list(xml, tse, "ResultList");
    writeState(xml, page);
    for (const SearchItem& item : page.items)
        writeRecordingInformation(xml, tt, context.recorder, item.channel);
    return {};
}

void writeSimpleItem(QXmlStreamWriter& xml, const char* name, const QString& value)
{
    XmlElement item(xml, tt, "SimpleItem");
    item.attribute("Name", QLatin1String(name)).attribute("Value", value);
}

void writeEvent(QXmlStreamWriter& xml, const SearchItem& item)
{
    const bool alarm = item.track < 0;
    const QString track = QLatin1String(recordingTracks[alarm ? 0 : item.track].token);
    const XmlElement result(xml, tt, "Result");
    writeText(xml, tt, "RecordingToken", tokenOf("recording", item.channel));
    writeText(xml, tt, "TrackToken", track);
    writeText(xml, tt, "Time", xsdTime(item.utcNs));
    {
        const XmlElement event(xml, tt, "Event");
        {
            XmlElement topic(xml, wsnt, "Topic");
            topic.attribute("Dialect", QStringLiteral("http://www.onvif.org/ver10/tev/topicExpression/ConcreteSet"));
            xml.writeCharacters(QStringLiteral("tns1:") + QLatin1String(alarm ? alarmTopic : stateTopic));
        }
        const XmlElement holder(xml, wsnt, "Message");
        XmlElement message(xml, tt, "Message");
        message.attribute("UtcTime", xsdTime(item.utcNs))
            .attribute("PropertyOperation",
                       item.startState ? QStringLiteral("Initialized") : QStringLiteral("Changed"));
        {
            const XmlElement source(xml, tt, "Source");
            if (alarm) {
                writeSimpleItem(xml, "Source", tokenOf("source", item.channel));
            } else {
                writeSimpleItem(xml, "RecordingToken", tokenOf("recording", item.channel));
                writeSimpleItem(xml, "Track", track);
            }
        }
        const XmlElement data(xml, tt, "Data");
        writeSimpleItem(xml, alarm ? "State" : "IsDataPresent", trueOrFalse(item.value));
    }
    writeText(xml, tt, "StartStateEvent", trueOrFalse(item.startState));
}

SoapFault getEventSearchResults(SoapContext& context, const XmlNode& request, QXmlStreamWriter& xml)
{
    SearchSessions::Page page;
    if (!takePage(context, request, SearchSessions::Kind::Events, page))
        return invalidToken();
    const XmlElement response(xml, tse, "GetEventSearchResultsResponse");
    const XmlElement list(xml, tse, "ResultList");
    writeState(xml, page);
    for (const SearchItem& item : page.items)
        writeEvent(xml, item);
    return {};
}

SoapFault endSearch(SoapContext& context, const XmlNode& request, QXmlStreamWriter& xml)
{
    if (!context.searches.end(request.textAt("SearchToken")))
        return invalidToken();
    const XmlElement response(xml, tse, "EndSearchResponse");
    writeText(xml, tse, "Endpoint", xsdTime(context.recorder.channels.front().calendar.whole().endNs));
    return {};
}

SoapFault getServiceCapabilities(SoapContext&, const XmlNode&, QXmlStreamWriter& xml)
{
    const XmlElement response(xml, tse, "GetServiceCapabilitiesResponse");
    XmlElement all(xml, tse, "Capabilities");
    all.attribute("MetadataSearch", QStringLiteral("false")).attribute("GeneralStartEvents", QStringLiteral("true"));
    return {};
}

} // namespace

const std::vector<SoapOperationEntry>& searchOperations()
{
    static const std::vector<SoapOperationEntry> operations = {
        {"GetServiceCapabilities", getServiceCapabilities, false},
        {"GetRecordingSummary", getRecordingSummary, true},
        {"GetRecordingInformation", getRecordingInformation, true},
        {"FindRecordings", findRecordings, true},
        {"GetRecordingSearchResults", getRecordingSearchResults, true},
        {"FindEvents", findEvents, true},
        {"GetEventSearchResults", getEventSearchResults, true},
        {"EndSearch", endSearch, true},
    };
    return operations;
}

} // namespace recorder_sim
