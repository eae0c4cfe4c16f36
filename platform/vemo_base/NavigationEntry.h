#pragma once

#include "NavigationTypes.h"

#include <QAbstractButton>
#include <QIcon>

namespace vemo_base {

/// One line of the navigation column: an entry, a sub-entry, or a group that opens and closes. It paints itself and
/// tells clicks; what is current and what is open is decided by the NavigationWidget that owns it.
class NavigationEntry final : public QAbstractButton
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(NavigationEntry)

public:
    enum class Role : int { Unknown = 0, Entry, Group, SubEntry };

    NavigationEntry(const QString& key, const QString& text, const NavigationActionInfo& icons, QWidget* parent);

    const QString& key() const { return m_key; }
    Role role() const { return m_role; }
    NavigationEntry* group() const { return m_group; }
    void setGroup(NavigationEntry* group);
    void makeGroup();

    bool isOpen() const { return m_open; }
    void setOpen(bool open);
    void setCurrent(bool current);
    /// For a group: one of its sub-entries is current.
    void setHoldsCurrent(bool holds);
    void setLabel(const QString& text);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    bool event(QEvent* event) override;

private:
    QRect textRect() const;
    QFont textFont() const;
    void describe();

    QString m_key;
    QIcon m_normalIcon;
    QIcon m_highlightIcon;
    bool m_hasIcon = false;
    Role m_role = Role::Entry;
    NavigationEntry* m_group = nullptr;
    bool m_open = true;
    bool m_current = false;
    bool m_holdsCurrent = false;
    bool m_keyboardFocus = false;
};

} // namespace vemo_base
