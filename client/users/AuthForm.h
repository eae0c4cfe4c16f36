#pragma once

#include <QWidget>

class QLabel;
class QPushButton;
class QVBoxLayout;

namespace vemo_client {

class MessageLine;

/// One column of a page before the login: step, title, sentence, labelled fields, one primary button, notes. Lays out
/// only; what is typed and what happens is the page's own business. GUI thread.
class AuthForm : public QWidget
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(AuthForm)

public:
    explicit AuthForm(QWidget* parent = nullptr);
    ~AuthForm() override;

    static constexpr int columnWidth = 400;
    /// The focus ring lies outside the fields.
    static constexpr int ringRoom = 4;

signals:
    void signalDone();

protected:
    void addStep(int step);
    void addTitle(const QString& title);
    QLabel* addSentence(const QString& sentence);
    /// A label with its field below; `hint` stands at the label's trailing end.
    void addField(const QString& label, QWidget* field, const QString& hint = QString());
    static QLabel* strongLabel(const QString& text, QWidget* parent);
    MessageLine* addMessage();
    QPushButton* addPrimary(const QString& text);
    void addGap(int pixels);
    QVBoxLayout* column() { return m_column; }
    /// Call last: what is above the form is less than what is below.
    void addRest();

private:
    QVBoxLayout* m_column;
};

} // namespace vemo_client
