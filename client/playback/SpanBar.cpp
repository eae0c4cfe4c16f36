#include "SpanBar.h"

#include "DayAxisWt.h"

#include <axis/SpanWords.h>
#include <Icons.h>
#include <Theme.h>

#include <QEvent>
#include <QHBoxLayout>
#include <QIcon>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPushButton>
#include <QSignalBlocker>
#include <QTimeEdit>
#include <QTimer>
#include <QVariant>

namespace vemo_client {

using vemo_base::DayAxis;
using vemo_base::SpanWords;
using vemo_base::TimeSpan;

namespace {

constexpr int iconExtent = 20;
constexpr int fieldWidth = 104;
constexpr int ringRoom = 4; ///< the focus ring lies outside the fields
constexpr double dayMs = 24 * 3600 * 1000.0;

class IconWt final : public QWidget
{
public:
    IconWt(const QString& name, QWidget* parent)
        : QWidget(parent)
        , m_icon(vemo_base::Icons::icon(name))
    {
        setFixedSize(iconExtent, iconExtent);
    }

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        m_icon.paint(&painter, rect());
    }

private:
    QIcon m_icon;
};

} // namespace

SpanBar::SpanBar(QWidget* parent)
    : QWidget(parent)
{
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, ringRoom, 0, ringRoom);
    layout->setSpacing(8);
    layout->addWidget(new IconWt(QStringLiteral("mark-span"), this));
    layout->addWidget(new QLabel(tr("Span"), this));
    m_begin = addField(tr("Begin of the span"));
    layout->addWidget(new QLabel(tr("To"), this));
    m_end = addField(tr("End of the span"));
    m_end->setToolTip(tr("00:00:00 means the end of the day"));
    m_words = new QLabel(this);
    m_words->setTextFormat(Qt::PlainText);
    layout->addWidget(m_words, 1);
    m_clear = new QPushButton(tr("Clear the span"), this);
    m_clear->setProperty("kind", QStringLiteral("quiet"));
    layout->addWidget(m_clear);
    connect(m_clear, &QPushButton::clicked, this, [this] {
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
        showWords(tr("Drag on the axis, or type two times."), false);
        return;
    }
    m_begin->setTime(QDateTime::fromMSecsSinceEpoch(span->beginMs).time());
    m_end->setTime(span->endMs >= m_axis.endMs() ? QTime(0, 0) : QDateTime::fromMSecsSinceEpoch(span->endMs).time());
    showWords(SpanWords::length(span->lengthMs()), false);
}

void SpanBar::takeFields()
{
    const std::optional<TimeSpan> span = spanOf(m_axis, m_begin->time(), m_end->time());
    m_clear->setEnabled(true);
    if (span)
        showWords(SpanWords::length(span->lengthMs()), false);
    else
        showWords(tr("The end must lie behind the begin."), true);
    emit signalSpanMarked(span);
}

void SpanBar::showWords(const QString& words, bool isWrong)
{
    m_words->setText(words);
    QPalette palette = m_words->palette();
    palette.setColor(QPalette::WindowText,
                     vemo_base::Theme::instance().color(isWrong ? vemo_base::Token::Error : vemo_base::Token::Text2));
    m_words->setPalette(palette);
    m_end->setProperty("invalid", isWrong);
    m_end->update();
}

} // namespace vemo_client
