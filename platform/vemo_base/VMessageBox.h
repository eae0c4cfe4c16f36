#pragma once

#include "vemo_base_global.h"

#include <QDialog>

#include <functional>

class QPushButton;

namespace vemo_base {

/// The client's message box: a title, a sentence, buttons trailing. GUI thread. Esc is the safe button, which also has
/// the focus.
class VEMO_BASE_EXPORT VMessageBox final : public QDialog
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(VMessageBox)

public:
    enum class Kind : int { Unknown = 0, Information, Warning, Error, Question, DangerousQuestion };

    /// `deed` names what the confirming button does ("Delete"); empty: "Yes" for questions, "OK" otherwise.
    VMessageBox(Kind kind, const QString& title, const QString& text, const QString& deed = QString(),
                QWidget* parent = nullptr);

    /// Opens the box, which deletes itself, and returns at once.
    static void tell(Kind kind, const QString& title, const QString& text, QWidget* parent = nullptr);
    /// Asks and waits for the answer; for flows that are fixed as blocking. `kind`: 1 a piece of news with "OK", 2 a
    /// question, 3 a question before a deed that can't be taken back. 1 means yes; 0 no, Esc or the box's window
    /// closed. `yesIsSafe` gives "Yes" the focus, otherwise "No" has it.
    static int question(QWidget* parent, const QString& text, int kind, bool yesIsSafe);
    /// Answers every question and makes no box, for programs without a person; an empty function ends that.
    static void setAnswerer(std::function<int(const QString& text)> answerer);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void focusYes();

    QPushButton* m_confirm = nullptr;
};

} // namespace vemo_base
