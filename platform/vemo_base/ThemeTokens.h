#pragma once

#include "vemo_base_global.h"

#include <QColor>

namespace vemo_base {

/// Names of the colours that the client uses; the tables of both themes stand in ThemeTokens.cpp, and nowhere else is a
/// colour written.
enum class Token : int {
    Well = 0,
    Base,
    Surface,
    Raised,
    Overlay,
    Border,
    Control,
    Text,
    Text2,
    Text3,
    Field,
    Accent,
    AccentHover,
    AccentPress,
    OnAccent,
    AccentText,
    Progress,
    Track,
    Hover,
    Press,
    Select,
    Focus,
    Success,
    Warning,
    Error,
    ErrorFill,
    // Of time axes, which are dark islands: the same in both themes.
    Axis,
    AxisSegment,
    AxisBackedUp,
    AxisNoRecording,
    AxisRecording,
    AxisAlarm,
    Count
};

enum class ThemeMode : int { Unknown = 0, Dark, Light };

VEMO_BASE_EXPORT QColor themeColor(ThemeMode mode, Token token);

} // namespace vemo_base
