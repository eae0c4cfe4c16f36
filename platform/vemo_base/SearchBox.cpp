#include "SearchBox.h"

#include "Icons.h"

#include <QAction>
#include <QKeyEvent>

namespace vemo_base {

namespace {

constexpr int usualWidth = 216;
constexpr int leastWidth = 120;
constexpr int longestText = 256;

} // namespace

SearchBox::SearchBox(QWidget* parent)
    : QLineEdit(parent)
    , m_clear(addAction(Icons::icon(QStringLiteral("close")), QLineEdit::TrailingPosition))
{
    QAction* filter = addAction(Icons::icon(QStringLiteral("filter")), QLineEdit::LeadingPosition);
    connect(filter, &QAction::triggered, this, [this] { setFocus(); });
    setMaxLength(longestText);
    m_clear->setText(tr("Clear the filter"));
    m_clear->setToolTip(m_clear->text());
    m_clear->setVisible(false);
    connect(m_clear, &QAction::triggered, this, &QLineEdit::clear);
    connect(this, &QLineEdit::textChanged, this, [this](const QString& text) { m_clear->setVisible(!text.isEmpty()); });
}

QSize SearchBox::sizeHint() const
{
    return {usualWidth, QLineEdit::sizeHint().height()};
}

QSize SearchBox::minimumSizeHint() const
{
    return {leastWidth, QLineEdit::minimumSizeHint().height()};
}

void SearchBox::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape && !text().isEmpty()) {
        clear();
        return;
    }
    QLineEdit::keyPressEvent(event);
}

} // namespace vemo_base
