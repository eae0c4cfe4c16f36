#pragma once

#include <QDialog>

class QHBoxLayout;
class QLabel;
class QPushButton;
class QVBoxLayout;

namespace vemo_client {

/// A dialog as all of them look: title, a sentence, a body, buttons trailing. Modal; open it with open(), it deletes
/// itself. Esc and "Cancel" reject it. GUI thread.
class TitledDialog : public QDialog
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(TitledDialog)

public:
    TitledDialog(const QString& title, const QString& sentence, int width, QWidget* parent);

protected:
    QVBoxLayout* body() const { return m_body; }
    QHBoxLayout* buttons() const { return m_buttons; }
    QPushButton* cancelButton() const { return m_cancel; }
    void setSentence(const QString& sentence);
    /// As high as the wrapped words need: nothing of them is cut.
    void fitHeight();

    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    QLabel* m_sentence;
    QVBoxLayout* m_body;
    QHBoxLayout* m_buttons;
    QPushButton* m_cancel;
};

} // namespace vemo_client
