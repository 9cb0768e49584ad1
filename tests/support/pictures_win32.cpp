// Takes a picture of every dialog in the native windows of Windows, as a person comes by them.
//   native_pictures PICTURES STORE TEXTS LANGUAGE
// PICTURES and STORE are folders of its own, TEXTS that of the texts.
#include <windows.h>

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "installed_view.h"
#include "sample/sample_store.h"
#include "wynconfig/resource_manager.h"
#include "wynconfig/win32_view.h"
#include "wynconfig/wynconfig.h"

namespace {

using wynconfig::User;

/// Has all windows show what they are to show by now.
void settle() {
    MSG message;
    while (::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        ::TranslateMessage(&message);
        ::DispatchMessageW(&message);
    }
}

/// Writes what a window shows.
void takePicture(HWND window, const std::filesystem::path& file) {
    settle();
    ::RedrawWindow(window, nullptr, nullptr,
                   RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_UPDATENOW | RDW_ALLCHILDREN);
    RECT place{};
    ::GetWindowRect(window, &place);
    const int width = place.right - place.left;
    const int height = place.bottom - place.top;
    // Its own, since what it has drawn may not be on the screen yet.
    const HDC drawn = ::GetWindowDC(window);
    ::SetLayout(drawn, 0);  // as it stands on the screen, which is mirrored for some languages
    const HDC memory = ::CreateCompatibleDC(drawn);
    const HBITMAP bitmap = ::CreateCompatibleBitmap(drawn, width, height);
    const HGDIOBJ before = ::SelectObject(memory, bitmap);
    ::BitBlt(memory, 0, 0, width, height, drawn, 0, 0, SRCCOPY);
    ::SelectObject(memory, before);
    BITMAPINFOHEADER header{};
    header.biSize = sizeof header;
    header.biWidth = width;
    header.biHeight = height;
    header.biPlanes = 1;
    header.biBitCount = 32;
    std::vector<char> dots(static_cast<std::size_t>(width) * static_cast<std::size_t>(height) * 4);
    ::GetDIBits(drawn, bitmap, 0, static_cast<UINT>(height), dots.data(),
                reinterpret_cast<BITMAPINFO*>(&header), DIB_RGB_COLORS);
    ::DeleteObject(bitmap);
    ::DeleteDC(memory);
    ::ReleaseDC(window, drawn);
    BITMAPFILEHEADER front{};
    front.bfType = 0x4D42;  // "BM"
    front.bfOffBits = sizeof front + sizeof header;
    front.bfSize = front.bfOffBits + static_cast<DWORD>(dots.size());
    std::ofstream out(file, std::ios::binary);
    out.write(reinterpret_cast<const char*>(&front), sizeof front);
    out.write(reinterpret_cast<const char*>(&header), sizeof header);
    out.write(dots.data(), static_cast<std::streamsize>(dots.size()));
    if (!out) throw std::runtime_error("can't write " + file.string());
}

class Walk {
  public:
    Walk(wynconfig::WYNConfig& component, User& user, std::filesystem::path pictures)
        : m_component(component), m_user(user), m_pictures(std::move(pictures)) {}

    void maintain() {
        m_user.onForm("frmMORAMMaintenance", [this](User& u) {
            u.pick("lstAvailableMORAMs2", "WORKSHOP COUNTER");
            take("maintenance");
            onBox("deletion", wynconfig::answer::No);
            u.click("btnDelete");
            m_user.onForm("frmMORAMConfig", [this](User&) { configure(); });
            u.click("btnEdit");
            u.closeByFrame();
        });
        std::string name;
        m_component.showMORAMMaintenanceDlg(name);
    }
    void add() {
        onForm("frmAddMORAMConfig", "add");
        std::string name = "NIGHT COUNTER";
        m_component.showAddMORAMConfigDlg(name);
    }
    void pickFromList() {
        const std::string names = "WORKSHOP COUNTER,STOCK TAKING,WEB SHOP EXPORT";
        onForm("frmSessionManager", "session-manager");
        m_component.showSessionManagerDlg(names);
        onForm("frmSessionManager", "configurable-session-manager");
        m_component.showConfigurableSessionManagerDlg(names);
    }

  private:
    void take(const std::string& name) {
        char number[8];
        std::snprintf(number, sizeof number, "%02d-", ++m_number);
        takePicture(::GetActiveWindow(), m_pictures / (number + name + ".bmp"));
    }
    /// Takes a picture of the next form of this kind, and cancels it.
    void onForm(const std::string& form, const std::string& name) {
        m_user.onForm(form, [this, name](User& u) {
            take(name);
            u.pressEscape();
        });
    }
    void onBox(const std::string& name, int button) {
        m_user.onBox([this, name, button](const wynconfig::SeenBox&) {
            take(name);
            return button;
        });
    }
    void configure() {
        take("session");
        onForm("dlgAdvConfig", "advanced");
        m_user.click("btnAdvanced");
        onForm("frmTallyvaneConfig", "file-writer");
        m_user.click("btnTallyvane");
        m_user.type("txtProgramPath", "gone");
        onBox("program-not-found", wynconfig::answer::Ok);
        m_user.click("btnApply");
        m_user.changeTab("SSTab2", 1);
        take("formats");
        onForm("frmPartNumberFormat", "editor");
        m_user.click("btnNew");
        onForm("dlgSingleEntry", "name");
        m_user.pick("lstAvailableFormats", "COMMA SEPARATED");
        m_user.click("btnRename");
        m_user.pressEscape();
    }

    wynconfig::WYNConfig& m_component;
    User& m_user;
    std::filesystem::path m_pictures;
    int m_number = 0;
};

void takeAll(const std::filesystem::path& pictures, const std::filesystem::path& store,
             const std::string& texts, const std::string& language) {
    std::filesystem::create_directories(pictures);
    wynconfig::WYNConfig component;
    component.InitResourceManager(wynconfig::makeBundleResourceManager(texts, language));
    host::makeSampleStore(component, host::StoreFolders(store));
    const auto view = wynconfig::makeWin32View();
    const host::InstalledView installed(view);
    Walk walk(component, view->user(), pictures);
    walk.maintain();
    walk.add();
    walk.pickFromList();
    view->user().finish();
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 5) {
        std::fprintf(stderr, "usage: native_pictures PICTURES STORE TEXTS LANGUAGE\n");
        return 2;
    }
    ::SetProcessDPIAware();
    try {
        takeAll(argv[1], argv[2], argv[3], argv[4]);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
    return 0;
}
