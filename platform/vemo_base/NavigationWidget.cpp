#include "NavigationWidget.h"

#include "NavigationEntry.h"
#include "StylePainter.h"
#include "Theme.h"

#include <QApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QVBoxLayout>

namespace vemo_base {

namespace {

constexpr int columnWidth = 242;
constexpr int sideMargin = 8;
constexpr int topMargin = 12;
constexpr int gap = 2;

} // namespace

NavigationWidget::NavigationWidget(QWidget* parent)
    : QWidget(parent)
    , m_layout(new QVBoxLayout(this))
{
    // One pixel more at the trailing side, where the column's hairline is.
    m_layout->setContentsMargins(sideMargin, topMargin, sideMargin + 1, topMargin);
    m_layout->setSpacing(gap);
    m_layout->addStretch();
    setAccessibleName(tr("Navigation"));
    setFocusPolicy(Qt::NoFocus);
    connect(&Theme::instance(), &Theme::signalChanged, this, QOverload<>::of(&QWidget::update));
}

NavigationWidget::~NavigationWidget() = default;

NavigationEntry* NavigationWidget::addEntry(const QString& key, const QString& text, const NavigationActionInfo& icons,
                                            NavigationEntry* group)
{
    auto* entry = new NavigationEntry(key, text, icons, this);
    if (group)
        entry->setGroup(group);
    m_layout->insertWidget(m_layout->count() - 1, entry);
    m_entries.append(entry);
    m_entryByKey.insert(key, entry);
    connect(entry, &QAbstractButton::clicked, this, [this, entry] { choose(entry); });
    if (m_entries.size() == 1)
        entry->setFocusPolicy(Qt::StrongFocus);
    return entry;
}

void NavigationWidget::addNavigationBar(const QString& key, const QString& text, const NavigationActionInfo& actionInfo,
                                        const QList<NavigationSubAction>& subActions, QObject* receiver)
{
    if (m_entryByKey.contains(key))
        return;
    NavigationEntry* bar = addEntry(key, text, actionInfo, nullptr);
    if (receiver)
        m_receiverByKey.insert(key, receiver);
    if (subActions.isEmpty())
        return;
    bar->makeGroup();
    for (const NavigationSubAction& sub : subActions) {
        if (m_entryByKey.contains(sub.key))
            continue;
        addEntry(sub.key, sub.text, sub.icons, bar);
        if (receiver)
            m_receiverByKey.insert(sub.key, receiver);
    }
}

QString NavigationWidget::setDefaultAction(const QString& key)
{
    NavigationEntry* wanted = m_entryByKey.value(key);
    if (!wanted || wanted->role() == NavigationEntry::Role::Group) {
        wanted = nullptr;
        for (NavigationEntry* entry : qAsConst(m_entries)) {
            if (entry->role() != NavigationEntry::Role::Group) {
                wanted = entry;
                break;
            }
        }
    }
    if (!wanted)
        return QString();
    setCurAction(wanted->key());
    return m_curKey;
}

void NavigationWidget::setCurAction(const QString& key)
{
    NavigationEntry* entry = m_entryByKey.value(key);
    if (!entry || entry->role() == NavigationEntry::Role::Group)
        return;
    if (key != m_curKey) {
        m_curKey = key;
        for (NavigationEntry* other : qAsConst(m_entries)) {
            other->setCurrent(other == entry);
            other->setHoldsCurrent(other == entry->group());
        }
        if (entry->group() && !entry->group()->isOpen())
            toggleGroup(entry->group(), true);
        moveFocus(nullptr);
    }
    if (QObject* receiver = m_receiverByKey.value(key);
        receiver && receiver->metaObject()->indexOfSlot("slotCurAction(QString)") >= 0)
        QMetaObject::invokeMethod(receiver, "slotCurAction", Q_ARG(QString, key));
    emit signalCurAction(key);
}

void NavigationWidget::setActionText(const QString& key, const QString& text)
{
    if (NavigationEntry* entry = m_entryByKey.value(key))
        entry->setLabel(text);
}

QString NavigationWidget::actionText(const QString& key) const
{
    const NavigationEntry* entry = m_entryByKey.value(key);
    return entry ? entry->text() : QString();
}

QSize NavigationWidget::sizeHint() const
{
    return QSize(columnWidth, QWidget::sizeHint().height());
}

void NavigationWidget::choose(NavigationEntry* entry)
{
    if (entry->role() == NavigationEntry::Role::Group)
        toggleGroup(entry, !entry->isOpen());
    else
        setCurAction(entry->key());
}

void NavigationWidget::toggleGroup(NavigationEntry* group, bool open)
{
    group->setOpen(open);
    for (NavigationEntry* entry : qAsConst(m_entries)) {
        if (entry->group() != group)
            continue;
        if (!open && entry->hasFocus())
            moveFocus(group);
        entry->setVisible(open);
    }
}

QList<NavigationEntry*> NavigationWidget::reachable() const
{
    QList<NavigationEntry*> entries;
    for (NavigationEntry* entry : m_entries) {
        if (!entry->isHidden())
            entries.append(entry);
    }
    return entries;
}

/// Gives the focus, and with it the column's one Tab stop, to an entry; without one, the stop goes to the current
/// entry.
void NavigationWidget::moveFocus(NavigationEntry* entry)
{
    NavigationEntry* stop = entry ? entry : m_entryByKey.value(m_curKey);
    if (!stop)
        return;
    for (NavigationEntry* other : qAsConst(m_entries))
        other->setFocusPolicy(other == stop ? Qt::StrongFocus : Qt::ClickFocus);
    if (entry)
        entry->setFocus(Qt::TabFocusReason);
}

void NavigationWidget::keyPressEvent(QKeyEvent* event)
{
    const QList<NavigationEntry*> entries = reachable();
    auto* focused = qobject_cast<NavigationEntry*>(QApplication::focusWidget());
    const int at = entries.indexOf(focused);
    if (at < 0) {
        QWidget::keyPressEvent(event);
        return;
    }
    const bool rightToLeft = layoutDirection() == Qt::RightToLeft;
    switch (event->key()) {
    case Qt::Key_Down:
        moveFocus(entries.at(qMin(at + 1, entries.size() - 1)));
        break;
    case Qt::Key_Up:
        moveFocus(entries.at(qMax(at - 1, 0)));
        break;
    case Qt::Key_Home:
        moveFocus(entries.first());
        break;
    case Qt::Key_End:
        moveFocus(entries.last());
        break;
    case Qt::Key_Left:
    case Qt::Key_Right: {
        const bool inward = (event->key() == Qt::Key_Right) != rightToLeft;
        if (focused->role() == NavigationEntry::Role::Group)
            toggleGroup(focused, inward);
        else if (!inward && focused->group())
            moveFocus(focused->group());
        break;
    }
    case Qt::Key_Return:
    case Qt::Key_Enter:
        focused->click();
        break;
    default:
        QWidget::keyPressEvent(event);
        return;
    }
    event->accept();
}

void NavigationWidget::paintEvent(QPaintEvent*)
{
    const Theme& theme = Theme::instance();
    QPainter painter(this);
    painter.fillRect(rect(), theme.color(Token::Surface));
    const Qt::Edge trailing = layoutDirection() == Qt::RightToLeft ? Qt::LeftEdge : Qt::RightEdge;
    StylePainter::hairline(&painter, rect(), trailing, theme.mode());
}

} // namespace vemo_base
