#include "ClientTreeWt.h"

#include "Icons.h"
#include "LocalViewTree.h"
#include "StylePainter.h"
#include "Theme.h"
#include "VideoPointTree.h"

#include <QHBoxLayout>
#include <QLineEdit>
#include <QPainter>
#include <QStackedLayout>
#include <QToolButton>
#include <QVBoxLayout>

namespace vemo_base {

namespace {

constexpr double radius = 6;
constexpr int wellEdge = 4;

} // namespace

ClientTreeWt::ClientTreeWt(ClientTree::Refusal refusal, QWidget* parent)
    : QWidget(parent)
    , m_filter(new QLineEdit(this))
    , m_byName(new QToolButton(this))
    , m_videoPoints(new VideoPointTree(refusal))
    , m_localView(new LocalViewTree(refusal))
    , m_well(new QWidget(this))
    , m_trees(new QStackedLayout)
{
    m_filter->setPlaceholderText(tr("Filter by channel name"));
    m_filter->setAccessibleName(m_filter->placeholderText());
    m_filter->setClearButtonEnabled(true);
    m_filter->addAction(Icons::icon(QStringLiteral("filter")), QLineEdit::LeadingPosition);
    m_byName->setIcon(Icons::icon(QStringLiteral("camera")));
    m_byName->setIconSize(QSize(20, 20));
    m_byName->setAutoRaise(true);
    m_byName->setCheckable(true);
    m_byName->setToolTip(tr("One list of all channels by name"));
    m_byName->setAccessibleName(m_byName->toolTip());
    connect(m_byName, &QToolButton::clicked, this,
            [this](bool byName) { showTree(byName ? LocalViewTreeType : VideoPointTreeType); });

    auto* top = new QHBoxLayout;
    top->setSpacing(4);
    top->addWidget(m_filter, 1);
    top->addWidget(m_byName);
    auto* wellLayout = new QVBoxLayout(m_well);
    wellLayout->setContentsMargins(wellEdge, wellEdge, wellEdge, wellEdge);
    wellLayout->addLayout(m_trees);
    for (ClientTree* tree : {static_cast<ClientTree*>(m_videoPoints), static_cast<ClientTree*>(m_localView)}) {
        m_trees->addWidget(tree);
        connect(m_filter, &QLineEdit::textChanged, tree, &ClientTree::setFilter);
    }
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(8);
    layout->addLayout(top);
    layout->addWidget(m_well, 1);
    setFocusProxy(m_filter);
}

ClientTreeWt::TreeType ClientTreeWt::getCurShowTreeType() const
{
    return m_trees->currentIndex() == LocalViewTreeType ? LocalViewTreeType : VideoPointTreeType;
}

ClientTree* ClientTreeWt::shownTree() const
{
    return static_cast<ClientTree*>(m_trees->currentWidget());
}

void ClientTreeWt::showTree(TreeType type)
{
    const QStringList checked = shownTree()->getCheckedChannels();
    m_trees->setCurrentIndex(type);
    m_byName->setChecked(type == LocalViewTreeType);
    shownTree()->setCheckedChannels(checked);
}

void ClientTreeWt::paintEvent(QPaintEvent*)
{
    const Theme& theme = Theme::instance();
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    StylePainter::box(&painter, m_well->geometry(), radius, theme.color(Token::Field), theme.color(Token::Border));
}

} // namespace vemo_base
