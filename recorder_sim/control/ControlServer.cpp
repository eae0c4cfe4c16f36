#include "control/ControlServer.h"

#include "control/GroundTruth.h"

#include <QDateTime>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <cstdlib>
#include <limits>
#include <optional>

namespace recorder_sim {
namespace {

HttpResponse refuse(int status, const std::string& text)
{
    HttpResponse response;
    response.status = status;
    response.body = text + "\n";
    return response;
}

HttpResponse json(const QJsonDocument& document)
{
    HttpResponse response;
    response.contentType = "application/json";
    response.body = document.toJson(QJsonDocument::Compact).toStdString() + "\n";
    return response;
}

QString isoText(std::int64_t utcNs)
{
    return QDateTime::fromMSecsSinceEpoch(utcNs / 1'000'000, Qt::UTC).toString(Qt::ISODateWithMs);
}

/// ISO 8601; without an offset in the recorder's zone.
std::optional<std::int64_t> parseIso(const std::string& text, const QTimeZone& zone)
{
    QDateTime time = QDateTime::fromString(QString::fromStdString(text), Qt::ISODateWithMs);
    if (!time.isValid())
        return std::nullopt;
    if (time.timeSpec() == Qt::LocalTime)
        time = QDateTime(time.date(), time.time(), zone);
    return time.toMSecsSinceEpoch() * 1'000'000;
}

} // namespace

ControlServer::ControlServer(RecorderState& recorder, std::function<void(int seconds)> goOffline)
    : m_recorder(recorder)
    , m_goOffline(std::move(goOffline))
{}

HttpResponse ControlServer::handle(const TextRequest& request, const ByteStream& /*stream*/)
{
    const std::string path = pathOf(request.target);
    if (path == "/fault" && request.method == "POST")
        return setFault(request.target);
    if (path == "/fault" && request.method == "DELETE") {
        m_recorder.faults.clear(queryValue(request.target, "name"));
        return listFaults();
    }
    if (path == "/reset" && request.method == "POST") {
        m_recorder.faults.reset();
        return listFaults();
    }
    if (request.method != "GET")
        return refuse(405, "only GET is known there");
    if (path == "/faults")
        return listFaults();
    if (path == "/stats")
        return statistics();
    if (path == "/recordings")
        return recordings(request.target);
    if (path == "/samples")
        return samples(request.target);
    return refuse(404, "known are /fault /faults /reset /stats /recordings /samples");
}

HttpResponse ControlServer::setFault(const std::string& target)
{
    Fault fault;
    fault.name = queryValue(target, "name");
    fault.value = queryValue(target, "value");
    fault.channel = std::atoi(queryValue(target, "channel").c_str());
    fault.count = std::atoi(queryValue(target, "count").c_str());
    if (fault.name == "offline") {
        m_goOffline(std::atoi(fault.value.c_str()));
        return listFaults();
    }
    std::string error;
    if (!m_recorder.faults.set(fault, error))
        return refuse(400, error);
    return listFaults();
}

HttpResponse ControlServer::listFaults() const
{
    QJsonArray list;
    for (const Fault& fault : m_recorder.faults.all()) {
        list.append(QJsonObject{{QStringLiteral("name"), QString::fromStdString(fault.name)},
                                {QStringLiteral("value"), QString::fromStdString(fault.value)},
                                {QStringLiteral("channel"), fault.channel},
                                {QStringLiteral("count"), fault.count}});
    }
    return json(QJsonDocument(list));
}

HttpResponse ControlServer::statistics() const
{
    const Statistics& s = m_recorder.statistics;
    const auto value = [](const std::atomic<std::int64_t>& v) { return static_cast<double>(v.load()); };
    return json(QJsonDocument(QJsonObject{{QStringLiteral("rtspConnections"), value(s.rtspConnections)},
                                          {QStringLiteral("rtspSessions"), value(s.rtspSessions)},
                                          {QStringLiteral("playing"), value(s.playing)},
                                          {QStringLiteral("streamBytes"), value(s.streamBytes)},
                                          {QStringLiteral("plays"), value(s.plays)},
                                          {QStringLiteral("soapRequests"), value(s.soapRequests)},
                                          {QStringLiteral("loginsRefused"), value(s.loginsRefused)}}));
}

HttpResponse ControlServer::recordings(const std::string& target) const
{
    const ChannelFootage* footage = m_recorder.channel(std::atoi(queryValue(target, "channel").c_str()));
    if (!footage)
        return refuse(404, "no such channel");
    QJsonArray list;
    for (const RecordedSpan& span : footage->calendar.spans({0, std::numeric_limits<std::int64_t>::max()})) {
        list.append(QJsonObject{{QStringLiteral("begin"), isoText(span.span.beginNs)},
                                {QStringLiteral("end"), isoText(span.span.endNs)},
                                {QStringLiteral("alarm"), span.alarm}});
    }
    return json(QJsonDocument(list));
}

HttpResponse ControlServer::samples(const std::string& target) const
{
    const int number = std::atoi(queryValue(target, "channel").c_str());
    const ChannelFootage* footage = m_recorder.channel(number);
    if (!footage)
        return refuse(404, "no such channel");
    const auto begin = parseIso(queryValue(target, "begin"), footage->zone);
    const auto end = parseIso(queryValue(target, "end"), footage->zone);
    if (!begin || !end || *begin >= *end)
        return refuse(400, "begin and end want ISO 8601 times, begin before end");
    HttpResponse response;
    response.contentType = "application/x-ndjson";
    const ReplaySchedule schedule = footage->schedule(m_recorder.faultyRange(number, *begin, *end));
    response.writeBody = [schedule](const HttpResponse::Sink& sink) { writeSamples(schedule, sink); };
    return response;
}

} // namespace recorder_sim
