#pragma once

#include "ThemeTokens.h"
#include "vemo_base_global.h"

#include <QFont>
#include <QWidget>

class QPalette;

namespace vemo_base {

/// A state in one colour: icon and word in a pill, tinted ground, outline. As a widget, or painted into a cell. The
/// colour is a token: Error, Warning, Success or AccentText. GUI thread.
class VEMO_BASE_EXPORT Chip final : public QWidget
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(Chip)

public:
    /// On a selected row the tint would cost contrast.
    enum class Ground : int { Plain = 0, Tinted };

    explicit Chip(QWidget* parent = nullptr);

    /// `iconName` may be empty.
    void setState(const QString& iconName, const QString& text, Token tone);
    QString text() const { return m_text; }

    /// In the middle of `room`, elided where it is too narrow.
    static void paint(QPainter* painter, const QRect& room, const QString& iconName, const QString& text, Token tone,
                      Ground ground, const QFont& font, const QPalette& palette);
    /// What it takes to be painted whole.
    static int widthOf(const QString& iconName, const QString& text, const QFont& font);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QString m_iconName;
    QString m_text;
    Token m_tone = Token::Text2;
};

} // namespace vemo_base
