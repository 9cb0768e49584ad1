// What of a layout has a use for more room than it needs: the same in every view.
#pragma once

#include <vector>

#include "wynconfig/layout.h"

namespace wynconfig {

/// Whether a control is a box, whose content knows no bounds: for text, with rows, or to choose in.
bool isBox(const Control& control);

/// Whether a node has a use for more height than it needs.
bool growsDown(const Layout& node);

/// Whether one of several does.
bool anyGrowsDown(const std::vector<Layout>& nodes);

}  // namespace wynconfig
