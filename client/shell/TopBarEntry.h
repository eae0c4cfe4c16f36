#pragma once

#include <QAbstractButton>

namespace vemo_client {

/// A module in the top bar: icon and word, the current one with a bar below. GUI thread.
class TopBarEntry final : public QAbstractButton
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(TopBarEntry)

public:
    TopBarEntry(const QString& key, const QString& text, const QString& iconName, QWidget* parent);

    const QString& key() const { return m_key; }

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    QFont strongFont() const;

    QString m_key;
    bool m_keyboardFocus = false;
};

} // namespace vemo_client
