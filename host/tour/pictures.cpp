// The played user who opens the dialogs, fills them a little, and takes their pictures.
#include "tour/pictures.h"

#include <QApplication>
#include <QTemporaryDir>
#include <memory>
#include <stdexcept>
#include <string>

#include "installed_view.h"
#include "sample/sample_store.h"
#include "wynconfig/qt_view.h"

namespace host {

namespace fs = std::filesystem;
using wynconfig::User;

namespace {

constexpr const char* kSession = "WORKSHOP COUNTER";
constexpr const char* kSessionList = "WORKSHOP COUNTER,DEALER ORDER DESK,WEB SHOP EXPORT";
constexpr const char* kFormat = "FIXED WIDTH";

class Photographer {
  public:
    Photographer(wynconfig::WYNConfig& component, fs::path folder)
        : m_component(component), m_folder(std::move(folder)) {}

    /// The view has to be installed, and the component set to a store.
    void takeAll() {
        std::string name;
        user().onForm("frmAddMORAMConfig", [this](User& u) { newSession(u); });
        m_component.showAddMORAMConfigDlg(name);
        name = kSession;
        user().onForm("frmMORAMConfig", [this](User& u) { session(u); });
        m_component.showMORAMConfigDlg(name);
        takeLists();
        user().finish();
    }

    const std::shared_ptr<wynconfig::QtView>& view() const { return m_view; }

  private:
    User& user() { return m_view->user(); }

    void take(const std::string& name) {
        m_view->savePicture((m_folder / (name + ".png")).string());
    }

    /// Presses a button, and takes a picture of the dialog that it opens.
    void takeBehind(User& u, const char* button, const char* form, const char* cancel,
                    const std::string& name) {
        u.onForm(form, [=, this](User& inner) {
            take(name);
            inner.click(cancel);
        });
        u.click(button);
    }

    /// The dialogs that list sessions; the manager with and without its buttons.
    void takeLists() {
        std::string name = kSession;
        const auto taking = [this](const std::string& picture) {
            return [this, picture](User& u) {
                take(picture);
                u.click("btnCancel");
            };
        };
        user().onForm("frmMORAMMaintenance", taking("maintenance"));
        m_component.showMORAMMaintenanceDlg(name);
        user().onForm("frmSessionManager", taking("session-list"));
        m_component.showSessionManagerDlg(kSessionList);
        user().onForm("frmSessionManager", taking("session-list-editing"));
        m_component.showConfigurableSessionManagerDlg(kSessionList);
    }

    void newSession(User& u) {
        u.type("txtName", "NIGHT COUNTER");
        u.choose("cboConfigs", kSession);
        take("new-session");
        u.click("btnCancel");
    }

    void session(User& u) {
        u.type("txtProgramPath", "/opt/workshop/counter");
        u.focus("txtDisplayName");
        take("session");
        takeBehind(u, "btnAdvanced", "dlgAdvConfig", "CancelButton", "advanced");
        u.onForm("frmTallyvaneConfig", [this](User& inner) { fileWriter(inner); });
        u.click("btnTallyvane");
        u.changeTab("SSTab2", 1);
        u.pick("lstAvailableFormats", kFormat);
        take("part-formats");
        takeBehind(u, "btnEdit", "frmPartNumberFormat", "btnCancel", "part-format");
        takeBehind(u, "btnRename", "dlgSingleEntry", "CancelButton", "new-name");
        u.click("btnCancel");
    }

    void fileWriter(User& u) {
        u.choose("cboPartFormat", kFormat);
        u.type("txtFileName", "parts.txt");
        u.type("txtFileFolder", "/srv/lists");
        take("file-writer");
        u.click("btnCancel");
    }

    wynconfig::WYNConfig& m_component;
    fs::path m_folder;
    std::shared_ptr<wynconfig::QtView> m_view = wynconfig::makeQtView();
};

}  // namespace

void takePictures(wynconfig::WYNConfig& component, const fs::path& folder) {
    fs::create_directories(folder);
    const QTemporaryDir place;
    if (!place.isValid()) throw std::runtime_error(place.errorString().toStdString());
    const StoreFolders store(fs::path(place.path().toStdString()) / "store");
    makeSampleStore(component, store);
    component.init(store.rootText());
    // A caret that does not blink, so that a picture does not depend on the moment.
    QApplication::setCursorFlashTime(0);
    Photographer photographer(component, folder);
    const InstalledView installed(photographer.view());
    photographer.takeAll();
}

}  // namespace host
