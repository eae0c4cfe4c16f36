#pragma once

#include <QByteArray>
#include <QString>

#include <vector>

namespace recorder_sim {

/// An element of a request, with what SOAP needs: no attributes, no comments. Names are local, without prefix.
struct XmlNode
{
    QString nameSpace;
    QString name;
    QString text; ///< of this element alone
    std::vector<XmlNode> children;

    const XmlNode* child(const char* localName) const;
    /// The text below a path such as "Scope/IncludedRecordings"; empty when there is no such element.
    QString textAt(const char* path) const;
    std::vector<QString> textsOf(const char* localName) const; ///< of all children of that name

    /// Parses a whole document. False for what is no XML, has a DTD, or is deeper than 64 elements.
    static bool parse(const QByteArray& document, XmlNode& root);
};

} // namespace recorder_sim
