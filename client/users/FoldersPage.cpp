#include "FoldersPage.h"

#include "FolderField.h"

#include <SystemConfig.h>

#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>

namespace vemo_client {

using vemo_worker::SystemConfig;

FoldersPage::FoldersPage(QWidget* parent)
    : AuthForm(parent)
{
    addStep(2);
    addTitle(tr("Choose where files are kept"));
    addSentence(tr("Footage takes much room. Each folder may lie on a disk of its own and can be changed later in the "
                   "settings."));
    SystemConfig& config = SystemConfig::instance();
    const struct
    {
        QString name;
        FolderField::Get get;
        FolderField::Set set;
    } folders[] = {
        {tr("Recordings and snapshots of live video"), [&config] { return config.getVideoFilePath(true); },
         [&config](const QString& folder) { config.setVideoFilePath(folder); }},
        {tr("Downloads"), [&config] { return config.getDownloadPath(); },
         [&config](const QString& folder) { config.setDownloadPath(folder); }},
        {tr("Recordings backup"), [&config] { return config.getRecordingBackupPath(); },
         [&config](const QString& folder) { config.setRecordingBackupPath(folder); }},
    };
    for (const auto& folder : folders) {
        auto* field = new FolderField(folder.name, folder.get, folder.set, this);
        addField(folder.name, field);
        addGap(12);
        m_fields.append(field);
    }
    addGap(4);
    QPushButton* next = addPrimary(tr("Continue"));
    addRest();
    connect(next, &QPushButton::clicked, this, &FoldersPage::signalDone);
    // A folder that was never chosen follows the one above it.
    connect(&config, &SystemConfig::signalConfigChanged, this, [this] {
        for (FolderField* field : qAsConst(m_fields))
            field->refresh();
    });
    for (FolderField* field : qAsConst(m_fields)) {
        connect(field, &FolderField::signalChecked, next, [this, next] {
            next->setEnabled(std::all_of(m_fields.begin(), m_fields.end(),
                                         [](const FolderField* each) { return each->isUsable(); }));
            // It could not take the focus before.
            if (!focusWidget() || !focusWidget()->hasFocus())
                next->setFocus(Qt::OtherFocusReason);
        });
        field->refresh();
    }
    next->setEnabled(false);
    setFocusProxy(next);
}

} // namespace vemo_client
