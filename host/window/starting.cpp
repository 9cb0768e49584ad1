// The questions at a bad start, and their ways on.
#include "window/starting.h"

#include <QFileDialog>
#include <QMessageBox>
#include <QPushButton>
#include <exception>
#include <utility>
#include <vector>

#include "window/direction.h"
#include "window/host_dialog.h"
#include "window/language.h"
#include "window/store_dialogs.h"
#include "window/wording.h"

namespace host {

namespace {

namespace fs = std::filesystem;

constexpr const char* kEnglish = "en";

/// A way on: the object name and the caption of its button.
using Way = std::pair<const char*, QString>;

/// Shows what is wrong, and asks for a way on.
/// @return the object name of its button; "quit", also when the box was closed
QString ask(const std::string& why, const QString& advice, const QString& place,
            const std::vector<Way>& ways) {
    QMessageBox box(QMessageBox::Warning, wording("WINDOW_TITLE"),
                    isolatedIn(QString::fromUtf8(why), {place}));
    box.setObjectName(kHostDialog);
    box.setTextFormat(Qt::PlainText);
    box.setInformativeText(advice);
    for (const auto& [name, caption] : ways)
        box.addButton(caption, QMessageBox::AcceptRole)->setObjectName(QString::fromUtf8(name));
    QPushButton* quit = box.addButton(wording("QUIT_QUIT"), QMessageBox::RejectRole);
    quit->setObjectName(QStringLiteral("quit"));
    box.setEscapeButton(quit);
    box.exec();
    return box.clickedButton() ? box.clickedButton()->objectName() : quit->objectName();
}

}  // namespace

std::shared_ptr<wynconfig::ResourceManager> findTexts(std::string& resources,
                                                      std::string& language) {
    while (true) {
        try {
            useOwnLanguage(resources, language);
            return useLanguage(resources, language);
        } catch (const std::exception& failure) {
            std::vector<Way> ways = {{"folder", wording("START_TEXTS_FOLDER")}};
            if (language != kEnglish) ways.emplace_back("english", wording("START_ENGLISH"));
            const QString chosen = ask(failure.what(), wording("START_TEXTS"),
                                       QString::fromStdString(resources), ways);
            if (chosen == "quit") return nullptr;
            if (chosen == "english") {
                language = kEnglish;
                continue;
            }
            const QString folder = QFileDialog::getExistingDirectory(
                nullptr, wording("START_TEXTS_TITLE"), QString::fromStdString(resources));
            if (!folder.isEmpty()) resources = folder.toStdString();
        }
    }
}

std::optional<StoreFolders> findStore(wynconfig::WYNConfig& component, fs::path root) {
    while (true) {
        try {
            StoreFolders store(root);
            if (!store.exist()) makeSampleStore(component, store);
            return store;
        } catch (const std::exception& failure) {
            const QString chosen =
                ask(failure.what(), wording("START_STORE"), QString::fromStdString(root.string()),
                    {{"folder", wording("START_STORE_FOLDER")}, {"again", wording("START_AGAIN")}});
            if (chosen == "quit") return std::nullopt;
            if (chosen == "folder") root = askForStore(nullptr, root).value_or(root);
        }
    }
}

void tellBadStart(const std::string& why) {
    ask(why, wording("START_CANT"), {}, {});
}

}  // namespace host
