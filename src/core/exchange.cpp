// The operations of the in-memory mode: a host keeps sessions and part formats itself, hands them
// in as XML text and takes them back so.
#include "core/exchange.h"

#include <cstdint>
#include <limits>
#include <memory>

#include "core/run_dialog.h"
#include "dialogs/session/frmAddMORAMConfig.h"
#include "dialogs/session/frmMORAMConfig.h"
#include "platform/forms/observing.h"
#include "platform/text/text.h"
#include "services/global_error.h"
#include "services/list_and_name_helpers.h"
#include "services/on_error.h"
#include "services/progress_words.h"
#include "store/config_global_module.h"
#include "wynconfig/dataset.h"
#include "wynconfig/error.h"
#include "wynconfig/wynconfig.h"

namespace wynconfig {

using namespace ConfigGlobalModule;

namespace {

/// The box for text that is no XML. It names the project and the procedure in a way of its own.
void refuseText(const std::string& argument) {
    GlobalError("WYNConfig", "showMORAMConfigDlgEX", 0, argument + " is not a valid XML document");
}

/// Takes a part format into `g_PartFormats`, unless the store has one of that name: then that one
/// counts.
void takePartFormat(OnError& on, const Document& document) {
    const auto format = std::make_shared<Dataset>();
    on([&] { format->Load(document, 0); });
    const std::string& name = format->Name();
    if (on.test([&] { return !IsFactoryPartFormat(name); }))
        on([&] { g_PartFormats.Add(format, name); });
}

/// The texts are counted by a 16-bit number. Raises `Error` where it doesn't serve.
void checkBounds(const ExchangedFormats& formats) {
    if (!formats.isThere) throw Error(errc::SubscriptRange, "Subscript out of range");
    const auto last = static_cast<std::int64_t>(formats.texts.size()) - 1 + formats.first;
    const bool fits = formats.first >= std::numeric_limits<std::int16_t>::min() &&
                      last <= std::numeric_limits<std::int16_t>::max();
    if (!fits && !formats.texts.empty()) throw Error(errc::Overflow, "Overflow");
}

/// @return false when one of the texts is no XML, which ends the taking
bool takePartFormats(OnError& on, Document& document, const ExchangedFormats& formats) {
    g_PartFormats = {};
    if (!on([&] { checkBounds(formats); })) return true;
    Working work(transferringFormats, formats.texts.size());
    for (std::size_t i = 0; i < formats.texts.size(); ++i) {
        if (!document.loadXML(formats.texts[i])) {
            const std::int64_t index = formats.first + static_cast<std::int64_t>(i);
            refuseText("arrayPartFormats(" + std::to_string(index) + ")");
            return false;
        }
        takePartFormat(on, document);
        work.step();
    }
    return true;
}

}  // namespace

std::string WYNConfig::GetDatasetSessionData() {
    const OperationScope here("GetDatasetSessionData");
    OnError on{"WYNConfig:GetDatasetSessionData"};
    Document document;
    on([&] { g_Session->Save(document); });
    return document.xml();
}

std::vector<std::string> WYNConfig::GetDatasetFormatsData() {
    const OperationScope here("GetDatasetFormatsData");
    OnError on{"WYNConfig:GetDatasetFormatsData"};
    if (g_PartFormats.Count() < 1) return {std::string()};
    // A list of its own: while a box is up, the host may replace the part formats in memory.
    const Collection<Dataset>::Items formats(g_PartFormats.begin(), g_PartFormats.end());
    std::vector<std::string> texts;
    texts.reserve(formats.size());
    Working work(transferringFormats, formats.size());
    // One document for all of them: a record that can't be saved gets the text of the one before.
    Document document;
    for (const auto& item : formats) {
        on([&] { item.second->Save(document); });
        texts.push_back(document.xml());
        work.step();
    }
    return texts;
}

long WYNConfig::showMORAMConfigDlgEX(std::string& sName, const std::string& strSessionDataXML,
                                     const std::vector<std::string>& arrayPartFormats) {
    return showExchange(sName, strSessionDataXML, {arrayPartFormats});
}

long showExchange(std::string& sName, const std::string& strSessionDataXML,
                  const ExchangedFormats& formats) {
    const OperationScope here("showMORAMConfigDlgEX");
    OnError on{"WYNConfig:showMORAMConfigDlgEX"};
    constexpr long kRefusedXml = 1;
    g_DatasetMode = true;
    Document document;
    document.setAsync(false);
    if (!document.loadXML(strSessionDataXML)) {
        refuseText("strSessionDataXML");
        return kRefusedXml;
    }
    on([&] { g_Session->Load(document, 0); });
    if (!takePartFormats(on, document, formats)) return kRefusedXml;
    frmMORAMConfig form;
    on([&] { form.initEX(UCase(sName), true); });
    return runDialog(on, form, sName);
}

long WYNConfig::showAddMORAMConfigDlgEX(std::string& sName) {
    const OperationScope here("showAddMORAMConfigDlgEX");
    OnError on{"WYNConfig:showAddMORAMConfigDlgEX"};
    long result = 0;
    g_DatasetMode = true;
    frmAddMORAMConfig adding;
    frmMORAMConfig configuring;
    on([&] { adding.init(UCase(sName)); });
    on([&] { adding.Show(); });
    // A new session starts without part formats of the user, whatever came of the add dialog.
    g_PartFormats = {};
    on([&] { sName = adding.SessionName(); });
    if (on.test([&] { return adding.Result() == 0; })) {
        on([&] { configuring.initEX(sName, false); });
        on([&] { configuring.Show(); });
        if (on.test([&] { return configuring.Result() != 0; })) result = 1;
    } else {
        result = 1;
    }
    // The name stays also after a cancel, other than in file mode. A form that never came up has
    // none.
    on([&] { sName = configuring.SessionName(); });
    on([&] { adding.Unload(); });
    on([&] { configuring.Unload(); });
    return result;
}

}  // namespace wynconfig
