#include "SpanBar.h"

#include "DayAxisWt.h"

#include <player/TransportButton.h>
#include <Theme.h>

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QSignalBlocker>
#include <QTimeEdit>
#include <QTimer>
#include <QVariant>

namespace vemo_client {

using vemo_base::DayAxis;
using vemo_base::TimeSpan;
using vemo_base::TransportButton;

namespace {

constexpr int fieldWidth = 104;
constexpr int wordsWidth = 152; ///< whatever the words are, so that the bar keeps its place
constexpr double dayMs = 24 * 3600 * 1000.0;

} // namespace

SpanBar::SpanBar(QWidget* parent)
    : QWidget(parent)
{
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(8);
    auto* marking = new TransportButton(TransportButton::Kind::Quiet, QStringLiteral("mark-span"),
                                        tr("Dragging on the time line marks a span"), this);
    marking->setCheckable(true);
    marking->setChecked(true);
    layout->addWidget(marking);
    m_begin = addField(tr("Begin of the span"));
    layout->addWidget(new QLabel(tr("To"), this));
    m_end = addField(tr("End of the span"));
    m_end->setToolTip(tr("End of the span; 00:00:00 means the end of the day"));
    m_clear = new TransportButton(TransportButton::Kind::Quiet, QStringLiteral("close"), tr("Clear the span"), this);
    layout->addWidget(m_clear);
    m_words = new QLabel(this);
    m_words->setTextFormat(Qt::PlainText);
    m_words->setWordWrap(true); // two lines fit beside the buttons
    m_words->setMinimumWidth(wordsWidth);
    m_words->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    layout->addWidget(m_words, 1);
    connect(marking, &TransportButton::toggled, this, &SpanBar::signalMarkingChosen);
    connect(m_clear, &TransportButton::clicked, this, [this] {
        setSpan(std::nullopt);
        emit signalSpanMarked(std::nullopt);
    });
    setSpan(std::nullopt);
}

QTimeEdit* SpanBar::addField(const QString& name)
{
    auto* field = new QTimeEdit(this);
    field->setDisplayFormat(QStringLiteral("HH:mm:ss"));
    field->setFixedWidth(fieldWidth);
    field->setAccessibleName(name);
    field->setToolTip(name);
    field->setWrapping(true);
    // The line inside a spin box can be had only as a child.
    if (auto* line = field->findChild<QLineEdit*>())
        line->installEventFilter(this);
    connect(field, &QTimeEdit::timeChanged, this, &SpanBar::takeFields);
    layout()->addWidget(field);
    return field;
}

bool SpanBar::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::MouseButtonRelease) {
        if (auto* field = qobject_cast<QTimeEdit*>(watched->parent()))
            QTimer::singleShot(0, field, [field] { field->setSelectedSection(field->currentSection()); });
    }
    return QWidget::eventFilter(watched, event);
}

void SpanBar::setAxis(const DayAxis& axis)
{
    m_axis = axis;
    setSpan(std::nullopt);
}

std::optional<TimeSpan> SpanBar::spanOf(const DayAxis& axis, const QTime& begin, const QTime& end)
{
    if (!axis.isValid() || !begin.isValid() || !end.isValid())
        return std::nullopt;
    TimeSpan span;
    span.beginMs = axis.timeAt(begin.msecsSinceStartOfDay() / dayMs, DayAxis::Pass::First);
    span.endMs =
        end == QTime(0, 0) ? axis.endMs() : axis.timeAt(end.msecsSinceStartOfDay() / dayMs, DayAxis::Pass::Last);
    if (span.endMs <= span.beginMs)
        return std::nullopt;
    return span;
}

void SpanBar::setSpan(const std::optional<TimeSpan>& span)
{
    const QSignalBlocker beginBlocker(m_begin);
    const QSignalBlocker endBlocker(m_end);
    m_clear->setEnabled(span.has_value());
    if (!span) {
        m_begin->setTime(QTime(0, 0));
        m_end->setTime(QTime(0, 0));
        showWrong(false);
        return;
    }
    m_begin->setTime(QDateTime::fromMSecsSinceEpoch(span->beginMs).time());
    m_end->setTime(span->endMs >= m_axis.endMs() ? QTime(0, 0) : QDateTime::fromMSecsSinceEpoch(span->endMs).time());
    showWrong(false);
}

void SpanBar::takeFields()
{
    const std::optional<TimeSpan> span = spanOf(m_axis, m_begin->time(), m_end->time());
    m_clear->setEnabled(true);
    showWrong(!span);
    emit signalSpanMarked(span);
}

void SpanBar::setWords(const QString& words)
{
    m_summary = words;
    showWrong(m_isWrong);
}

void SpanBar::showWrong(bool isWrong)
{
    m_isWrong = isWrong;
    m_words->setToolTip(m_summary);
    m_words->setText(isWrong ? tr("The end must lie behind the begin.") : m_summary);
    QPalette palette = m_words->palette();
    palette.setColor(QPalette::WindowText,
                     vemo_base::Theme::instance().color(isWrong ? vemo_base::Token::Error : vemo_base::Token::Text2));
    m_words->setPalette(palette);
    m_end->setProperty("invalid", isWrong);
    m_end->update();
}

} // namespace vemo_client
