#pragma once

#include <QLatin1String>
#include <QPair>
#include <QString>
#include <QVector>

namespace vms_sdk::onvif {

/// One element of a SOAP answer. Names are local names: devices differ in namespaces and prefixes more often than in
/// names.
struct SoapElement
{
    QString name;
    QString namespaceUri;
    QString text; ///< character data of the element itself, trimmed
    QVector<QPair<QString, QString>> attributes;
    QVector<SoapElement> children;

    bool isNull() const { return name.isEmpty(); }
    /// The first descendant along a path of names ("Media/XAddr"); a null element when there is none.
    const SoapElement& at(QLatin1String path) const;
    QString textAt(QLatin1String path) const { return at(path).text; }
    QString attribute(QLatin1String attributeName) const;
    QVector<const SoapElement*> all(QLatin1String childName) const;
};

} // namespace vms_sdk::onvif
