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

namespace host {

namespace fs = std::filesystem;

namespace {

constexpr int kFieldWidth = 380;
constexpr int kNoteLines = 3;  ///< room for them, so that nothing jumps

QString tr(const char* text) {
    return QObject::tr(text);
}

/// A form with a box for the folder of a store, and OK and Cancel below.
class StoreForm {
  public:
    StoreForm(QWidget* window, const QString& title, const QString& okCaption)
        : dialog(window), fields(new QFormLayout(&dialog)), folder(new IdentifierEdit) {
        makeHostDialog(dialog);
        dialog.setWindowTitle(title);
        folder->setObjectName("storeFolder");
        folder->setMinimumWidth(kFieldWidth);
        auto* browse = new QPushButton(tr("&Browse…"));
        auto* line = new QHBoxLayout;
        line->addWidget(folder);
        line->addWidget(browse);
        auto* label = new QLabel(tr("&Folder of the store:"));
        label->setBuddy(folder);
        fields->addRow(label, line);
        QObject::connect(browse, &QPushButton::clicked, &dialog, [this] {
            const QString path = QFileDialog::getExistingDirectory(
                &dialog, tr("Folder of the store"), folder->text());
            if (!path.isEmpty()) folder->setText(path);
        });
        m_buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
        ok()->setText(okCaption);
        ok()->setObjectName("ok");
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
        const QString held = tr("This folder holds a store; sessions: %1, part formats: %2.")
                                 .arg(store.readableNames(ItemKind::Session).size())
                                 .arg(store.readableNames(ItemKind::PartFormat).size());
        return {mayWrite ? held : tr("%1 You have no right to change it.").arg(held), true};
    }
    if (!mayWrite)
        return {tr("This folder holds no store, and you have no right to make one there."), false};
    std::error_code ignored;
    return {fs::is_empty(store.root, ignored)
                ? tr("A new store will be made there.")
                : tr("This folder holds other files, but no store. A new store will be made among "
                     "them."),
            true};
}

Judgement judged(const fs::path& path) {
    if (path.empty()) return {tr("Enter the folder, or browse for it."), false};
    std::error_code failure;
    const fs::file_type kind = fs::status(path, failure).type();
    if (kind == fs::file_type::not_found) return {tr("There is no such folder."), false};
    const StoreFolders store(path);
    const std::vector<std::string> faults = store.faults();
    if (!faults.empty()) return {QString::fromStdString(faults.front()), false};
    return judgedFolder(store);
}

}  // namespace

std::optional<fs::path> askForStore(QWidget* window, const fs::path& now) {
    StoreForm form(window, tr("Open another store"), tr("&Open"));
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
    StoreForm form(window, tr("Take over a session from another store"), tr("&Take over"));
    auto* session = new IdentifierBox;
    session->setObjectName("session");
    auto* name = new IdentifierEdit;
    name->setObjectName("name");
    form.fields->addRow(tr("&Session:"), session);
    form.fields->addRow(tr("Keep it in the database &as:"), name);
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
    const QString text = tr("Remove %1 from the database?").arg(isolated(name));
    QMessageBox box(QMessageBox::Question, tr("Parts Catalogue"), text,
                    QMessageBox::Yes | QMessageBox::No, window);
    makeHostDialog(box);
    box.button(QMessageBox::Yes)->setObjectName("yes");
    box.setTextFormat(Qt::PlainText);
    return runHostDialog(box) == QMessageBox::Yes;
}

bool askToQuit(QWidget* window) {
    QMessageBox box(QMessageBox::Question, tr("Parts Catalogue"),
                    tr("The parts list was not sent. Quit all the same?"), QMessageBox::NoButton,
                    window);
    makeHostDialog(box);
    QPushButton* quit = box.addButton(tr("&Quit"), QMessageBox::AcceptRole);
    QPushButton* stay = box.addButton(tr("&Stay"), QMessageBox::RejectRole);
    quit->setObjectName("quit");
    stay->setObjectName("stay");
    box.setDefaultButton(stay);
    box.setEscapeButton(stay);
    runHostDialog(box);
    return box.clickedButton() == quit;
}

}  // namespace host
