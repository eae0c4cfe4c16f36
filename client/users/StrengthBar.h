#pragma once

#include <ThemeTokens.h>

#include <QWidget>

namespace vemo_client {

/// How hard a password is to guess: four pieces and a word. Empty while there is no password. GUI thread.
class StrengthBar final : public QWidget
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(StrengthBar)

public:
    explicit StrengthBar(QWidget* parent = nullptr);

    void setPassword(const QString& password);
    const QString& word() const { return m_word; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    int m_filled = 0;
    vemo_base::Token m_token = vemo_base::Token::Error;
    QString m_word;
};

} // namespace vemo_client
