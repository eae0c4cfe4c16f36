#include "SettingsPage.h"

#include "SettingField.h"
#include "SettingsSection.h"
#include "SettingsSections.h"

#include "users/MessageLine.h"

#include <Icons.h>
#include <NavigationWidget.h>
#include <StylePainter.h>
#include <SystemConfig.h>
#include <SystemWorker.h>
#include <Theme.h>
#include <VMessageBox.h>

#include <QAction>
#include <QCompleter>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPushButton>
#include <QScrollArea>
#include <QShortcut>
#include <QStackedWidget>
#include <QStringListModel>
#include <QTimer>
#include <QVariant>
#include <QVBoxLayout>

namespace vemo_client {

namespace {

using vemo_worker::SystemConfig;
using vemo_worker::SystemWorker;

constexpr int margin = 24;
constexpr int topMargin = 20;
constexpr int titlePixels = 20;
constexpr int headGap = 16;
constexpr int searchWidth = 240;
constexpr int mostFound = 12;
constexpr int longestSearch = 100;
constexpr int footVertical = 12;
constexpr int buttonGap = 8;

/// The foot stands on the surface, below a hairline.
class FootWt final : public QWidget
{
public:
    using QWidget::QWidget;

protected:
    void paintEvent(QPaintEvent*) override
    {
        const vemo_base::Theme& theme = vemo_base::Theme::instance();
        QPainter painter(this);
        painter.fillRect(rect(), theme.color(vemo_base::Token::Surface));
        vemo_base::StylePainter::hairline(&painter, rect(), Qt::TopEdge, theme.mode());
    }
};

QScrollArea* makeScroll(SettingsSection* section, QWidget* parent)
{
    auto* scroll = new QScrollArea(parent);
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setWidgetResizable(true);
    scroll->setFocusPolicy(Qt::NoFocus);
    scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    scroll->setWidget(section);
    scroll->viewport()->setAutoFillBackground(false);
    section->setAutoFillBackground(false);
    return scroll;
}

} // namespace

SettingsPage::SettingsPage(const QStringList& languages, QWidget* parent)
    : QWidget(parent)
    , m_navigation(new vemo_base::NavigationWidget(this))
    , m_pages(new QStackedWidget(this))
{
    auto* content = new QVBoxLayout;
    content->setSpacing(0);
    content->addWidget(makeHead());
    content->addWidget(m_pages, 1);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_navigation);
    layout->addLayout(content, 1);
    for (QWidget* area : {static_cast<QWidget*>(m_navigation), static_cast<QWidget*>(m_pages)})
        area->setProperty("area", true);

    m_sections = SettingsSections::make(languages, this);
    for (SettingsSection* section : qAsConst(m_sections)) {
        m_navigation->addNavigationBar(section->key(), section->title(), {section->icon(), section->icon()});
        m_pages->addWidget(makeScroll(section, m_pages));
        connect(section, &SettingsSection::signalEdited, this, &SettingsPage::refresh);
    }
    content->addWidget(makeFoot()); // behind the sections in the order of the Tab key
    connect(m_navigation, &vemo_base::NavigationWidget::signalCurAction, this, &SettingsPage::showSection);
    connect(&SystemConfig::instance(), &SystemConfig::signalConfigChanged, this, [this] {
        if (changes() == 0)
            load();
    });
    connect(&vemo_base::Theme::instance(), &vemo_base::Theme::signalChanged, this, [this] {
        if (changes() == 0)
            load();
    });
    connect(&SystemWorker::instance(), &SystemWorker::signalCurUserChanged, this, &SettingsPage::applyPowers);
    fillSearch();
    load();
    applyPowers();
    showSection(m_navigation->setDefaultAction(m_sections.first()->key()));
}

QWidget* SettingsPage::makeHead()
{
    auto* head = new QWidget(this);
    head->setProperty("area", true);
    m_title = new QLabel(head);
    QFont font = m_title->font();
    font.setPixelSize(titlePixels);
    font.setWeight(QFont::DemiBold);
    m_title->setFont(font);
    m_search = new QLineEdit(head);
    m_search->addAction(vemo_base::Icons::icon(QStringLiteral("search")), QLineEdit::LeadingPosition)
        ->setToolTip(tr("Search settings"));
    m_search->setPlaceholderText(tr("Search settings"));
    m_search->setAccessibleName(tr("Search settings"));
    m_search->setMaxLength(longestSearch);
    m_search->setMinimumWidth(searchWidth);
    m_reason = new MessageLine(head);
    m_reason->hide();
    auto* row = new QHBoxLayout;
    row->setSpacing(headGap);
    row->addWidget(m_title, 1);
    row->addWidget(m_search);
    auto* layout = new QVBoxLayout(head);
    layout->setContentsMargins(margin, topMargin, margin, headGap);
    layout->setSpacing(buttonGap);
    layout->addLayout(row);
    layout->addWidget(m_reason);
    auto* find = new QShortcut(QKeySequence::Find, this, nullptr, nullptr, Qt::WidgetWithChildrenShortcut);
    connect(find, &QShortcut::activated, m_search, [this] {
        m_search->setFocus(Qt::ShortcutFocusReason);
        m_search->selectAll();
    });
    return head;
}

QWidget* SettingsPage::makeFoot()
{
    auto* foot = new FootWt(this);
    foot->setProperty("area", true);
    foot->setProperty("bottomBar", true);
    m_state = new MessageLine(foot);
    m_discard = new QPushButton(tr("Discard"), foot);
    m_save = new QPushButton(vemo_base::Icons::icon(QStringLiteral("check")), tr("Save"), foot);
    m_save->setProperty("kind", QStringLiteral("primary"));
    auto* layout = new QHBoxLayout(foot);
    layout->setContentsMargins(margin, footVertical, margin, footVertical);
    layout->setSpacing(buttonGap);
    layout->addWidget(m_state, 1, Qt::AlignVCenter);
    layout->addWidget(m_discard);
    layout->addWidget(m_save);
    connect(m_discard, &QPushButton::clicked, this, &SettingsPage::load);
    connect(m_save, &QPushButton::clicked, this, &SettingsPage::save);
    return foot;
}

QVector<SettingField*> SettingsPage::fields() const
{
    QVector<SettingField*> all;
    for (const SettingsSection* section : m_sections)
        all += section->fields();
    return all;
}

// Search

void SettingsPage::fillSearch()
{
    QStringList texts;
    for (const SettingsSection* section : qAsConst(m_sections)) {
        m_found.insert(section->title(), {section->key(), nullptr});
        texts.append(section->title());
        const QVector<SettingField*> fields = section->fields();
        for (SettingField* field : fields) {
            const QString text = tr("%1 (%2)").arg(field->label(), section->title());
            m_found.insert(text, {section->key(), field});
            texts.append(text);
        }
    }
    auto* completer = new QCompleter(texts, this);
    completer->setCaseSensitivity(Qt::CaseInsensitive);
    completer->setFilterMode(Qt::MatchContains);
    completer->setMaxVisibleItems(mostFound);
    m_search->setCompleter(completer);
    // Once the completer has written the text it found into the field.
    connect(completer, QOverload<const QString&>::of(&QCompleter::activated), this, &SettingsPage::goTo,
            Qt::QueuedConnection);
    connect(m_search, &QLineEdit::returnPressed, this, [this, completer] {
        if (!m_search->text().isEmpty() && !m_found.contains(m_search->text()) && completer->completionCount() > 0)
            goTo(completer->currentCompletion());
    });
}

void SettingsPage::goTo(const QString& found)
{
    const auto place = m_found.value(found);
    if (place.first.isEmpty())
        return;
    m_search->clear();
    showSection(place.first);
    if (!place.second)
        return;
    // Laid out by then.
    QTimer::singleShot(0, place.second, [this, field = place.second] {
        if (auto* scroll = qobject_cast<QScrollArea*>(m_pages->currentWidget()))
            scroll->ensureWidgetVisible(field);
        field->pointOut();
    });
}

void SettingsPage::showSection(const QString& key)
{
    for (int i = 0; i < m_sections.size(); ++i) {
        if (m_sections.at(i)->key() != key)
            continue;
        m_pages->setCurrentIndex(i);
        m_title->setText(m_sections.at(i)->title());
        if (m_navigation->curAction() != key)
            m_navigation->setDefaultAction(key);
    }
}

// Changes

int SettingsPage::changes() const
{
    int count = 0;
    for (const SettingField* field : fields())
        count += field->isChanged() ? 1 : 0;
    return count;
}

void SettingsPage::load()
{
    for (SettingField* field : fields())
        field->load();
    refresh();
}

void SettingsPage::save()
{
    for (SettingField* field : fields()) {
        if (field->isAcceptable())
            field->save();
    }
    load();
}

void SettingsPage::refresh()
{
    const int count = changes();
    bool isAcceptable = true;
    for (const SettingField* field : fields())
        isAcceptable = isAcceptable && (!field->isChanged() || field->isAcceptable());
    m_discard->setEnabled(count > 0);
    m_save->setEnabled(count > 0 && isAcceptable);
    if (count == 0)
        m_state->clear();
    else if (!isAcceptable)
        m_state->tell(MessageLine::Tone::Error, tr("Mend what is marked in red, then the changes can be saved."));
    else
        m_state->tell(MessageLine::Tone::Plain,
                      count == 1 ? tr("1 change not saved") : tr("%1 changes not saved").arg(count));
}

bool SettingsPage::mayLeave()
{
    const int count = changes();
    if (count == 0)
        return true;
    vemo_base::VMessageBox box(vemo_base::VMessageBox::Kind::Question, tr("Changes that are not saved"),
                               count == 1
                                   ? tr("1 change of the settings is not saved. Give it up and go on?")
                                   : tr("%1 changes of the settings are not saved. Give them up and go on?").arg(count),
                               tr("Discard"), this);
    if (box.exec() != QDialog::Accepted)
        return false;
    load();
    return true;
}

void SettingsPage::applyPowers()
{
    const bool mayChange = SystemWorker::instance().isCurUserHasPower(vemo_worker::PowerSettings);
    const QString reason = tr("These settings concern everybody on this computer. Only users with the power to change "
                              "settings may change them.");
    m_reason->setVisible(!mayChange);
    m_reason->tell(MessageLine::Tone::Plain, mayChange ? QString() : reason, QStringLiteral("lock"));
    for (SettingField* field : fields()) {
        const bool isOpen = mayChange || field->scope() == SettingField::Scope::Person;
        field->setEnabled(isOpen);
        field->setToolTip(isOpen ? QString() : reason);
    }
}

} // namespace vemo_client
