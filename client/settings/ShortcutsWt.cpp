#include "ShortcutsWt.h"

#include <KeyCap.h>

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPair>
#include <QVector>

namespace vemo_client {

namespace {

constexpr int keysWidth = 216;
constexpr int wordsLeading = 24;
constexpr int rowGap = 10;
constexpr int keyGap = 4;

using Keys = QPair<QStringList, QString>;

QString key(const char* name)
{
    return QString::fromUtf8(name);
}

QVector<Keys> keysOf(ShortcutsWt::Place place)
{
    const QString ctrl = ShortcutsWt::tr("Ctrl");
    const QString shift = ShortcutsWt::tr("Shift");
    const QString space = ShortcutsWt::tr("Space");
    const QString enter = ShortcutsWt::tr("Enter");
    const QString del = ShortcutsWt::tr("Del");
    const QString esc = ShortcutsWt::tr("Esc");
    switch (place) {
    case ShortcutsWt::Place::Window:
        return {
            {{key("F6")}, ShortcutsWt::tr("Go to the next area: top bar, navigation, tool bar, content, status bar")},
            {{ShortcutsWt::tr("Tab")}, ShortcutsWt::tr("Go to the next control in reading order")},
            {{esc}, ShortcutsWt::tr("Close what lies on top")}};
    case ShortcutsWt::Place::Tables:
        return {{{key("↑"), key("↓")}, ShortcutsWt::tr("Go from row to row")},
                {{space}, ShortcutsWt::tr("Check or uncheck the row")},
                {{enter}, ShortcutsWt::tr("Do the row's first action")},
                {{del}, ShortcutsWt::tr("Ask to delete what is checked")},
                {{ctrl, key("A")}, ShortcutsWt::tr("Select all rows")},
                {{ctrl, key("F")}, ShortcutsWt::tr("Go to the filter")},
                {{shift, key("F10")}, ShortcutsWt::tr("Open the row's menu")}};
    case ShortcutsWt::Place::Cards:
        return {{{key("←"), key("→"), key("↑"), key("↓")}, ShortcutsWt::tr("Go from picture to picture")},
                {{space}, ShortcutsWt::tr("Check or uncheck the picture")},
                {{enter}, ShortcutsWt::tr("Open the picture")}};
    case ShortcutsWt::Place::Player:
        return {{{space}, ShortcutsWt::tr("Play or pause")},
                {{key(","), key(".")}, ShortcutsWt::tr("One picture back or on")},
                {{key("←"), key("→")}, ShortcutsWt::tr("10 s back or on")},
                {{key("["), key("]")}, ShortcutsWt::tr("Slower or faster")},
                {{key("S")}, ShortcutsWt::tr("Keep the picture as a snapshot")},
                {{key("F")}, ShortcutsWt::tr("Full screen on or off")}};
    case ShortcutsWt::Place::Unknown:
        break;
    }
    return {};
}

} // namespace

ShortcutsWt::ShortcutsWt(Place place, QWidget* parent)
    : QWidget(parent)
{
    auto* layout = new QGridLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setHorizontalSpacing(wordsLeading);
    layout->setVerticalSpacing(rowGap);
    layout->setColumnMinimumWidth(0, keysWidth);
    layout->setColumnStretch(1, 1);
    int row = 0;
    for (const Keys& keys : keysOf(place)) {
        auto* caps = new QHBoxLayout;
        caps->setSpacing(keyGap);
        for (const QString& name : keys.first)
            caps->addWidget(new vemo_base::KeyCap(name, this));
        caps->addStretch(1);
        auto* words = new QLabel(keys.second, this);
        words->setTextFormat(Qt::PlainText);
        words->setWordWrap(true);
        layout->addLayout(caps, row, 0);
        layout->addWidget(words, row, 1);
        ++row;
    }
}

} // namespace vemo_client
