#pragma once

#include <ThemeTokens.h>

#include <QAbstractButton>

namespace vemo_client {

/// One fact in the status bar: an icon, words and, if wanted, a bar. A click leads to what it is about. GUI thread.
class StatusItem final : public QAbstractButton
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(StatusItem)

public:
    explicit StatusItem(const QString& iconName, QWidget* parent = nullptr);

    /// What the words speak of, ahead of them in a lighter colour.
    void setCaption(const QString& caption);
    /// `sample` is the longest text that is usual; the item keeps its room, so that its neighbours stay where they are.
    void setSample(const QString& sample);
    void setStrong(bool strong);
    void setTone(vemo_base::Token tone);
    void setWords(const QString& words);
    /// 0 to 1; below 0: no bar.
    void setFraction(double fraction);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QFont wordsFont() const;

    int captionWidth() const;

    QString m_iconName;
    QString m_caption;
    QString m_sample;
    bool m_strong = false;
    vemo_base::Token m_tone = vemo_base::Token::Text2;
    double m_fraction = -1;
};

} // namespace vemo_client
