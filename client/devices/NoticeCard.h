#pragma once

#include <ThemeTokens.h>

#include <QWidget>

class QLabel;
class QPushButton;

namespace vemo_client {

/// A notice inside a page or a form: icon, title, sentences and, where there is something that helps, a button; on a
/// ground tinted in the colour of its weight. GUI thread.
class NoticeCard final : public QWidget
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(NoticeCard)

public:
    enum class Weight : int { Unknown = 0, Warning, Error };

    explicit NoticeCard(QWidget* parent = nullptr);

    /// An empty `deed`: no button.
    void tell(Weight weight, const QString& title, const QString& text, const QString& deed = QString());
    QString title() const;

signals:
    void signalDeed();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    vemo_base::Token token() const;

    Weight m_weight = Weight::Unknown;
    QLabel* m_title = nullptr;
    QLabel* m_text = nullptr;
    QPushButton* m_deed = nullptr;
};

} // namespace vemo_client
