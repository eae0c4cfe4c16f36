#pragma once

#include <QVariant>
#include <QWidget>

#include <functional>

class QHBoxLayout;
class QLabel;

namespace vemo_client {

class MessageLine;

/// One setting: its label in a column of its own, what it is edited by, and below that a line of help that gives way to
/// warnings and errors. It shows what is stored until the person changes it; a change waits for save(). GUI thread.
class SettingField final : public QWidget
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(SettingField)

public:
    enum class Scope : int { Everybody = 0, Person };
    enum class Tone : int { Plain = 0, Warning, Error };

    struct Binding
    {
        std::function<QVariant()> stored;
        std::function<void(const QVariant& value)> store;
    };

    struct Editor
    {
        QWidget* widget = nullptr;
        std::function<QVariant()> value;
        std::function<void(const QVariant& value)> show; ///< without telling a change
    };

    SettingField(const QString& label, const QString& help, const Binding& binding, Scope scope,
                 QWidget* parent = nullptr);

    void setEditor(const Editor& editor);
    /// Words, a button or a bar behind the editor.
    void addTrailing(QWidget* widget, int stretch = 0);

    QString label() const;
    Scope scope() const { return m_scope; }
    QVariant value() const { return m_editor.value(); }
    bool isChanged() const;
    /// It could be stored as it is.
    bool isAcceptable() const { return m_tone != Tone::Error; }
    /// Shows what is stored.
    void load();
    /// Stores a change; nothing without one.
    void save();
    /// Takes the place of the help; an empty text brings the help back.
    void tell(Tone tone, const QString& text);
    /// A warning that has to do with other settings; an error goes before it. Empty: none.
    void setRemark(const QString& remark);
    /// Moves the focus to the editor and lets the eye find it.
    void pointOut();

public slots:
    /// For the editor, after each change by the person.
    void takeEdit();

signals:
    void signalEdited();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void showWords();

    Binding m_binding;
    const Scope m_scope;
    QLabel* m_help;
    Editor m_editor;
    QLabel* m_label;
    QHBoxLayout* m_row;
    MessageLine* m_message;
    QVariant m_stored; ///< as the editor showed it after the last load or save
    Tone m_tone = Tone::Plain;
    QString m_told;
    QString m_remark;
    bool m_isPointedOut = false;
};

} // namespace vemo_client
