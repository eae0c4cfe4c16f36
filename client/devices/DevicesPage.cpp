#include "DevicesPage.h"

#include "CertificateDialog.h"
#include "DeviceDetailsWt.h"
#include "DeviceListBt.h"
#include "DevicesTable.h"
#include "DiscoveryDialog.h"
#include "GroupDialog.h"
#include "RecorderDialog.h"
#include "RecorderLogins.h"
#include "RemoveQuestion.h"
#include "RenameGroupDialog.h"

#include <DevsMgrData.h>
#include <EmptyStateWt.h>
#include <Icons.h>
#include <PageHeader.h>
#include <SearchBox.h>
#include <TableFooter.h>
#include <WrappingBar.h>

#include <QGridLayout>
#include <QMenu>
#include <QPushButton>
#include <QShortcut>
#include <QStackedLayout>
#include <QVariant>
#include <QVBoxLayout>

namespace vemo_client {

namespace {

using vemo_base::PageHeader;

constexpr int pageMargin = 24;
constexpr int pageTop = 20;

enum Content : int { RowsContent = 0, NothingContent, NoHitContent };

} // namespace

DevicesPage::DevicesPage(RecorderLogins* logins, QWidget* parent)
    : QWidget(parent)
    , m_logins(logins)
    , m_header(new PageHeader(tr("Devices"), this))
{
    QPushButton* find = m_header->addButton(QStringLiteral("findBt"), QStringLiteral("search"),
                                            tr("Find on the network..."), PageHeader::Weight::Secondary);
    QPushButton* add = m_header->addButton(QStringLiteral("addBt"), QStringLiteral("add"), tr("Add by address..."),
                                           PageHeader::Weight::Primary);
    m_header->addTool(new DeviceListBt(m_logins, m_header));
    connect(find, &QPushButton::clicked, this, &DevicesPage::findOnNetwork);
    connect(add, &QPushButton::clicked, this, &DevicesPage::addByAddress);

    QWidget* content = makeContent();
    m_bar = makeBar();
    for (QWidget* area : QList<QWidget*>{m_header, m_bar, content})
        area->setProperty("area", true);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(pageMargin, pageTop, pageMargin, pageTop - 8);
    layout->setSpacing(12);
    layout->addWidget(m_header);
    layout->addWidget(m_bar);
    layout->addWidget(content, 1);

    connect(m_table, &DevicesTable::signalRowsChanged, this, &DevicesPage::showContent);
    connect(m_table, &DevicesTable::signalCheckedChanged, this, &DevicesPage::showChecked);
    connect(m_table, &DevicesTable::signalDetails, this, &DevicesPage::showRecorder);
    connect(m_table, &DevicesTable::signalEdit, this, &DevicesPage::edit);
    connect(m_table, &DevicesTable::signalReconnect, m_logins, &RecorderLogins::retry);
    connect(m_table, &DevicesTable::signalEnable, m_logins, &RecorderLogins::setEnabled);
    connect(m_table, &DevicesTable::signalRemove, this,
            [this](const QStringList& devIds) { RemoveQuestion::ask(m_logins, devIds, window()); });
    connect(m_table, &DevicesTable::signalMenu, this, &DevicesPage::showMenu);
    connect(new QShortcut(QKeySequence::Find, this), &QShortcut::activated, this,
            [this] { m_filter->setFocus(Qt::ShortcutFocusReason); });
    showContent();
    showChecked();
}

DevicesPage::~DevicesPage()
{
    // A page that is destroyed is hidden first; its tables would lay themselves out once more for that.
    delete m_details;
    delete m_table;
}

QPushButton* DevicesPage::addDeed(QWidget* bar, const QString& objectName, const QString& icon, const QString& text)
{
    auto* button = new QPushButton(vemo_base::Icons::icon(icon), text, bar);
    button->setObjectName(objectName);
    bar->layout()->addWidget(button);
    m_deeds.append(button);
    return button;
}

QWidget* DevicesPage::makeBar()
{
    auto* bar = new vemo_base::WrappingBar(this);
    m_filter = new vemo_base::SearchBox(bar);
    m_filter->setPlaceholderText(tr("Filter by name, address, group or channel"));
    m_filter->setAccessibleName(m_filter->placeholderText());
    m_filter->setMinimumWidth(300);
    connect(m_filter, &QLineEdit::textChanged, m_table, &DevicesTable::setFilter);

    auto* deeds = new QWidget(bar);
    auto* row = new QHBoxLayout(deeds);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(8);
    const auto onChecked = [this](const std::function<void(const QStringList&)>& deed) {
        return [this, deed] { deed(m_table->checkedDevIds()); };
    };
    connect(addDeed(deeds, QStringLiteral("enableBt"), QStringLiteral("start"), tr("Enable")), &QPushButton::clicked,
            this, [this] { setEnabledOfChecked(true); });
    connect(addDeed(deeds, QStringLiteral("disableBt"), QStringLiteral("pause"), tr("Disable")), &QPushButton::clicked,
            this, [this] { setEnabledOfChecked(false); });
    connect(addDeed(deeds, QStringLiteral("reconnectBt"), QStringLiteral("sync"), tr("Log in again")),
            &QPushButton::clicked, this, onChecked([this](const QStringList& devIds) {
                for (const QString& devId : devIds)
                    m_logins->retry(devId);
            }));
    connect(addDeed(deeds, QStringLiteral("groupBt"), QStringLiteral("local-files"), tr("Group...")),
            &QPushButton::clicked, this,
            onChecked([this](const QStringList& devIds) { (new GroupDialog(devIds, window()))->open(); }));
    connect(addDeed(deeds, QStringLiteral("removeBt"), QStringLiteral("clean"), tr("Remove...")), &QPushButton::clicked,
            this, onChecked([this](const QStringList& devIds) { RemoveQuestion::ask(m_logins, devIds, window()); }));

    auto* grid = new QGridLayout(bar);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->addWidget(m_filter, 0, 0);
    grid->addWidget(deeds, 0, 1, Qt::AlignTrailing);
    grid->setColumnStretch(1, 1);
    return bar;
}

QWidget* DevicesPage::makeContent()
{
    auto* content = new QWidget(this);
    m_content = new QStackedLayout(content);
    auto* rows = new QWidget(content);
    m_table = new DevicesTable(m_logins, rows);
    m_footer = new vemo_base::TableFooter(rows);
    m_footer->addKey(tr("Enter"), tr("details"));
    m_footer->addKey(tr("Space"), tr("select"));
    m_footer->addKey(tr("Del"), tr("remove"));
    auto* rowsLayout = new QVBoxLayout(rows);
    rowsLayout->setContentsMargins(0, 0, 0, 0);
    rowsLayout->setSpacing(8);
    rowsLayout->addWidget(m_table, 1);
    rowsLayout->addWidget(m_footer);
    m_content->addWidget(rows);

    auto* nothing =
        new vemo_base::EmptyStateWt(QStringLiteral("devices"), tr("No recorder is known yet."),
                                    tr("Let the client look for recorders on your network, or add one by its address."),
                                    tr("Find on the network..."), content);
    nothing->setButtonSecondary();
    connect(nothing, &vemo_base::EmptyStateWt::signalButtonClicked, this, &DevicesPage::findOnNetwork);
    m_content->addWidget(nothing);
    auto* noHit = new vemo_base::EmptyStateWt(QStringLiteral("filter"), tr("No recorder matches the filter."),
                                              tr("Names, addresses, groups, models and channels are looked through."),
                                              tr("Clear the filter"), content);
    noHit->setButtonSecondary();
    connect(noHit, &vemo_base::EmptyStateWt::signalButtonClicked, this, [this] { m_filter->clear(); });
    m_content->addWidget(noHit);
    return content;
}

void DevicesPage::showContent()
{
    const int count = m_table->rows();
    m_bar->setVisible(count > 0);
    m_content->setCurrentIndex(count == 0 ? NothingContent : m_table->shownRows() == 0 ? NoHitContent : RowsContent);
    const int offline = m_logins->offline().size();
    const QString known = count == 1 ? tr("1 recorder") : tr("%1 recorders").arg(count);
    m_header->setSummary(count == 0     ? QString()
                         : offline == 0 ? known
                                        : tr("%1, %2 not online").arg(known).arg(offline));
}

void DevicesPage::showChecked()
{
    const int count = m_table->checkedDevIds().size();
    m_footer->setText(count == 0 ? QString() : count == 1 ? tr("1 selected") : tr("%1 selected").arg(count));
    for (QPushButton* deed : qAsConst(m_deeds)) {
        deed->setEnabled(count > 0);
        deed->setToolTip(count > 0 ? QString() : tr("Select recorders in the list first."));
    }
}

void DevicesPage::setEnabledOfChecked(bool enabled)
{
    const QStringList devIds = m_table->checkedDevIds();
    for (const QString& devId : devIds)
        m_logins->setEnabled(devId, enabled);
}

void DevicesPage::showMenu(const QString& devId, const QPoint& globalPos)
{
    const RecorderLogins::Phase phase = m_logins->login(devId).phase;
    const bool isDisabled = phase == RecorderLogins::Phase::Disabled;
    const QString group = vemo_data::DevsMgrData::instance().devRecord(devId).group;
    auto* menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    const auto add = [this, menu](const QString& text, const std::function<void()>& deed) {
        QAction* action = menu->addAction(text);
        connect(action, &QAction::triggered, this, deed);
        return action;
    };
    add(tr("Details"), [this, devId] { showRecorder(devId); });
    add(tr("Log in again"), [this, devId] { m_logins->retry(devId); })->setEnabled(!isDisabled);
    if (phase == RecorderLogins::Phase::CertificateUnknown)
        add(tr("Check the key..."), [this, devId] { checkCertificate(devId); });
    menu->addSeparator();
    add(tr("Change..."), [this, devId] { edit(devId); });
    add(isDisabled ? tr("Enable") : tr("Disable"),
        [this, devId, isDisabled] { m_logins->setEnabled(devId, isDisabled); });
    add(tr("Group..."), [this, devId] { (new GroupDialog({devId}, window()))->open(); });
    if (!group.isEmpty())
        add(tr("Rename the group..."), [this, group] { (new RenameGroupDialog(group, window()))->open(); });
    menu->addSeparator();
    add(tr("Remove..."), [this, devId] { RemoveQuestion::ask(m_logins, {devId}, window()); });
    menu->popup(globalPos);
}

void DevicesPage::showRecorder(const QString& devId)
{
    if (!vemo_data::DevsMgrData::instance().contains(devId))
        return;
    if (!m_details) {
        m_details = new DeviceDetailsWt(m_logins, this);
        connect(m_details, &DeviceDetailsWt::signalEdit, this, &DevicesPage::edit);
        connect(m_details, &DeviceDetailsWt::signalCertificate, this, &DevicesPage::checkCertificate);
    }
    m_table->showDevice(devId);
    m_details->showDevice(devId);
}

void DevicesPage::findOnNetwork()
{
    auto* dialog = new DiscoveryDialog(m_logins, window());
    connect(dialog, &DiscoveryDialog::signalAddByAddress, this, &DevicesPage::addByAddress);
    dialog->open();
}

void DevicesPage::addByAddress()
{
    (new RecorderDialog(m_logins, QString(), window()))->open();
}

void DevicesPage::edit(const QString& devId)
{
    (new RecorderDialog(m_logins, devId, window()))->open();
}

void DevicesPage::checkCertificate(const QString& devId)
{
    if (m_logins->login(devId).phase == RecorderLogins::Phase::CertificateUnknown)
        (new CertificateDialog(m_logins, devId, window()))->open();
}

} // namespace vemo_client
