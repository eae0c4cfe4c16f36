#include "CheckableClientTree.h"

#include "LocalViewTree.h"
#include "VideoPointTree.h"

namespace vemo_base {

CheckableClientTree::CheckableClientTree(ClientTree::Refusal refusal, QWidget* parent)
    : ClientTreeWt(std::move(refusal), parent)
{
    connect(videoPointTree(), &ClientTree::signalCheckedChanged, this, &CheckableClientTree::signalCheckedChanged);
    connect(localViewTree(), &ClientTree::signalCheckedChanged, this, &CheckableClientTree::signalCheckedChanged);
}

QStringList CheckableClientTree::checkedChannels() const
{
    return getCurShowTreeType() == LocalViewTreeType ? localViewTree()->getCheckedChannels()
                                                     : videoPointTree()->getCheckedChannels();
}

} // namespace vemo_base
