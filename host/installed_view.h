// A view for a while.
#pragma once

#include <memory>
#include <utility>

#include "wynconfig/view.h"

namespace host {

/// Installs a view, and at the end of its life the one before. They end in reverse order.
class InstalledView {
  public:
    /// @param view  null: none, so that whatever comes up is cancelled
    explicit InstalledView(std::shared_ptr<wynconfig::View> view)
        : m_before(std::exchange(s_installed, std::move(view))) {
        wynconfig::installView(s_installed);
    }
    ~InstalledView() {
        s_installed = std::move(m_before);
        wynconfig::installView(s_installed);
    }
    InstalledView(const InstalledView&) = delete;
    InstalledView& operator=(const InstalledView&) = delete;

  private:
    inline static std::shared_ptr<wynconfig::View> s_installed;
    std::shared_ptr<wynconfig::View> m_before;
};

}  // namespace host
