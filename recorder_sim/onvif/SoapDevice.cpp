#include "onvif/SoapDevice.h"

#include <QDateTime>

namespace recorder_sim {
namespace {

constexpr auto tds = onvif_ns::device;
constexpr auto tt = onvif_ns::schema;

struct Service
{
    const char* nameSpace;
    const char* path;
};

constexpr Service services[] = {
    {onvif_ns::device, "/onvif/device_service"},       {onvif_ns::media, "/onvif/media_service"},
    {onvif_ns::recording, "/onvif/recording_service"}, {onvif_ns::search, "/onvif/search_service"},
    {onvif_ns::replay, "/onvif/replay_service"},
};

void writeDateTime(QXmlStreamWriter& xml, const char* name, const QDateTime& time)
{
    const XmlElement all(xml, tt, name);
    {
        const XmlElement part(xml, tt, "Time");
        writeText(xml, tt, "Hour", QString::number(time.time().hour()));
        writeText(xml, tt, "Minute", QString::number(time.time().minute()));
        writeText(xml, tt, "Second", QString::number(time.time().second()));
    }
    const XmlElement part(xml, tt, "Date");
    writeText(xml, tt, "Year", QString::number(time.date().year()));
    writeText(xml, tt, "Month", QString::number(time.date().month()));
    writeText(xml, tt, "Day", QString::number(time.date().day()));
}

/// POSIX form of a zone without its rules: the offset counts westwards.
QString posixZone(int offsetSeconds)
{
    const int minutes = offsetSeconds / 60;
    const QString sign = minutes > 0 ? QStringLiteral("-") : QString();
    const int size = minutes < 0 ? -minutes : minutes;
    QString text = QStringLiteral("LCL") + sign + QString::number(size / 60);
    if (size % 60 != 0)
        text += QStringLiteral(":%1").arg(size % 60, 2, 10, QLatin1Char('0'));
    return offsetSeconds == 0 ? QStringLiteral("UTC0") : text;
}

SoapFault getSystemDateAndTime(SoapContext& context, const XmlNode&, QXmlStreamWriter& xml)
{
    const QDateTime now = QDateTime::fromMSecsSinceEpoch(context.recorder.deviceTimeNs() / 1'000'000, Qt::UTC);
    const QDateTime local = now.toTimeZone(context.recorder.options.zone);
    const XmlElement response(xml, tds, "GetSystemDateAndTimeResponse");
    const XmlElement all(xml, tds, "SystemDateAndTime");
    writeText(xml, tt, "DateTimeType", QStringLiteral("NTP"));
    writeText(xml, tt, "DaylightSavings", trueOrFalse(context.recorder.options.zone.isDaylightTime(now)));
    {
        const XmlElement zone(xml, tt, "TimeZone");
        writeText(xml, tt, "TZ", posixZone(local.offsetFromUtc()));
    }
    writeDateTime(xml, "UTCDateTime", now);
    writeDateTime(xml, "LocalDateTime", local);
    return {};
}

SoapFault getDeviceInformation(SoapContext& context, const XmlNode&, QXmlStreamWriter& xml)
{
    const XmlElement response(xml, tds, "GetDeviceInformationResponse");
    writeText(xml, tds, "Manufacturer", QStringLiteral("Vemo"));
    const Options& options = context.recorder.options;
    writeText(xml, tds, "Model", options.names.value(0, QStringLiteral("Simulated recorder")));
    writeText(xml, tds, "FirmwareVersion", QStringLiteral("1.0"));
    writeText(xml, tds, "SerialNumber",
              options.serial.empty() ? QStringLiteral("SIM%1").arg(options.channels, 6, 10, QLatin1Char('0'))
                                     : QString::fromStdString(options.serial));
    writeText(xml, tds, "HardwareId", QStringLiteral("SIM-1"));
    return {};
}

SoapFault getEndpointReference(SoapContext& context, const XmlNode&, QXmlStreamWriter& xml)
{
    const XmlElement response(xml, tds, "GetEndpointReferenceResponse");
    writeText(xml, tds, "GUID", QString::fromStdString(context.recorder.endpoint));
    return {};
}

SoapFault getServices(SoapContext& context, const XmlNode&, QXmlStreamWriter& xml)
{
    const XmlElement response(xml, tds, "GetServicesResponse");
    for (const Service& service : services) {
        const XmlElement entry(xml, tds, "Service");
        writeText(xml, tds, "Namespace", QLatin1String(service.nameSpace));
        writeText(xml, tds, "XAddr", context.baseUrl + QLatin1String(service.path));
        const XmlElement version(xml, tds, "Version");
        writeText(xml, tt, "Major", QStringLiteral("2"));
        writeText(xml, tt, "Minor", QStringLiteral("60"));
    }
    return {};
}

void writeAddress(QXmlStreamWriter& xml, const char* name, const QString& address)
{
    const XmlElement entry(xml, tt, name);
    writeText(xml, tt, "XAddr", address);
}

SoapFault getCapabilities(SoapContext& context, const XmlNode&, QXmlStreamWriter& xml)
{
    const XmlElement response(xml, tds, "GetCapabilitiesResponse");
    const XmlElement all(xml, tds, "Capabilities");
    writeAddress(xml, "Device", context.baseUrl + QLatin1String(services[0].path));
    {
        const XmlElement media(xml, tt, "Media");
        writeText(xml, tt, "XAddr", context.baseUrl + QLatin1String(services[1].path));
        const XmlElement streaming(xml, tt, "StreamingCapabilities");
        writeText(xml, tt, "RTPMulticast", QStringLiteral("false"));
        writeText(xml, tt, "RTP_TCP", QStringLiteral("false"));
        writeText(xml, tt, "RTP_RTSP_TCP", QStringLiteral("true"));
    }
    const XmlElement extension(xml, tt, "Extension");
    {
        const XmlElement recording(xml, tt, "Recording");
        writeText(xml, tt, "XAddr", context.baseUrl + QLatin1String(services[2].path));
        for (const char* name : {"ReceiverSource", "MediaProfileSource", "DynamicRecordings", "DynamicTracks"})
            writeText(xml, tt, name, QStringLiteral("false"));
        writeText(xml, tt, "MaxStringLength", QStringLiteral("256"));
    }
    {
        const XmlElement search(xml, tt, "Search");
        writeText(xml, tt, "XAddr", context.baseUrl + QLatin1String(services[3].path));
        writeText(xml, tt, "MetadataSearch", QStringLiteral("false"));
    }
    writeAddress(xml, "Replay", context.baseUrl + QLatin1String(services[4].path));
    return {};
}

SoapFault getServiceCapabilities(SoapContext&, const XmlNode&, QXmlStreamWriter& xml)
{
    const XmlElement response(xml, tds, "GetServiceCapabilitiesResponse");
    const XmlElement all(xml, tds, "Capabilities");
    {
        const XmlElement network(xml, tds, "Network");
    }
    {
        XmlElement security(xml, tds, "Security");
        security.attribute("UsernameToken", QStringLiteral("true")).attribute("HttpDigest", QStringLiteral("true"));
    }
    const XmlElement system(xml, tds, "System");
    return {};
}

SoapFault getHostname(SoapContext&, const XmlNode&, QXmlStreamWriter& xml)
{
    const XmlElement response(xml, tds, "GetHostnameResponse");
    const XmlElement information(xml, tds, "HostnameInformation");
    writeText(xml, tt, "FromDHCP", QStringLiteral("false"));
    writeText(xml, tt, "Name", QStringLiteral("recorder"));
    return {};
}

SoapFault getScopes(SoapContext&, const XmlNode&, QXmlStreamWriter& xml)
{
    const XmlElement response(xml, tds, "GetScopesResponse");
    for (const char* scope :
         {"onvif://www.onvif.org/Profile/G", "onvif://www.onvif.org/type/Network_Video_Storage",
          "onvif://www.onvif.org/name/Simulated_recorder", "onvif://www.onvif.org/hardware/SIM-1"}) {
        const XmlElement entry(xml, tds, "Scopes");
        writeText(xml, tt, "ScopeDef", QStringLiteral("Fixed"));
        writeText(xml, tt, "ScopeItem", QLatin1String(scope));
    }
    return {};
}

} // namespace

const std::vector<SoapOperationEntry>& deviceOperations()
{
    static const std::vector<SoapOperationEntry> operations = {
        {"GetSystemDateAndTime", getSystemDateAndTime, false},
        {"GetServices", getServices, false},
        {"GetCapabilities", getCapabilities, false},
        {"GetServiceCapabilities", getServiceCapabilities, false},
        {"GetDeviceInformation", getDeviceInformation, true},
        {"GetEndpointReference", getEndpointReference, true},
        {"GetHostname", getHostname, true},
        {"GetScopes", getScopes, true},
    };
    return operations;
}

} // namespace recorder_sim
