#include "VMessageBox.h"

#include "Icons.h"
#include "StylePainter.h"
#include "Theme.h"

#include <QHBoxLayout>
#include <QIcon>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QVariant>
#include <QVBoxLayout>

#include <utility>

namespace vemo_base {

namespace {

constexpr int iconSize = 24;
constexpr int margin = 24;
constexpr int smallestWidth = 420;
constexpr int widest = 560;
constexpr int titlePixels = 14;
/// Characters from which on the box is wide.
constexpr int longText = 150;

struct Face
{
    const char* icon;
    Token color;
};

Face faceOf(VMessageBox::Kind kind)
{
    switch (kind) {
    case VMessageBox::Kind::Warning:
    case VMessageBox::Kind::DangerousQuestion:
        return {"warning", Token::Warning};
    case VMessageBox::Kind::Error:
        return {"error", Token::Error};
    case VMessageBox::Kind::Information:
    case VMessageBox::Kind::Question:
    case VMessageBox::Kind::Unknown:
        break;
    }
    return {"info", Token::AccentText};
}

constexpr int yes = 1;

std::function<int(const QString&)>& answerer()
{
    static std::function<int(const QString&)> function;
    return function;
}

} // namespace

VMessageBox::VMessageBox(Kind kind, const QString& title, const QString& text, const QString& deed, QWidget* parent)
    : QDialog(parent)
{
    setWindowTitle(title);
    setModal(true);
    setMinimumWidth(smallestWidth);
    setMaximumWidth(widest);

    const Face face = faceOf(kind);
    auto* icon = new QLabel(this);
    icon->setPixmap(
        Icons::pixmap(QLatin1String(face.icon), iconSize, Theme::instance().color(face.color), devicePixelRatioF()));

    auto* titleLabel = new QLabel(title, this);
    QFont titleFont = titleLabel->font();
    titleFont.setPixelSize(titlePixels);
    titleFont.setWeight(QFont::DemiBold);
    titleLabel->setFont(titleFont);
    titleLabel->setTextFormat(Qt::PlainText);
    titleLabel->setWordWrap(true);

    auto* textLabel = new QLabel(text, this);
    textLabel->setTextFormat(Qt::PlainText);
    textLabel->setWordWrap(true);
    textLabel->setForegroundRole(QPalette::PlaceholderText);
    textLabel->setTextInteractionFlags(Qt::TextSelectableByMouse);

    auto* words = new QVBoxLayout;
    words->setSpacing(4);
    words->addWidget(titleLabel);
    words->addWidget(textLabel);
    words->addStretch();

    auto* head = new QHBoxLayout;
    head->setSpacing(16);
    head->addWidget(icon, 0, Qt::AlignTop);
    head->addLayout(words, 1);

    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    const bool asks = kind == Kind::Question || kind == Kind::DangerousQuestion;
    if (asks) {
        auto* no = new QPushButton(deed.isEmpty() ? tr("No") : tr("Cancel"), this);
        connect(no, &QPushButton::clicked, this, &QDialog::reject);
        buttons->addWidget(no);
        no->setDefault(true);
        no->setFocus(Qt::TabFocusReason);
    }
    m_confirm = new QPushButton(!deed.isEmpty() ? deed : asks ? tr("Yes") : tr("OK"), this);
    m_confirm->setProperty("kind",
                           kind == Kind::DangerousQuestion ? QStringLiteral("danger") : QStringLiteral("primary"));
    connect(m_confirm, &QPushButton::clicked, this, &QDialog::accept);
    buttons->addWidget(m_confirm);
    if (!asks)
        focusYes();

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(margin, margin, margin, margin - 4);
    layout->setSpacing(16);
    layout->addLayout(head);
    layout->addLayout(buttons);
    const int width = text.size() > longText ? widest : smallestWidth;
    resize(width, layout->totalHeightForWidth(width));
}

void VMessageBox::focusYes()
{
    m_confirm->setDefault(true);
    m_confirm->setFocus(Qt::TabFocusReason);
}

void VMessageBox::tell(Kind kind, const QString& title, const QString& text, QWidget* parent)
{
    auto* box = new VMessageBox(kind, title, text, QString(), parent);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->open();
}

int VMessageBox::question(QWidget* parent, const QString& text, int kind, bool yesIsSafe)
{
    if (answerer())
        return answerer()(text);
    constexpr int news = 1;
    constexpr int question = 2;
    const Kind face = kind == news ? Kind::Information : kind == question ? Kind::Question : Kind::DangerousQuestion;
    VMessageBox box(face, kind == news ? tr("Information") : tr("Please confirm"), text, QString(), parent);
    if (yesIsSafe)
        box.focusYes();
    return box.exec() == QDialog::Accepted ? yes : 0;
}

void VMessageBox::setAnswerer(std::function<int(const QString& text)> function)
{
    answerer() = std::move(function);
}

void VMessageBox::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), Theme::instance().color(Token::Surface));
}

} // namespace vemo_base
