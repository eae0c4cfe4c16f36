#include "EmptyStateWt.h"

#include "Icons.h"
#include "Theme.h"

#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QVariant>
#include <QVBoxLayout>

namespace vemo_base {

namespace {

constexpr int iconSize = 36;
constexpr int textWidth = 420;
constexpr int titlePixels = 14;

/// Paints the icon itself, so that a theme change needs no word to it.
class IconWt final : public QWidget
{
public:
    IconWt(const QString& name, QWidget* parent)
        : QWidget(parent)
        , m_icon(Icons::icon(name))
    {
        setFixedSize(iconSize, iconSize);
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

QLabel* sentence(const QString& text, QWidget* parent)
{
    auto* label = new QLabel(text, parent);
    label->setTextFormat(Qt::PlainText);
    label->setAlignment(Qt::AlignCenter);
    label->setWordWrap(true);
    label->setMinimumWidth(textWidth);
    label->setMaximumWidth(textWidth);
    return label;
}

} // namespace

EmptyStateWt::EmptyStateWt(const QString& iconName, const QString& missing, const QString& advice,
                           const QString& buttonText, QWidget* parent)
    : QWidget(parent)
{
    auto* layout = new QVBoxLayout(this);
    layout->setSpacing(8);
    layout->addStretch(2);
    layout->addWidget(new IconWt(iconName, this), 0, Qt::AlignHCenter);
    layout->addSpacing(4);

    QLabel* title = sentence(missing, this);
    QFont titleFont = title->font();
    titleFont.setPixelSize(titlePixels);
    titleFont.setWeight(QFont::DemiBold);
    title->setFont(titleFont);
    title->setMinimumHeight(title->heightForWidth(textWidth));
    layout->addWidget(title, 0, Qt::AlignHCenter);

    QLabel* help = sentence(advice, this);
    help->setForegroundRole(QPalette::PlaceholderText);
    help->setMinimumHeight(help->heightForWidth(textWidth));
    layout->addWidget(help, 0, Qt::AlignHCenter);

    if (!buttonText.isEmpty()) {
        m_button = new QPushButton(buttonText, this);
        m_button->setProperty("kind", QStringLiteral("primary"));
        layout->addSpacing(8);
        layout->addWidget(m_button, 0, Qt::AlignHCenter);
        connect(m_button, &QPushButton::clicked, this, &EmptyStateWt::signalButtonClicked);
    }
    layout->addStretch(3);
}

void EmptyStateWt::setButtonSecondary()
{
    if (m_button)
        m_button->setProperty("kind", QVariant());
}

} // namespace vemo_base
