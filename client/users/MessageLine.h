#pragma once

#include <ThemeTokens.h>

#include <QWidget>

class QLabel;

namespace vemo_client {

/// One or two lines of small words below a field or a form, with an icon in front; keeps its room while it is empty.
/// GUI thread.
class MessageLine final : public QWidget
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(MessageLine)

public:
    enum class Tone : int { Unknown = 0, Plain, Success, Warning, Error };

    explicit MessageLine(QWidget* parent = nullptr);

    /// `icon` empty: the one that belongs to the tone.
    void tell(Tone tone, const QString& text, const QString& icon = QString());
    void clear();
    QString text() const;

protected:
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    vemo_base::Token token() const;
    void tint();

    QLabel* m_words;
    Tone m_tone = Tone::Plain;
    QString m_icon;
};

} // namespace vemo_client
