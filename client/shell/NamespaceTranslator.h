#pragma once

#include <QTranslator>

namespace vemo_client {

/// Translations of the client's texts. A function outside a class asks under the name of what it belongs to, while the
/// catalogue, made by lupdate, files its texts under the enclosing namespace: what is not found under a name is looked
/// for under the names around it.
class NamespaceTranslator final : public QTranslator
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(NamespaceTranslator)

public:
    explicit NamespaceTranslator(QObject* parent = nullptr);

    QString translate(const char* context, const char* sourceText, const char* disambiguation, int n) const override;
};

} // namespace vemo_client
