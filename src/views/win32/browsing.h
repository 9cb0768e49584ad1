// Browse dialogs for files and folders: those of Windows, with the titles that are asked for.
#pragma once

#include <functional>
#include <string>

#include "views/win32/winapi.h"
#include "wynconfig/view.h"

namespace wynconfig::native {

/// A browse dialog that is on the screen, for whoever drives it.
class Browsing {
  public:
    virtual ~Browsing() = default;
    virtual HWND window() const = 0;
    /// Writes a path into the box for it, and confirms.
    virtual void enter(const std::wstring& path) = 0;
    virtual void cancel() = 0;
};

/// Lets the person pick a path; the empty string when none was picked. Raises `Error` where the
/// system has no such dialog.
/// @param cameUp  is called from the dialog's message loop as soon as it runs
std::string browseForPath(const BrowseRequest& request, HWND owner,
                          const std::function<void(Browsing&)>& cameUp);

}  // namespace wynconfig::native
