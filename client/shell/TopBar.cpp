#include "TopBar.h"

#include "GuideWindow.h"
#include "NoticeBell.h"
#include "TopBarEntry.h"

#include "users/ThemeButton.h"
#include "users/UserMenu.h"

#include <Icons.h>
#include <StylePainter.h>
#include <Theme.h>

#include <QCoreApplication>
#include <QHBoxLayout>
#include <QIcon>
#include <QLabel>
#include <QPainter>
#include <QToolButton>

namespace vemo_client {

namespace {

constexpr int barHeight = 48;
constexpr int edge = 16;
constexpr int markExtent = 24;
constexpr int namePixels = 14;
/// The modules begin above the content, behind the navigation column.
constexpr int brandWidth = 240;

class MarkWt final : public QWidget
{
public:
    explicit MarkWt(QWidget* parent)
        : QWidget(parent)
        , m_mark(QStringLiteral(":/vemo_base/icons/mark.svg"))
    {
        setFixedSize(markExtent, markExtent);
    }

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        m_mark.paint(&painter, rect());
    }

private:
    QIcon m_mark;
};

} // namespace

TopBar::TopBar(QWidget* parent)
    : QWidget(parent)
{
    setFixedHeight(barHeight);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, edge, 0);
    layout->setSpacing(0);

    auto* brand = new QWidget(this);
    brand->setFixedWidth(brandWidth);
    auto* brandLayout = new QHBoxLayout(brand);
    brandLayout->setContentsMargins(edge, 0, 0, 0);
    brandLayout->setSpacing(10);
    brandLayout->addWidget(new MarkWt(brand));
    auto* name = new QLabel(QStringLiteral("Vemo"), brand);
    QFont nameFont = name->font();
    nameFont.setPixelSize(namePixels);
    nameFont.setWeight(QFont::DemiBold);
    name->setFont(nameFont);
    brandLayout->addWidget(name, 1);
    layout->addWidget(brand);

    m_modules = new QHBoxLayout;
    m_modules->setSpacing(0);
    layout->addLayout(m_modules);
    layout->addStretch();
    layout->addWidget(makeHelpButton());
    layout->addSpacing(4);
    layout->addWidget(new NoticeBell(this));
    layout->addSpacing(4);
    layout->addWidget(new ThemeButton(this));
    layout->addSpacing(8);
    auto* user = new UserMenu(this);
    layout->addWidget(user);
    connect(user, &UserMenu::signalLogOut, this, &TopBar::signalLogOut);
}

QToolButton* TopBar::makeHelpButton()
{
    auto* button = new QToolButton(this);
    button->setIcon(vemo_base::Icons::icon(QStringLiteral("help")));
    button->setIconSize(QSize(20, 20));
    button->setToolTip(tr("Guide"));
    button->setAccessibleName(tr("Guide"));
    button->setShortcut(QKeySequence(Qt::Key_F1));
    button->setAutoRaise(true);
    connect(button, &QToolButton::clicked, this, [this] { GuideWindow::open(window()); });
    return button;
}

void TopBar::addModule(const QString& key, const QString& text, const QString& iconName)
{
    auto* entry = new TopBarEntry(key, text, iconName, this);
    m_modules->addWidget(entry);
    m_entries.append(entry);
    connect(entry, &QAbstractButton::clicked, this, [this, key] { emit signalModule(key); });
}

void TopBar::setCurrentModule(const QString& key)
{
    for (TopBarEntry* entry : qAsConst(m_entries))
        entry->setChecked(entry->key() == key);
}

void TopBar::paintEvent(QPaintEvent*)
{
    const vemo_base::Theme& theme = vemo_base::Theme::instance();
    QPainter painter(this);
    painter.fillRect(rect(), theme.color(vemo_base::Token::Surface));
    vemo_base::StylePainter::hairline(&painter, rect(), Qt::BottomEdge, theme.mode());
}

} // namespace vemo_client
