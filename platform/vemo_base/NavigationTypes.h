#pragma once

#include <QList>
#include <QString>

namespace vemo_base {

/// The icons of a navigation entry: paths of pictures whose shape counts; their colour comes from the theme. Where an
/// SVG of the same name stands beside a PNG, the SVG is drawn.
struct NavigationActionInfo
{
    QString normalIcon;
    QString highlightIcon;
};

struct NavigationSubAction
{
    QString key;
    QString text;
    NavigationActionInfo icons; ///< may be empty: sub-entries are shown by their words alone
};

} // namespace vemo_base
