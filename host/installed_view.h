// A view for a while.
#pragma once

#include <memory>
#include <utility>

#include "wynconfig/view.h"

namespace host {

/// Installs a view, and takes it away again at the end of its life.
class InstalledView {
  public:
    explicit InstalledView(std::shared_ptr<wynconfig::View> view) {
        wynconfig::installView(std::move(view));
    }
    ~InstalledView() { wynconfig::installView(nullptr); }
    InstalledView(const InstalledView&) = delete;
    InstalledView& operator=(const InstalledView&) = delete;
};

}  // namespace host
