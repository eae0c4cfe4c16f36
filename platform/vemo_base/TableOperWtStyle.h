#pragma once

#include "vemo_base_global.h"

#include <QObject>

namespace vemo_base {

/// The styles that a row gives to the widgets in its cells: at rest, under the pointer, selected. GUI thread.
class VEMO_BASE_EXPORT TableOperWtStyle final
{
    Q_GADGET

public:
    enum class Style : int { Rest = 0, Hover, Selected };
    Q_ENUM(Style)
};

} // namespace vemo_base
