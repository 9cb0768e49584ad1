/// @file
/// The view without a screen: a `User` drives the models themselves.
#pragma once

#include <memory>

#include "wynconfig/export.h"
#include "wynconfig/user.h"
#include "wynconfig/view.h"

namespace wynconfig {

/// A view for tests and for hosts without a screen.
class WYNCONFIG_API ScriptedView : public View {
  public:
    /// A view with a person who was told nothing yet.
    ScriptedView();
    ~ScriptedView() override;

    /// The person who answers whatever this view shows.
    User& user();

    /// Has the person act on the form. One that the person leaves open is cancelled.
    void showModal(Form& form) override;
    /// Has the person answer the box.
    int showMessage(const MessageRequest& box) override;
    /// Has the person pick a path.
    std::string browse(const BrowseRequest& request) override;
    /// Does nothing: there are no windows.
    void raise(Form& form, bool topMost) override;
    /// 0: there is no screen.
    long deviceContext(Form& form) override;
    /// Has the person see it.
    void showProgress(const Progress& progress) override;

  private:
    class WYNCONFIG_INSIDE Person;
    std::unique_ptr<Person> m_person;
};

}  // namespace wynconfig
