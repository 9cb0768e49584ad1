// The view without a screen: a `User` drives the models themselves.
#pragma once

#include <memory>

#include "wynconfig/export.h"
#include "wynconfig/user.h"
#include "wynconfig/view.h"

namespace wynconfig {

/// A view for tests and for hosts without a screen.
class WYNCONFIG_API ScriptedView : public View {
  public:
    ScriptedView();
    ~ScriptedView() override;

    /// The person who answers whatever this view shows.
    User& user();

    void showModal(Form& form) override;
    int showMessage(const MessageBox& box) override;
    std::string browse(const BrowseRequest& request) override;
    void raise(Form& form, bool topMost) override;
    long deviceContext(Form& form) override;

  private:
    class WYNCONFIG_INSIDE Person;
    std::unique_ptr<Person> m_person;
};

}  // namespace wynconfig
