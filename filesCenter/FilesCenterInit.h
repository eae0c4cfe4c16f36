#pragma once

#include "filesCenter_global.h"

#include <QObject>

namespace vemo_base {
class BaseForm;
}

namespace vemo_filesCenter {

/// The module's entry, and all that it exports. The host creates it, or calls instance(), on the GUI thread after the
/// application object stands; from then on download requests of other modules are served, with or without a form.
class FILESCENTER_EXPORT FilesCenterInit : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(FilesCenterInit)

public:
    explicit FilesCenterInit(QObject* parent);
    ~FilesCenterInit() override;

    static FilesCenterInit& instance();

    /// Part of the host's contract for modules: nothing to do here.
    virtual void moduleInit();
    /// Part of the host's contract for modules: nothing to do here.
    virtual void recoveryToInitialState();

    /// A new form on every call; the caller owns it.
    vemo_base::BaseForm* createFilesCenterForm();
};

} // namespace vemo_filesCenter
