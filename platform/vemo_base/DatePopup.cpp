#include "DatePopup.h"

#include "StylePainter.h"
#include "Theme.h"

#include <QLabel>
#include <QPainter>
#include <QScreen>
#include <QVBoxLayout>

namespace vemo_base {

namespace {

constexpr int cardWidth = 276;
constexpr int calendarHeight = 250;
constexpr int margin = 8;
constexpr int belowField = 4;
constexpr int wordsPixels = 12;
constexpr int dot = 4;
constexpr int dotRoom = 16;

/// The mark and what it means.
class MeaningWt final : public QLabel
{
public:
    MeaningWt(const QString& text, QWidget* parent)
        : QLabel(text, parent)
    {
        QFont small = font();
        small.setPixelSize(wordsPixels);
        setFont(small);
        setForegroundRole(QPalette::PlaceholderText);
        setTextFormat(Qt::PlainText);
        setIndent(dotRoom);
    }

protected:
    void paintEvent(QPaintEvent* event) override
    {
        QLabel::paintEvent(event);
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(Theme::instance().color(Token::Success));
        const QRect room = QStyle::visualRect(layoutDirection(), rect(), QRect(0, 0, dotRoom, height()));
        painter.drawEllipse(QRectF(room.center().x() - dot / 2.0, height() / 2.0 - dot / 2.0, dot, dot));
    }
};

} // namespace

DatePopup::DatePopup(const QDate& date, const QString& meaning, QWidget* parent)
    : QFrame(parent, Qt::Popup)
    , m_calendar(new DayCalendar(this))
{
    setAttribute(Qt::WA_DeleteOnClose);
    m_calendar->setGround(Token::Overlay);
    m_calendar->setSelectedDate(date);
    m_calendar->setFixedHeight(calendarHeight);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(margin, margin, margin, margin);
    layout->setSpacing(margin);
    layout->addWidget(m_calendar);
    if (!meaning.isEmpty())
        layout->addWidget(new MeaningWt(meaning, this));
    setFixedWidth(cardWidth);
    setFocusProxy(m_calendar);
    connect(m_calendar, &QCalendarWidget::clicked, this, &DatePopup::signalPicked);
    connect(m_calendar, &QCalendarWidget::activated, this, &DatePopup::signalPicked);
}

void DatePopup::showBelow(const QWidget* field)
{
    adjustSize();
    const QRect screen = field->screen()->availableGeometry();
    const bool mirrored = field->layoutDirection() == Qt::RightToLeft;
    QPoint corner = field->mapToGlobal(QPoint(mirrored ? field->width() - width() : 0, field->height() + belowField));
    if (corner.y() + height() > screen.bottom())
        corner.setY(field->mapToGlobal(QPoint(0, 0)).y() - belowField - height());
    corner.setX(qBound(screen.left(), corner.x(), qMax(screen.left(), screen.right() - width())));
    move(corner);
    show();
    m_calendar->setFocus();
}

void DatePopup::paintEvent(QPaintEvent*)
{
    const Theme& theme = Theme::instance();
    QPainter painter(this);
    StylePainter::box(&painter, rect(), 0, theme.color(Token::Overlay), theme.color(Token::Control));
}

} // namespace vemo_base
