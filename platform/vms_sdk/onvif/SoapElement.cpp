#include "SoapElement.h"

#include <algorithm>

namespace vms_sdk::onvif {

const SoapElement& SoapElement::at(QLatin1String path) const
{
    static const SoapElement nothing;
    const SoapElement* element = this;
    int begin = 0;
    while (begin <= path.size()) {
        const int slash = path.indexOf(QLatin1Char('/'), begin);
        const int end = slash < 0 ? path.size() : slash;
        const QLatin1String step = path.mid(begin, end - begin);
        const auto found = std::find_if(element->children.cbegin(), element->children.cend(),
                                        [step](const SoapElement& child) { return child.name == step; });
        if (found == element->children.cend())
            return nothing;
        element = &*found;
        begin = end + 1;
    }
    return *element;
}

QString SoapElement::attribute(QLatin1String attributeName) const
{
    for (const auto& attribute : attributes) {
        if (attribute.first == attributeName)
            return attribute.second;
    }
    return {};
}

QVector<const SoapElement*> SoapElement::all(QLatin1String childName) const
{
    QVector<const SoapElement*> found;
    for (const SoapElement& child : children) {
        if (child.name == childName)
            found.append(&child);
    }
    return found;
}

} // namespace vms_sdk::onvif
