#pragma once

#include <QStringList>
#include <QWidget>

namespace vemo_client {

class LanguageButton;

/// Above the form of a page before the login: mark and name, at the trailing end language and theme. GUI thread.
class AuthHeader final : public QWidget
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(AuthHeader)

public:
    AuthHeader(const QStringList& languages, const QString& language, QWidget* parent = nullptr);

    /// Another language brings new pages, so it is offered only where nothing is lost by that.
    void offerLanguages(bool areOffered);

signals:
    void signalLanguageChosen(const QString& name);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    LanguageButton* m_language;
};

} // namespace vemo_client
