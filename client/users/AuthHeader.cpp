#include "AuthHeader.h"

#include "LanguageButton.h"
#include "ThemeButton.h"

#include <QHBoxLayout>
#include <QIcon>
#include <QLabel>
#include <QPainter>
#include <QStyle>

namespace vemo_client {

namespace {

constexpr int barHeight = 88;
constexpr int edge = 48;
constexpr int markExtent = 24;
constexpr int markGap = 10;
constexpr int namePixels = 14;

} // namespace

AuthHeader::AuthHeader(const QStringList& languages, const QString& language, QWidget* parent)
    : QWidget(parent)
    , m_language(new LanguageButton(languages, language, this))
{
    setFixedHeight(barHeight);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(edge + markExtent + markGap, 0, edge - 8, 0);
    layout->setSpacing(4);
    auto* name = new QLabel(QStringLiteral("Vemo"), this);
    QFont font = name->font();
    font.setPixelSize(namePixels);
    font.setWeight(QFont::DemiBold);
    name->setFont(font);
    layout->addWidget(name);
    layout->addStretch();
    layout->addWidget(m_language);
    layout->addWidget(new ThemeButton(this));
    connect(m_language, &LanguageButton::signalChosen, this, &AuthHeader::signalLanguageChosen);
}

void AuthHeader::offerLanguages(bool areOffered)
{
    m_language->setVisible(areOffered);
}

void AuthHeader::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const QRect mark(edge, (height() - markExtent) / 2, markExtent, markExtent);
    QIcon(QStringLiteral(":/vemo_base/icons/mark.svg"))
        .paint(&painter, QStyle::visualRect(layoutDirection(), rect(), mark));
}

} // namespace vemo_client
