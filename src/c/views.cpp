// Views and observers of hosts in C.
#include "c/calls.h"
#include "wynconfig/observer.h"
#include "wynconfig/scripted_view.h"
#include "wynconfig/view.h"
#include "wynconfig/wynconfig.h"

namespace wynconfig::c {

namespace {

template <class View>
std::shared_ptr<User> userOf(const std::shared_ptr<View>& view) {
    return {view, &view->user()};
}

/// The view of a host in C. A played person acts on the forms in its place, so that what it does
/// is what a person could do.
class HostedView : public View {
  public:
    explicit HostedView(const wyn_view& functions) : m_host(functions) {}

    void showModal(Form& form) override {
        if (!form.loaded()) return;
        const auto user = userOf(m_screen);
        const std::string name(form.name());
        const std::size_t failures = failureCount();
        std::int32_t status = WYN_OK;
        user->onForm(name, [&](User&) {
            const FormScope scope(user, name, &form);
            status = m_host->show_modal(m_host->context, scope.handle());
        });
        m_screen->showModal(form);
        try {
            user->finish();
        } catch (const UserError&) {
            // It was left open, and is cancelled by now.
        }
        requireOk(status, "show_modal", failures);
    }
    int showMessage(const MessageRequest& box) override {
        const bool isQuestion = (box.style & 0xF) == boxstyle::YesNo;
        const std::int32_t unanswered = isQuestion ? answer::No : answer::Ok;
        if (!m_host->show_message) return unanswered;
        const Covered covered;
        const wyn_box shown = boxOut(box);
        std::int32_t given = unanswered;
        callHost("show_message", m_host->show_message, m_host->context, &shown, &given);
        return given;
    }
    std::string browse(const BrowseRequest& request) override {
        if (!m_host->browse) return {};
        const Covered covered;
        const auto answer = std::make_shared<Answer>();
        const Scoped<Answer> open(answer);
        const wyn_browse asked{sizeof(wyn_browse), request.title.c_str(), request.okCaption.c_str(),
                               request.cancelCaption.c_str(), request.files ? 1 : 0};
        callHost("browse", m_host->browse, m_host->context, &asked, open.handle());
        return answer->text;
    }
    void raise(Form&, bool topMost) override {
        if (m_host->raise) callHost("raise", m_host->raise, m_host->context, topMost ? 1 : 0);
    }
    long deviceContext(Form&) override {
        std::int64_t handle = 0;
        if (m_host->device_context)
            callHost("device_context", m_host->device_context, m_host->context, &handle);
        return static_cast<long>(handle);
    }

    void showProgress(const Progress& progress) override {
        if (!m_host->show_progress) return;
        const Covered covered;
        const wyn_progress told{sizeof(wyn_progress),   stageOut(progress.stage),
                                progress.title.c_str(), progress.text.c_str(),
                                progress.done,          progress.all};
        callHost("show_progress", m_host->show_progress, m_host->context, &told);
    }

  private:
    static std::int32_t stageOut(Progress::Stage stage) {
        switch (stage) {
            case Progress::Stage::Begins:
                return WYN_PROGRESS_BEGINS;
            case Progress::Stage::Lasts:
                return WYN_PROGRESS_LASTS;
            case Progress::Stage::Ends:
                break;
        }
        return WYN_PROGRESS_ENDS;
    }

    Hosted<wyn_view> m_host;
    std::shared_ptr<ScriptedView> m_screen = std::make_shared<ScriptedView>();
};

class HostedObserver : public Observer {
  public:
    explicit HostedObserver(const wyn_observer& functions) : m_host(functions) {}

    void failed(const Failure& failure) override {
        if (!m_host->failed) return;
        const wyn_failure told{sizeof(wyn_failure), failure.operation.c_str(), failure.tag.c_str(),
                               static_cast<std::int32_t>(failure.number),
                               failure.description.c_str()};
        m_host->failed(m_host->context, &told);
    }
    void answered(const MessageRequest& box, int answer) override {
        if (!m_host->answered) return;
        const wyn_box shown = boxOut(box);
        m_host->answered(m_host->context, &shown, answer);
    }

  private:
    Hosted<wyn_observer> m_host;
};

}  // namespace

wyn_box boxOut(const MessageRequest& box) {
    return {sizeof(wyn_box), box.text.c_str(), box.title.c_str(), box.okCaption.c_str(), box.style};
}

}  // namespace wynconfig::c

using namespace wynconfig;
using namespace wynconfig::c;

int32_t wyn_leave(void) {
    return run("wyn_leave", [] {
        installView(nullptr);
        installObserver(nullptr);
        WYNConfig().InitResourceManager(nullptr);
        forgetAll();
    });
}

int32_t wyn_install_view(const wyn_view* view) {
    return run("wyn_install_view", [&] {
        if (!view) return installView(nullptr);
        const wyn_view functions = structIn(view, offsetof(wyn_view, show_progress));
        if (!functions.show_modal) throw Error(WYN_ERROR_CALL, "A view has to show forms.");
        installView(std::make_shared<HostedView>(functions));
    });
}

int32_t wyn_install_observer(const wyn_observer* observer) {
    return run("wyn_install_observer", [&] {
        if (!observer) return installObserver(nullptr);
        installObserver(std::make_shared<HostedObserver>(structIn(observer)));
    });
}

int32_t wyn_install_scripted_view(wyn_user** user) {
    return run("wyn_install_scripted_view", [&] {
        const auto view = std::make_shared<ScriptedView>();
        installView(view);
        if (user) *user = openUser(userOf(view));
    });
}
