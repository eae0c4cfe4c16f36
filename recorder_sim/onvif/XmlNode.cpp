#include "onvif/XmlNode.h"

#include <QStringList>
#include <QXmlStreamReader>

namespace recorder_sim {
namespace {

constexpr int maxDepth = 64;

bool readElement(QXmlStreamReader& reader, XmlNode& node, int depth)
{
    if (depth > maxDepth)
        return false;
    node.nameSpace = reader.namespaceUri().toString();
    node.name = reader.name().toString();
    while (!reader.atEnd()) {
        switch (reader.readNext()) {
        case QXmlStreamReader::StartElement:
            node.children.emplace_back();
            if (!readElement(reader, node.children.back(), depth + 1))
                return false;
            break;
        case QXmlStreamReader::Characters:
            node.text += reader.text();
            break;
        case QXmlStreamReader::EndElement:
            node.text = node.text.trimmed();
            return true;
        case QXmlStreamReader::DTD:
        case QXmlStreamReader::EntityReference:
        case QXmlStreamReader::Invalid:
            return false;
        default:
            break;
        }
    }
    return false;
}

} // namespace

const XmlNode* XmlNode::child(const char* localName) const
{
    for (const XmlNode& node : children) {
        if (node.name == QLatin1String(localName))
            return &node;
    }
    return nullptr;
}

QString XmlNode::textAt(const char* path) const
{
    const XmlNode* node = this;
    for (const QString& part : QString::fromLatin1(path).split(QLatin1Char('/'))) {
        node = node->child(part.toLatin1().constData());
        if (!node)
            return {};
    }
    return node->text;
}

std::vector<QString> XmlNode::textsOf(const char* localName) const
{
    std::vector<QString> out;
    for (const XmlNode& node : children) {
        if (node.name == QLatin1String(localName))
            out.push_back(node.text);
    }
    return out;
}

bool XmlNode::parse(const QByteArray& document, XmlNode& root)
{
    QXmlStreamReader reader(document);
    while (!reader.atEnd()) {
        const QXmlStreamReader::TokenType token = reader.readNext();
        if (token == QXmlStreamReader::StartElement)
            return readElement(reader, root, 1);
        if (token == QXmlStreamReader::DTD || token == QXmlStreamReader::Invalid)
            return false;
    }
    return false;
}

} // namespace recorder_sim
