#pragma once

#include "Error.h"

#include <QByteArray>
#include <QCoreApplication>

namespace vms_sdk::onvif {

/// Bounds of an XML document that a device may send.
struct XmlLimits
{
    int documentBytes = 8 * 1024 * 1024;
    int depth = 64;
    int attributesOfAnElement = 64;
    int tagBytes = 64 * 1024;
    int elements = 100'000;
};

/// Walks over the bytes of a document before a parser sees them, in one pass and without allocating, and refuses what
/// would cost a parser memory or time: a document type definition at its first token (and with it every entity),
/// nesting, attributes and elements beyond their limits, an encoding other than UTF-8 that could hide markup. It does
/// not judge whether the document is well formed; the parser does. Pure, any thread.
class XmlGuard final
{
    Q_DECLARE_TR_FUNCTIONS(vms_sdk::onvif::XmlGuard)

public:
    explicit XmlGuard(const XmlLimits& limits)
        : m_limits(limits)
    {}

    /// No error, or Corrupt with a sentence that names the limit.
    Error check(const QByteArray& document);

private:
    Error refused(const QString& message) const;
    Error skipMarkup(const QByteArray& document);
    Error skipStartTag(const QByteArray& document);
    bool skipPast(const QByteArray& document, const char* terminator);

    const XmlLimits m_limits;
    int m_position = 0;
    int m_depth = 0;
    int m_elements = 0;
};

} // namespace vms_sdk::onvif
