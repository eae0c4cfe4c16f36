#pragma once

#include "NavigationTypes.h"
#include "vemo_base_global.h"

#include <QHash>
#include <QPointer>
#include <QWidget>

class QVBoxLayout;

namespace vemo_base {

class NavigationEntry;

/// The navigation column of a form: entries with icon and word, and groups whose sub-entries fold away. Exactly one
/// entry that is not a group is current once setDefaultAction or setCurAction was called. One stop of the Tab key;
/// arrows, Home and End move, Enter and Space choose. GUI thread.
class VEMO_BASE_EXPORT NavigationWidget : public QWidget
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(NavigationWidget)

public:
    explicit NavigationWidget(QWidget* parent = nullptr);
    ~NavigationWidget() override;

    /// Adds an entry, or a group when there are sub-entries. `receiver`, when given, gets `slotCurAction(QString)`
    /// invoked, if it has such a slot, for the keys of this bar. A key that is there already is left as it is.
    void addNavigationBar(const QString& key, const QString& text, const NavigationActionInfo& actionInfo,
                          const QList<NavigationSubAction>& subActions = {}, QObject* receiver = nullptr);

    /// Makes the asked entry, or else the first that can be, current and returns its key; empty when there is none.
    QString setDefaultAction(const QString& key);
    /// Makes the entry current and tells so; unknown keys and groups change nothing.
    void setCurAction(const QString& key);
    QString curAction() const { return m_curKey; }
    void setActionText(const QString& key, const QString& text);
    QString actionText(const QString& key) const;

    QSize sizeHint() const override;

signals:
    void signalCurAction(const QString& key);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    NavigationEntry* addEntry(const QString& key, const QString& text, const NavigationActionInfo& icons,
                              NavigationEntry* group);
    void choose(NavigationEntry* entry);
    void toggleGroup(NavigationEntry* group, bool open);
    QList<NavigationEntry*> reachable() const;
    void moveFocus(NavigationEntry* entry);

    QVBoxLayout* m_layout = nullptr;
    QList<NavigationEntry*> m_entries;
    QHash<QString, NavigationEntry*> m_entryByKey;
    QHash<QString, QPointer<QObject>> m_receiverByKey;
    QString m_curKey;
};

} // namespace vemo_base
