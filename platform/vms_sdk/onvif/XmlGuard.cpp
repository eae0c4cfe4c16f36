#include "XmlGuard.h"

#include <cstring>

namespace vms_sdk::onvif {

namespace {

bool startsAt(const QByteArray& document, int position, const char* text)
{
    const auto length = static_cast<int>(std::strlen(text));
    return document.size() - position >= length &&
           std::memcmp(document.constData() + position, text, static_cast<std::size_t>(length)) == 0;
}

} // namespace

Error XmlGuard::check(const QByteArray& document)
{
    m_position = 0;
    m_depth = 0;
    m_elements = 0;
    if (document.size() > m_limits.documentBytes)
        return refused(tr("The device's answer is larger than %1 bytes.").arg(m_limits.documentBytes));
    if (document.contains('\0'))
        return refused(tr("The device's answer is not UTF-8 text."));
    while (m_position < document.size()) {
        const int markup = document.indexOf('<', m_position);
        if (markup < 0)
            break;
        m_position = markup;
        if (const Error error = skipMarkup(document))
            return error;
    }
    return {};
}

Error XmlGuard::skipMarkup(const QByteArray& document)
{
    bool closed = true;
    if (startsAt(document, m_position, "<!--")) {
        m_position += 4;
        closed = skipPast(document, "-->");
    } else if (startsAt(document, m_position, "<![CDATA[")) {
        closed = skipPast(document, "]]>");
    } else if (startsAt(document, m_position, "<!")) {
        return refused(tr("The device's answer contains a document type definition."));
    } else if (startsAt(document, m_position, "<?")) {
        closed = skipPast(document, "?>");
    } else if (startsAt(document, m_position, "</")) {
        --m_depth;
        closed = skipPast(document, ">");
    } else {
        return skipStartTag(document);
    }
    return closed ? Error() : refused(tr("The device's answer ends in the middle of its markup."));
}

Error XmlGuard::skipStartTag(const QByteArray& document)
{
    if (++m_elements > m_limits.elements)
        return refused(tr("The device's answer has more than %1 elements.").arg(m_limits.elements));
    const int begin = m_position;
    int attributes = 0;
    char quote = 0;
    for (++m_position; m_position < document.size(); ++m_position) {
        if (m_position - begin > m_limits.tagBytes)
            return refused(tr("The device's answer has a tag longer than %1 bytes.").arg(m_limits.tagBytes));
        const char c = document.at(m_position);
        if (quote != 0) {
            if (c == quote)
                quote = 0;
        } else if (c == '"' || c == '\'') {
            quote = c;
            if (++attributes > m_limits.attributesOfAnElement)
                return refused(tr("The device's answer has an element with more than %1 attributes.")
                                   .arg(m_limits.attributesOfAnElement));
        } else if (c == '>') {
            const bool selfClosed = document.at(m_position - 1) == '/';
            ++m_position;
            if (!selfClosed && ++m_depth > m_limits.depth)
                return refused(tr("The device's answer is nested deeper than %1 elements.").arg(m_limits.depth));
            return {};
        }
    }
    return refused(tr("The device's answer ends in the middle of its markup."));
}

bool XmlGuard::skipPast(const QByteArray& document, const char* terminator)
{
    const int end = document.indexOf(terminator, m_position);
    if (end < 0)
        return false;
    m_position = end + static_cast<int>(std::strlen(terminator));
    return true;
}

Error XmlGuard::refused(const QString& message) const
{
    return {ErrorKind::Corrupt, message, QStringLiteral("XML refused at byte %1").arg(m_position)};
}

} // namespace vms_sdk::onvif
