#pragma once

#include "onvif/SoapEnvelope.h"
#include "RecorderState.h"

#include <QString>
#include <QXmlStreamWriter>

namespace recorder_sim {

class SearchSessions;

/// What an operation may look at beside its request.
struct SoapContext
{
    RecorderState& recorder;
    SearchSessions& searches;
    QString host;    ///< as the client names it, without port
    QString baseUrl; ///< scheme, host and port of the ONVIF address
    bool encrypted = false;

    /// The address of a stream, over TLS when the request came so.
    QString rtspUrl(const QString& path) const
    {
        const ServerPorts& ports = recorder.ports;
        const bool tls = encrypted && ports.rtsps != 0;
        return QStringLiteral("%1://%2:%3%4")
            .arg(tls ? QStringLiteral("rtsps") : QStringLiteral("rtsp"), host,
                 QString::number(tls ? ports.rtsps : ports.rtsp), path);
    }
};

/// One operation: writes the response's content, or gives back a fault (what it wrote is thrown away then).
using SoapOperation = SoapFault (*)(SoapContext& context, const XmlNode& request, QXmlStreamWriter& xml);

struct SoapOperationEntry
{
    const char* name;
    SoapOperation operation;
    bool needsLogin = true;
};

// What the services' writers share.

/// Starts and ends an element; lives as long as the element is open.
class XmlElement final
{
public:
    XmlElement(QXmlStreamWriter& xml, const char* nameSpace, const char* name)
        : m_xml(xml)
    {
        m_xml.writeStartElement(QLatin1String(nameSpace), QLatin1String(name));
    }
    ~XmlElement() { m_xml.writeEndElement(); }
    XmlElement(const XmlElement&) = delete;
    XmlElement& operator=(const XmlElement&) = delete;

    XmlElement& attribute(const char* name, const QString& value)
    {
        m_xml.writeAttribute(QLatin1String(name), value);
        return *this;
    }

private:
    QXmlStreamWriter& m_xml;
};

inline void writeText(QXmlStreamWriter& xml, const char* nameSpace, const char* name, const QString& text)
{
    xml.writeTextElement(QLatin1String(nameSpace), QLatin1String(name), text);
}

inline QString trueOrFalse(bool value)
{
    return value ? QStringLiteral("true") : QStringLiteral("false");
}

/// "recording_3" and 3; 0 when the token is no recording's of this recorder.
inline QString tokenOf(const char* kind, int channel)
{
    return QLatin1String(kind) + QLatin1Char('_') + QString::number(channel);
}

inline int channelOf(const RecorderState& recorder, const char* kind, const QString& token)
{
    for (int channel = 1; channel <= recorder.options.channels; ++channel) {
        if (token == tokenOf(kind, channel))
            return channel;
    }
    return 0;
}

inline QString channelName(const RecorderState& recorder, int channel)
{
    return recorder.options.names.value(channel, QStringLiteral("Camera %1").arg(channel));
}

} // namespace recorder_sim
