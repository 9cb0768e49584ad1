// The questions as small dialogs.
#include "window/store_dialogs.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QFileInfo>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QMessageBox>
#include <QObject>
#include <QPushButton>
#include <functional>

#include "sample/sample_store.h"
#include "window/direction.h"
#include "window/host_dialog.h"
#include "window/sentence_label.h"
#include "window/wording.h"

namespace host {

namespace fs = std::filesystem;

namespace {

constexpr int kFieldWidth = 380;
constexpr int kNoteLines = 3;  ///< room for them, so that nothing jumps

/// A form with a box for the folder of a store, and OK and Cancel below.
class StoreForm {
  public:
    StoreForm(QWidget* window, const QString& title, const QString& okCaption)
        : dialog(window), fields(new QFormLayout(&dialog)), folder(new IdentifierEdit) {
        makeHostDialog(dialog);
        dialog.setWindowTitle(title);
        folder->setObjectName("storeFolder");
        folder->setMinimumWidth(kFieldWidth);
        auto* browse = new QPushButton(wording("DIALOG_BROWSE"));
        auto* line = new QHBoxLayout;
        line->addWidget(folder);
        line->addWidget(browse);
        auto* label = new QLabel(wording("STORE_FOLDER"));
        label->setBuddy(folder);
        fields->addRow(label, line);
        QObject::connect(browse, &QPushButton::clicked, &dialog, [this] {
            const QString path = QFileDialog::getExistingDirectory(
                &dialog, wording("STORE_FOLDER_TITLE"), folder->text());
            if (!path.isEmpty()) folder->setText(path);
        });
        m_buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
        ok()->setText(okCaption);
        ok()->setObjectName("ok");
        withText(m_buttons->button(QDialogButtonBox::Cancel), "DIALOG_CANCEL");
        QObject::connect(m_buttons, &QDialogButtonBox::accepted, &dialog, &QDialog::accept);
        QObject::connect(m_buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
    }

    QPushButton* ok() const { return m_buttons->button(QDialogButtonBox::Ok); }
    fs::path path() const { return folder->text().toStdString(); }
    bool run() {
        fields->addRow(m_buttons);
        return runHostDialog(dialog) == QDialog::Accepted;
    }

    QDialog dialog;
    QFormLayout* fields;
    QLineEdit* folder;

  private:
    QDialogButtonBox* m_buttons;
};

/// What a folder is good for as a store.
struct Judgement {
    QString sentence;
    bool canOpen = false;
};

/// Of a folder that is there and can be read.
Judgement judgedFolder(const StoreFolders& store) {
    using wynconfig::ItemKind;
    const bool mayWrite = QFileInfo(QString::fromStdString(store.root.string())).isWritable();
    if (store.exist()) {
        const auto count = [&](ItemKind kind) {
            return numberText(static_cast<qlonglong>(store.readableNames(kind).size()));
        };
        return {wording(mayWrite ? "FOLDER_STORE" : "FOLDER_STORE_READ_ONLY",
                        {count(ItemKind::Session), count(ItemKind::PartFormat)}),
                true};
    }
    if (!mayWrite) return {wording("FOLDER_NO_RIGHT"), false};
    std::error_code ignored;
    const bool isEmpty = fs::is_empty(store.root, ignored);
    return {wording(isEmpty ? "FOLDER_EMPTY" : "FOLDER_OTHER_FILES"), true};
}

Judgement judged(const fs::path& path) {
    if (path.empty()) return {wording("FOLDER_ENTER"), false};
    std::error_code failure;
    const fs::file_type kind = fs::status(path, failure).type();
    if (kind == fs::file_type::not_found) return {wording("FOLDER_NONE"), false};
    const StoreFolders store(path);
    const std::vector<std::string> faults = store.faults();
    if (!faults.empty()) return {QString::fromStdString(faults.front()), false};
    return judgedFolder(store);
}

}  // namespace

std::optional<fs::path> askForStore(QWidget* window, const fs::path& now) {
    StoreForm form(window, wording("OPEN_TITLE"), wording("OPEN_OK"));
    auto* note = new SentenceLabel;
    note->setObjectName("storeNote");
    note->setWordWrap(true);
    note->setMinimumHeight(kNoteLines * note->fontMetrics().lineSpacing());
    note->setAlignment(Qt::AlignLeading | Qt::AlignTop);
    form.fields->addRow(QString(), note);
    const auto judge = [&] {
        const auto [sentence, canOpen] = judged(form.path());
        note->tell(isolatedIn(sentence, {form.folder->text()}));
        form.ok()->setEnabled(canOpen);
    };
    QObject::connect(form.folder, &QLineEdit::textChanged, &form.dialog, judge);
    form.folder->setText(QString::fromStdString(now.string()));
    if (!form.run()) return std::nullopt;
    return fs::weakly_canonical(fs::absolute(form.path()));
}

std::optional<TakeOver> askForTakeOver(QWidget* window) {
    StoreForm form(window, wording("TAKE_OVER_TITLE"), wording("TAKE_OVER_OK"));
    auto* session = new IdentifierBox;
    session->setObjectName("session");
    auto* name = new IdentifierEdit;
    name->setObjectName("name");
    form.fields->addRow(wording("TAKE_OVER_SESSION"), session);
    form.fields->addRow(wording("TAKE_OVER_NAME"), name);
    QObject::connect(form.folder, &QLineEdit::textChanged, &form.dialog, [&] {
        session->clear();
        for (const std::string& each :
             StoreFolders(form.path()).readableNames(wynconfig::ItemKind::Session))
            session->addItem(QString::fromStdString(each));
    });
    QObject::connect(session, &QComboBox::currentTextChanged, name, &QLineEdit::setText);
    const auto judge = [&] {
        form.ok()->setEnabled(session->currentIndex() >= 0 && !name->text().trimmed().isEmpty());
    };
    QObject::connect(name, &QLineEdit::textChanged, &form.dialog, judge);
    judge();
    if (!form.run()) return std::nullopt;
    return TakeOver{form.path(), session->currentText().toStdString(),
                    name->text().trimmed().toStdString()};
}

bool askToRemove(QWidget* window, const std::string& name) {
    const QString text = wording("REMOVE_QUESTION", {isolated(name)});
    QMessageBox box(QMessageBox::Question, wording("WINDOW_TITLE"), text,
                    QMessageBox::Yes | QMessageBox::No, window);
    makeHostDialog(box);
    worded(box.button(QMessageBox::Yes), "DIALOG_YES", "yes");
    worded(box.button(QMessageBox::No), "DIALOG_NO", "no");
    box.setTextFormat(Qt::PlainText);
    return runHostDialog(box) == QMessageBox::Yes;
}

void tellFailure(QWidget* window, const QString& why) {
    QMessageBox box(QMessageBox::Critical, wording("WINDOW_TITLE"), why, QMessageBox::Ok, window);
    makeHostDialog(box);
    box.setTextFormat(Qt::PlainText);
    worded(box.button(QMessageBox::Ok), "DIALOG_OK", "ok");
    runHostDialog(box);
}

bool askToQuit(QWidget* window) {
    QMessageBox box(QMessageBox::Question, wording("WINDOW_TITLE"), wording("QUIT_QUESTION"),
                    QMessageBox::NoButton, window);
    makeHostDialog(box);
    QPushButton* quit = box.addButton(wording("QUIT_QUIT"), QMessageBox::AcceptRole);
    QPushButton* stay = box.addButton(wording("QUIT_STAY"), QMessageBox::RejectRole);
    quit->setObjectName("quit");
    stay->setObjectName("stay");
    box.setDefaultButton(stay);
    box.setEscapeButton(stay);
    runHostDialog(box);
    return box.clickedButton() == quit;
}

}  // namespace host
