#include "DiscoveryDialog.h"

#include "NoticeCard.h"
#include "RecorderAddress.h"
#include "RecorderLogins.h"

#include <DevsMgrData.h>
#include <Icons.h>
#include <TableWidget.h>

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QStackedLayout>
#include <QVariant>
#include <QVBoxLayout>

namespace vemo_client {

namespace {

using vemo_base::TableWidget;
using Standing = NetworkSearch::Standing;

enum Column : int { AllColumn = 0, NameColumn, ModelColumn, AddressColumn, StateColumn, ColumnCount };

constexpr int dialogWidth = 760;
constexpr int contentHeight = 290;
constexpr int progressHeight = 6;
constexpr int progressMs = 100;
constexpr int longestText = 256;

struct StandingWords
{
    QString icon;
    vemo_base::Token tone;
    QString word;
};

} // namespace

DiscoveryDialog::DiscoveryDialog(RecorderLogins* logins, QWidget* parent)
    : TitledDialog(tr("Find recorders on the network"),
                   tr("Recorders that speak ONVIF answer by themselves. Choose which to add; all are logged in to with "
                      "the same user and password, and how each login goes is shown in the list."),
                   dialogWidth, parent)
    , m_logins(logins)
    , m_words(new QLabel(this))
    , m_progress(new QProgressBar(this))
    , m_content(new QStackedLayout)
    , m_nothing(new QLabel(this))
    , m_table(new TableWidget(this))
    , m_moved(new NoticeCard(this))
    , m_again(new QPushButton(vemo_base::Icons::icon(QStringLiteral("sync")), tr("Search again"), this))
    , m_add(new QPushButton(this))
{
    m_progress->setRange(0, NetworkSearch::durationMs);
    m_progress->setTextVisible(false);
    m_progress->setFixedHeight(progressHeight);
    QSizePolicy keepsRoom = m_progress->sizePolicy();
    keepsRoom.setRetainSizeWhenHidden(true);
    m_progress->setSizePolicy(keepsRoom);
    m_progress->setAccessibleName(tr("Time of the search"));
    m_words->setForegroundRole(QPalette::PlaceholderText);
    m_nothing->setWordWrap(true);
    m_nothing->setAlignment(Qt::AlignCenter);
    m_nothing->setForegroundRole(QPalette::PlaceholderText);
    m_moved->hide();
    m_content->addWidget(makeTable());
    m_content->addWidget(m_nothing);
    auto* content = new QWidget(this);
    content->setLayout(m_content);
    content->setFixedHeight(contentHeight);
    body()->addWidget(m_words);
    body()->addWidget(m_progress);
    body()->addWidget(m_moved);
    body()->addWidget(content);
    body()->addWidget(makeLogin());

    auto* byAddress = new QPushButton(tr("Add by address..."), this);
    byAddress->setProperty("kind", QStringLiteral("quiet"));
    for (QPushButton* button : {byAddress, m_again})
        button->setAutoDefault(false);
    buttons()->insertWidget(0, m_again);
    buttons()->insertWidget(1, byAddress);
    m_add->setProperty("kind", QStringLiteral("primary"));
    m_add->setDefault(true);
    buttons()->addWidget(m_add);

    connect(m_again, &QPushButton::clicked, this, &DiscoveryDialog::search);
    connect(m_add, &QPushButton::clicked, this, &DiscoveryDialog::accept);
    connect(byAddress, &QPushButton::clicked, this, [this] {
        reject();
        emit signalAddByAddress();
    });
    connect(m_moved, &NoticeCard::signalDeed, this, [this] {
        const NetworkSearch::Found found = m_search.found().value(m_movedIndex);
        if (found.standing != Standing::Moved)
            return;
        m_logins->moveTo(found.devId, found.address);
        m_search.judgeAgain();
    });
    connect(&m_search, &NetworkSearch::signalFound, this, &DiscoveryDialog::showFound);
    connect(&m_search, &NetworkSearch::signalFinished, this, &DiscoveryDialog::takeFinished);
    connect(&m_progressTimer, &QTimer::timeout, this, &DiscoveryDialog::showProgress);
    search();
}

DiscoveryDialog::~DiscoveryDialog() = default;

QWidget* DiscoveryDialog::makeTable()
{
    m_table->setColumnCount(ColumnCount);
    m_table->setHorizontalHeaderLabels({tr("All"), tr("Name"), tr("Model"), tr("Address"), tr("State")});
    m_table->setCheckHeader(tr("All"));
    m_table->setColumnRoom({72, 0, 140, 190, 170});
    m_table->setColumnTone(ModelColumn, vemo_base::Token::Text2);
    m_table->setColumnTone(AddressColumn, vemo_base::Token::Text2);
    m_table->setColumnElide(AddressColumn, Qt::ElideMiddle);
    m_table->setChipColumn(StateColumn);
    m_table->setAccessibleName(tr("Recorders that answered"));
    connect(m_table, &TableWidget::signalCheckedCountChanged, this, &DiscoveryDialog::showChosen);
    auto* room = new QWidget(this);
    auto* layout = new QVBoxLayout(room);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_table);
    layout->addStretch();
    return room;
}

QWidget* DiscoveryDialog::makeLogin()
{
    auto* login = new QWidget(this);
    auto* grid = new QGridLayout(login);
    grid->setContentsMargins(4, 4, 4, 4);
    grid->setHorizontalSpacing(16);
    grid->setVerticalSpacing(6);
    int column = 0;
    for (QLineEdit** field : {&m_user, &m_password}) {
        *field = new QLineEdit(login);
        (*field)->setMaxLength(longestText);
        auto* label = new QLabel(field == &m_user ? tr("User name") : tr("Password"), login);
        label->setBuddy(*field);
        (*field)->setAccessibleName(label->text());
        grid->addWidget(label, 0, column);
        grid->addWidget(*field, 1, column++);
    }
    m_password->setEchoMode(QLineEdit::Password);
    return login;
}

void DiscoveryDialog::search()
{
    m_table->setRowCount(0);
    m_content->setCurrentIndex(0);
    m_again->setEnabled(false);
    m_progress->setValue(0);
    m_progress->show();
    m_search.start();
    m_progressTimer.start(progressMs);
    showFound();
}

void DiscoveryDialog::showProgress()
{
    m_progress->setValue(m_progress->value() + progressMs);
}

/// What was chosen stays chosen while others answer.
void DiscoveryDialog::showFound()
{
    const QVector<NetworkSearch::Found>& found = m_search.found();
    {
        const TableWidget::BulkChange bulk(m_table);
        m_table->setRowCount(found.size());
        for (int row = 0; row < found.size(); ++row) {
            const NetworkSearch::Found& each = found.at(row);
            const bool isNew = each.standing == Standing::New;
            const StandingWords words =
                isNew ? StandingWords{QStringLiteral("add"), vemo_base::Token::AccentText, tr("New")}
                : each.standing == Standing::Moved
                    ? StandingWords{QStringLiteral("warning"), vemo_base::Token::Warning, tr("New address")}
                    : StandingWords{QStringLiteral("success"), vemo_base::Token::Success, tr("Already added")};
            const bool wasChecked = m_table->item(row, AllColumn) && m_table->item(row, AllColumn)->checkState() != 0;
            auto* box = new QTableWidgetItem;
            if (isNew)
                box->setCheckState(wasChecked ? Qt::Checked : Qt::Unchecked);
            m_table->setItem(row, AllColumn, box);
            const QString known = vemo_data::DevsMgrData::instance().getDevInfoById(each.devId).name;
            const QString name = !known.isEmpty()           ? known
                                 : !each.dev.name.isEmpty() ? each.dev.name
                                                            : each.address.host();
            const QStringList texts{name, each.dev.model, RecorderAddress::text(each.address), words.word};
            for (int column = NameColumn; column < ColumnCount; ++column) {
                auto* item = new QTableWidgetItem(texts.at(column - NameColumn));
                item->setTextAlignment(Qt::AlignCenter);
                m_table->setItem(row, column, item);
            }
            m_table->item(row, StateColumn)->setData(TableWidget::ToneRole, int(words.tone));
            m_table->item(row, StateColumn)->setData(TableWidget::IconRole, words.icon);
        }
    }
    const int count = found.size();
    if (m_search.isRunning())
        m_words->setText(count == 0   ? tr("Searching...")
                         : count == 1 ? tr("Searching... 1 recorder has answered.")
                                      : tr("Searching... %1 recorders have answered.").arg(count));
    else
        m_words->setText(count == 0   ? tr("No recorder has answered.")
                         : count == 1 ? tr("1 recorder has answered.")
                                      : tr("%1 recorders have answered.").arg(count));
    showMoved();
    showChosen();
}

void DiscoveryDialog::showMoved()
{
    m_movedIndex = -1;
    for (int i = 0; i < m_search.found().size() && m_movedIndex < 0; ++i) {
        if (m_search.found().at(i).standing == Standing::Moved)
            m_movedIndex = i;
    }
    const bool wasVisible = !m_moved->isHidden();
    m_moved->setVisible(m_movedIndex >= 0);
    if (m_movedIndex >= 0) {
        const NetworkSearch::Found& found = m_search.found().at(m_movedIndex);
        const vms_sdk::DevInfo info = vemo_data::DevsMgrData::instance().getDevInfoById(found.devId);
        m_moved->tell(NoticeCard::Weight::Warning,
                      tr("%1 answers at %2 now").arg(info.name, RecorderAddress::text(found.address)),
                      tr("It is stored with the address %1. Login, channels and tasks stay as they are.")
                          .arg(RecorderAddress::text(info.address)),
                      tr("Use the new address"));
    }
    if (wasVisible == m_moved->isHidden())
        fitHeight();
}

void DiscoveryDialog::showChosen()
{
    // "All" and the keys check every row; what can't be added has no box.
    const QList<int> rows = m_table->checkedRows();
    int count = 0;
    for (const int row : rows) {
        if (m_search.found().value(row).standing == Standing::New)
            ++count;
        else
            m_table->item(row, AllColumn)->setData(Qt::CheckStateRole, QVariant());
    }
    m_add->setText(count == 0 ? tr("Add") : count == 1 ? tr("Add 1 recorder") : tr("Add %1 recorders").arg(count));
    m_add->setEnabled(count > 0);
    m_user->setEnabled(count > 0);
    m_password->setEnabled(count > 0);
}

void DiscoveryDialog::takeFinished(const vms_sdk::Error& error)
{
    m_progressTimer.stop();
    m_progress->hide();
    m_again->setEnabled(true);
    showFound();
    if (!m_search.found().isEmpty())
        return;
    m_nothing->setText(
        error ? error.message
              : tr("Check that the recorder is switched on and in the same network as this computer, that ONVIF and "
                   "its discovery are switched on in the recorder's settings, and that no firewall holds back UDP port "
                   "3702.\n\nA recorder in another network does not hear the question: add it by its address."));
    m_content->setCurrentIndex(1);
}

void DiscoveryDialog::accept()
{
    const QList<int> rows = m_table->checkedRows();
    for (const int row : rows) {
        const NetworkSearch::Found found = m_search.found().value(row);
        if (found.standing != Standing::New)
            continue;
        vemo_data::DevRecord record;
        record.address = found.address;
        record.name = found.dev.name.simplified().left(longestText);
        record.user = m_user->text().trimmed();
        record.endpoint = found.dev.endpoint;
        m_logins->add(record, m_password->text());
    }
    TitledDialog::accept();
}

} // namespace vemo_client
