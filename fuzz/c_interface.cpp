// Calls the C interface in an order that the input tells, with handles that are open, closed, of
// another kind or of nobody, from a host and from within its own functions.
#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "platform/files/file_system.h"
#include "require.h"
#include "wynconfig/c.h"

namespace {

const std::array<const char*, 32> kTexts{nullptr,
                                         "",
                                         "root/",
                                         "COUNTER",
                                         "counter",
                                         "PLAIN",
                                         "MORAM",
                                         "PARTFORMAT",
                                         "FORMAT1",
                                         "MaxRecords",
                                         "12",
                                         "/bin/sh",
                                         "true",
                                         "a,b",
                                         "A&B",
                                         "a.b",
                                         "..\\x",
                                         "\xC3\xA4",
                                         "\xC3",
                                         "1E400",
                                         "frmMORAMConfig",
                                         "frmAddMORAMConfig",
                                         "frmMORAMMaintenance",
                                         "txtName",
                                         "btnOK",
                                         "btnCancel",
                                         "SSTab2",
                                         "lstAvailableFormats",
                                         "cboConfigs",
                                         "frmSessionManager",
                                         "<dataset type=\"MORAM\" name=\"X\"/>",
                                         "root/x.vla"};

/// What one input does. Everything that it got stays at hand, also when it is closed.
class Play {
  public:
    Play(const std::uint8_t* data, std::size_t size) : m_next(data), m_end(data + size) {}
    ~Play() {
        // Nothing of the thread refers to this any more.
        wyn_install_view(nullptr);
        wyn_install_observer(nullptr);
        require(wyn_use_bundle(WYNCONFIG_RESOURCES, "en") == WYN_OK);
        for (void* handle : m_handles) wyn_close(handle);
    }
    Play(const Play&) = delete;
    Play& operator=(const Play&) = delete;

    void run(int most) {
        for (int i = 0; i < most && m_next != m_end && m_steps < 200; ++i, ++m_steps) step();
    }
    std::int32_t inCallback(void* handle) {
        if (handle) m_handles.push_back(handle);
        if (++m_depth < 4) run(12);
        --m_depth;
        return number() % 8 == 0 ? wyn_fail(number(), text()) : WYN_OK;
    }

  private:
    std::uint8_t byte() { return m_next == m_end ? 0 : *m_next++; }
    std::int32_t number() { return static_cast<std::int8_t>(byte()); }
    const char* text() {
        const std::size_t pick = byte() % (kTexts.size() + m_texts.size());
        return pick < kTexts.size() ? kTexts[pick] : m_texts[pick - kTexts.size()].c_str();
    }
    template <class T>
    T* any() {
        const std::uint8_t pick = byte();
        if (pick == 255) return static_cast<T*>(m_nobody);
        if (pick == 254) return reinterpret_cast<T*>(this);
        if (pick == 253 || m_handles.empty()) return nullptr;
        return static_cast<T*>(m_handles[m_handles.size() - 1 - pick % m_handles.size()]);
    }

    // Calls that give something: after a failure its place is as it was.

    template <class Call>
    void giveText(const Call& call) {
        char untouched = 0;
        char* given = &untouched;
        if (call(&given) != WYN_OK) return require(given == &untouched);
        require(given);
        if (m_texts.size() < 32) m_texts.emplace_back(given);
        wyn_free(given);
    }
    template <class T, class Call>
    void giveHandle(const Call& call) {
        T* const untouched = reinterpret_cast<T*>(this);
        T* given = untouched;
        if (call(&given) != WYN_OK) return require(given == untouched);
        require(given && given != untouched);
        m_handles.push_back(given);
    }
    template <class Call>
    void giveNumber(const Call& call) {
        std::int32_t given = 77;
        if (call(&given) != WYN_OK) require(given == 77);
    }
    template <class Call>
    void operate(const Call& call) {
        std::int32_t result = 77;
        giveText([&](char** after) {
            const std::int32_t status = call(text(), after, &result);
            require((status == WYN_OK) == (result == 0 || result == 1));
            return status;
        });
    }

    void step();
    void stepOnLibrary(std::uint8_t which);
    void stepOnRecord(std::uint8_t which);
    void stepOnStore(std::uint8_t which);
    void stepOnOperation(std::uint8_t which);
    void stepOnForm(std::uint8_t which);
    void stepOnControl(std::uint8_t which);
    void stepOnView(std::uint8_t which);

    const std::uint8_t* m_next;
    const std::uint8_t* m_end;
    /// A number that is no handle yet.
    void* m_nobody = reinterpret_cast<void*>(~std::uintptr_t{0});  // NOLINT(*-no-int-to-ptr)
    std::vector<void*> m_handles;
    std::vector<std::string> m_texts;
    int m_depth = 0;
    int m_steps = 0;
};

Play& playOf(void* context) {
    return *static_cast<Play*>(context);
}

void Play::step() {
    const std::uint8_t which = byte();
    switch (which % 8) {
        case 0:
            return stepOnLibrary(which / 8);
        case 1:
            return stepOnRecord(which / 8);
        case 2:
            return stepOnStore(which / 8);
        case 3:
            return stepOnOperation(which / 8);
        case 4:
            return stepOnForm(which / 8);
        case 5:
        case 6:
            return stepOnControl(which / 8);
        default:
            return stepOnView(which / 8);
    }
}

void Play::stepOnLibrary(std::uint8_t which) {
    switch (which % 10) {
        case 0:
        case 1:
            if (byte() % 16 == 0) require(wyn_leave() == WYN_OK);
            wyn_close(any<void>());
            return;
        case 2: {
            wyn_error error = WYN_STRUCT(wyn_error);
            require(wyn_last_error(&error) == WYN_OK && error.description && error.function);
            return;
        }
        case 3: {
            std::size_t count = 77;
            if (wyn_list_count(any<wyn_list>(), &count) != WYN_OK) require(count == 77);
            return;
        }
        case 4:
            return giveText([&](char** at) { return wyn_list_text(any<wyn_list>(), byte(), at); });
        case 5:
            return giveText([&](char** at) { return wyn_list_key(any<wyn_list>(), byte(), at); });
        case 6:
            require(wyn_fail(number(), text()) != WYN_OK);
            return giveNumber([&](std::int32_t* at) { return wyn_is_item_name(text(), at); });
        case 7:
            wyn_give(any<wyn_answer>(), text());
            return;
        case 8:
            return giveText([&](char** at) { return wyn_upper_name(text(), at); });
        default:
            return giveHandle<wyn_list>(
                [&](wyn_list** at) { return wyn_bundle_languages(text(), at); });
    }
}

void Play::stepOnRecord(std::uint8_t which) {
    switch (which % 11) {
        case 0:
            return giveHandle<wyn_record>(
                [&](wyn_record** at) { return wyn_record_new(byte() % 3, text(), at); });
        case 1:
            return giveHandle<wyn_record>(
                [&](wyn_record** at) { return wyn_record_load(text(), at); });
        case 2:
            return giveHandle<wyn_record>(
                [&](wyn_record** at) { return wyn_record_parse(text(), at); });
        case 3:
            return giveText([&](char** at) { return wyn_record_type(any<wyn_record>(), at); });
        case 4:
            return giveText([&](char** at) { return wyn_record_name(any<wyn_record>(), at); });
        case 5:
            return giveHandle<wyn_list>(
                [&](wyn_list** at) { return wyn_record_rows(any<wyn_record>(), at); });
        case 6:
            return giveText(
                [&](char** at) { return wyn_record_get(any<wyn_record>(), text(), at); });
        case 7:
            wyn_record_set(any<wyn_record>(), text(), text());
            return;
        case 8:
            wyn_record_remove(any<wyn_record>(), text());
            return;
        case 9:
            wyn_record_save(any<wyn_record>(), text());
            return;
        default:
            return giveText([&](char** at) { return wyn_record_xml(any<wyn_record>(), at); });
    }
}

void Play::stepOnStore(std::uint8_t which) {
    const auto store = [&] { return any<wyn_store>(); };
    const auto kind = [&] { return byte() % 3; };
    switch (which % 12) {
        case 0:
            return giveHandle<wyn_store>(
                [&](wyn_store** at) { return wyn_store_open(text(), at); });
        case 1:
            return giveNumber([&](std::int32_t* at) { return wyn_store_is_made(store(), at); });
        case 2:
            return giveHandle<wyn_list>(
                [&](wyn_list** at) { return wyn_store_names(store(), kind(), at); });
        case 3:
            return giveNumber(
                [&](std::int32_t* at) { return wyn_store_has(store(), kind(), text(), at); });
        case 4:
            return giveText([&](char** at) { return wyn_store_path(store(), kind(), text(), at); });
        case 5:
            return giveHandle<wyn_record>(
                [&](wyn_record** at) { return wyn_store_read(store(), kind(), text(), at); });
        case 6:
            return giveHandle<wyn_list>(
                [&](wyn_list** at) { return wyn_store_sessions_with(store(), text(), at); });
        case 7:
            return giveHandle<wyn_list>(
                [&](wyn_list** at) { return wyn_store_check(store(), at); });
        case 8:
            wyn_store_move_to_deleted(store(), kind(), text());
            return giveHandle<wyn_list>(
                [&](wyn_list** at) { return wyn_store_deleted_names(store(), kind(), at); });
        case 9: {
            const std::array records{any<wyn_record>(), any<wyn_record>()};
            wyn_store_save(store(), records.data(), byte() % 3);
            return;
        }
        case 10:
            return giveHandle<wyn_list>(
                [&](wyn_list** at) { return wyn_store_rename(store(), text(), text(), at); });
        default:
            wyn_store_restore(store(), kind(), text());
            return;
    }
}

void Play::stepOnOperation(std::uint8_t which) {
    switch (which % 12) {
        case 0:
            wyn_init(text());
            return;
        case 1:
            return giveText([](char** at) { return wyn_GetDatasetSessionData(at); });
        case 2:
            return giveHandle<wyn_list>(
                [](wyn_list** at) { return wyn_GetDatasetFormatsData(at); });
        case 3:
            return giveNumber(
                [&](std::int32_t* at) { return wyn_MigrateSession(text(), text(), at); });
        case 4:
            return operate(wyn_showMORAMConfigDlg);
        case 5: {
            const std::array<const char*, 2> formats{text(), text()};
            return operate([&](const char* name, char** after, std::int32_t* result) {
                return wyn_showMORAMConfigDlgEX(name, text(), formats.data(), byte() % 3, after,
                                                result);
            });
        }
        case 6:
            return operate(wyn_showMORAMMaintenanceDlg);
        case 7:
            return operate(wyn_showAddMORAMConfigDlg);
        case 8:
            return operate(wyn_showAddMORAMConfigDlgEX);
        case 9:
            return giveText([&](char** at) { return wyn_showSessionManagerDlg(text(), at); });
        case 10:
            return giveText(
                [&](char** at) { return wyn_showConfigurableSessionManagerDlg(text(), at); });
        default:
            wyn_use_bundle(text(), text());
            return;
    }
}

void Play::stepOnForm(std::uint8_t which) {
    wyn_form* const form = any<wyn_form>();
    wyn_node node = WYN_STRUCT(wyn_node);
    switch (which % 10) {
        case 0:
            return giveText([&](char** at) { return wyn_form_name(form, at); });
        case 1:
            return giveText([&](char** at) { return wyn_form_title(form, at); });
        case 2:
            return giveNumber([&](std::int32_t* at) { return wyn_form_is_open(form, at); });
        case 3:
            return giveHandle<wyn_list>([&](wyn_list** at) { return wyn_form_controls(form, at); });
        case 4:
        case 5:
            return giveHandle<wyn_control>(
                [&](wyn_control** at) { return wyn_find(form, text(), at); });
        case 6:
            wyn_press(form, number() % 6);
            return;
        case 7:
            wyn_press_mnemonic(form, text());
            return;
        case 8:
            if (wyn_form_node(form, byte(), &node) == WYN_OK && node.control)
                m_handles.push_back(node.control);
            return;
        default:
            wyn_resize(form, number() * 100, number() * 100);
            if (byte() % 4 == 0) wyn_close_by_frame(form);
            return;
    }
}

void Play::stepOnControl(std::uint8_t which) {
    wyn_control* const control = any<wyn_control>();
    wyn_sight sight = WYN_STRUCT(wyn_sight);
    switch (which % 18) {
        case 0:
            return giveText([&](char** at) { return wyn_control_name(control, at); });
        case 1:
            return giveNumber([&](std::int32_t* at) { return wyn_control_kind(control, at); });
        case 2:
            wyn_look(control, &sight);
            return;
        case 3:
            return giveText([&](char** at) { return wyn_text(control, at); });
        case 4:
            return giveText([&](char** at) { return wyn_caption(control, at); });
        case 5:
            return giveText([&](char** at) { return wyn_mnemonic(control, at); });
        case 6:
            return giveHandle<wyn_list>([&](wyn_list** at) { return wyn_rows(control, at); });
        case 7:
        case 8:
            wyn_click(control);
            return;
        case 9:
            wyn_bare_click(control);
            return;
        case 10:
            wyn_focus(control);
            return;
        case 11:
            wyn_type(control, text());
            return;
        case 12:
            wyn_set_caret(control, byte());
            return;
        case 13:
            wyn_tick(control, number() % 2);
            return;
        case 14:
            wyn_pick(control, text());
            return;
        case 15:
            wyn_double_click(control, text());
            return;
        case 16:
            wyn_type_ahead(control, text());
            return;
        default:
            wyn_choose(control, text());
            wyn_change_tab(control, number());
            return;
    }
}

std::int32_t script(void* context, wyn_form* form) {
    return playOf(context).inCallback(form);
}

void Play::stepOnView(std::uint8_t which) {
    wyn_user* const user = any<wyn_user>();
    switch (which % 10) {
        case 0: {
            wyn_view view = WYN_STRUCT(wyn_view);
            view.context = this;
            view.show_modal = byte() % 8 ? script : nullptr;
            view.show_message = [](void* context, const wyn_box* box, std::int32_t* answer) {
                require(box->text && box->title && box->ok_caption);
                *answer = playOf(context).number();
                return playOf(context).inCallback(nullptr);
            };
            view.browse = [](void* context, const wyn_browse* request, wyn_answer* path) {
                require(request->title && request->ok_caption && request->cancel_caption);
                return playOf(context).inCallback(path);
            };
            view.release = [](void* context) { playOf(context).inCallback(nullptr); };
            wyn_install_view(byte() % 8 ? &view : nullptr);
            return;
        }
        case 1: {
            wyn_resource_manager manager = WYN_STRUCT(wyn_resource_manager);
            manager.context = this;
            manager.get_string = [](void* context, const char* key, wyn_answer* answer) {
                require(key);
                wyn_give(answer, playOf(context).text());
                return playOf(context).inCallback(answer);
            };
            manager.find_string = manager.get_string;
            wyn_InitResourceManager(&manager);
            return;
        }
        case 2: {
            wyn_observer observer = WYN_STRUCT(wyn_observer);
            observer.context = this;
            observer.failed = [](void* context, const wyn_failure* failure) {
                require(failure->operation && failure->tag && failure->description);
                playOf(context).inCallback(nullptr);
            };
            wyn_install_observer(byte() % 4 ? &observer : nullptr);
            return;
        }
        case 3:
            return giveHandle<wyn_user>(
                [](wyn_user** at) { return wyn_install_scripted_view(at); });
        case 4:
        case 5:
            wyn_on_form(user, text(), byte() % 8 ? script : nullptr, this);
            return;
        case 6:
            wyn_on_box(user, number());
            return;
        case 7:
            wyn_on_browse(user, text());
            return;
        case 8:
            giveHandle<wyn_list>([&](wyn_list** at) { return wyn_boxes(user, at); });
            return giveHandle<wyn_list>([&](wyn_list** at) { return wyn_forms(user, at); });
        default:
            wyn_finish(user);
            return;
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto disk = wynconfig::makeMemoryFileSystem();
    disk->makeFolder("root");
    // The state of a thread goes with it.
    std::thread([&] {
        wynconfig::setFileSystem(disk.get());
        require(wyn_use_bundle(WYNCONFIG_RESOURCES, "en") == WYN_OK);
        require(wyn_init("root/") == WYN_OK);
        Play(data, size).run(200);
    }).join();
    return 0;
}
