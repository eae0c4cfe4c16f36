#include "NamespaceTranslator.h"

#include <QByteArray>

namespace vemo_client {

NamespaceTranslator::NamespaceTranslator(QObject* parent)
    : QTranslator(parent)
{}

QString NamespaceTranslator::translate(const char* context, const char* sourceText, const char* disambiguation,
                                       int n) const
{
    QByteArray name(context);
    for (;;) {
        const QString text = QTranslator::translate(name.constData(), sourceText, disambiguation, n);
        const int outer = name.lastIndexOf("::");
        if (!text.isEmpty() || outer < 0)
            return text;
        name.truncate(outer);
    }
}

} // namespace vemo_client
