// The dialog that comes up when the database refused an edit.
#include "window/refused_dialog.h"

#include <QDateTime>
#include <QDialog>
#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QObject>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "sending/summary.h"
#include "window/direction.h"
#include "window/host_dialog.h"
#include "window/text_box.h"
#include "window/wording.h"
#include "wynconfig/dataset.h"
#include "wynconfig/error.h"

namespace host {

namespace {

constexpr int kWidth = 620;
constexpr int kHeight = 460;

QString toQt(const std::string& text) {
    return QString::fromStdString(text);
}

/// What a record says, read in its kind; its name alone where it can't be read.
template <class Read>
QString summary(const wynconfig::ItemText& item, Read read) {
    try {
        wynconfig::Document document;
        document.loadXML(item.xml);
        wynconfig::Dataset record;
        record.Load(document);
        QStringList lines;
        const auto mark = [](const std::string& value) { return apart(toQt(value)).toStdString(); };
        for (const std::string& line : summaryOf(read(record), mark)) lines << toQt(line);
        return lines.join(u'\n');
    } catch (const wynconfig::Error&) {
        return toQt(item.name);
    }
}

QString textsOf(const wynconfig::MemoryEdit& edit) {
    QString text = summary(edit.session, readSession);
    for (const wynconfig::ItemText& format : edit.formats)
        text += "\n\n" + summary(format, readPartFormat);
    return text;
}

/// What another workstation did to the item that an edit wanted to change.
QString sentenceOn(const wynconfig::ItemConflict& conflict) {
    using Act = wynconfig::ItemChange::Act;
    const wynconfig::ItemChange& change = conflict.change;
    const bool isSession = change.kind == wynconfig::ItemKind::Session;
    const QString name = isolated(wynconfig::upperName(change.name));
    if (change.act == Act::Need) return wording("REFUSED_FORMAT_NEEDED", {name});
    if (!conflict.present)
        return wording(isSession ? "REFUSED_SESSION_GONE" : "REFUSED_FORMAT_GONE", {name});
    const auto at = QDateTime::fromString(toQt(conflict.present->changedAt), Qt::ISODate);
    const QStringList facts = {name, toQt(conflict.present->changedBy), isolated(momentText(at))};
    if (change.act == Act::Insert)
        return wording(isSession ? "REFUSED_SESSION_THERE" : "REFUSED_FORMAT_THERE", facts);
    return wording(isSession ? "REFUSED_SESSION_CHANGED" : "REFUSED_FORMAT_CHANGED", facts);
}

QString reasonOf(const wynconfig::RefusedEdit& refused) {
    if (refused.conflicts().empty()) return toQt(refused.what());
    QStringList lines = {wording("REFUSED_FASTER")};
    for (const wynconfig::ItemConflict& each : refused.conflicts()) lines << sentenceOn(each);
    return lines.join(u'\n');
}

QLabel* makeText(const QString& text) {
    auto* label = new QLabel(text);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    return label;
}

QPlainTextEdit* makeTexts(const wynconfig::MemoryEdit& edit) {
    QPlainTextEdit* texts = makeSentenceBox("REFUSED_YOURS");
    texts->setPlainText(textsOf(edit));
    return texts;
}

}  // namespace

std::optional<RefusalDecision> askAboutRefusal(QWidget* window,
                                               const wynconfig::RefusedEdit& refused) {
    QDialog dialog(window);
    makeHostDialog(dialog);
    dialog.setWindowTitle(wording("REFUSED_TITLE"));
    dialog.resize(kWidth, kHeight);
    auto* name = new IdentifierEdit(toQt(refused.edit().session.name + " 2"));
    name->setObjectName("name");
    auto* nameLabel = new QLabel(wording("REFUSED_NAME"));
    nameLabel->setBuddy(name);
    auto* texts = makeTexts(refused.edit());
    auto* textsLabel = new QLabel(wording("REFUSED_YOURS"));
    textsLabel->setBuddy(texts);

    auto* buttons = new QDialogButtonBox;
    QPushButton* save = buttons->addButton(wording("REFUSED_SAVE"), QDialogButtonBox::AcceptRole);
    QPushButton* again = buttons->addButton(wording("REFUSED_AGAIN"), QDialogButtonBox::ActionRole);
    QPushButton* leave =
        buttons->addButton(wording("REFUSED_RELOAD"), QDialogButtonBox::RejectRole);
    // An edit on which others were faster would only be refused again.
    again->setVisible(refused.conflicts().empty());
    save->setDefault(true);
    save->setObjectName("save");
    leave->setObjectName("leave");

    std::optional<RefusalDecision> decision;
    QObject::connect(save, &QPushButton::clicked, &dialog, [&] {
        decision = RefusalDecision{false, name->text().trimmed().toStdString()};
        dialog.accept();
    });
    QObject::connect(again, &QPushButton::clicked, &dialog, [&] {
        decision = RefusalDecision{true, {}};
        dialog.accept();
    });
    QObject::connect(leave, &QPushButton::clicked, &dialog, &QDialog::reject);

    auto* line = new QHBoxLayout;
    line->addWidget(nameLabel);
    line->addWidget(name, 1);
    auto* column = new QVBoxLayout(&dialog);
    column->addWidget(makeText(reasonOf(refused)));
    column->addWidget(makeText(wording("REFUSED_KEPT")));
    column->addWidget(textsLabel);
    column->addWidget(texts, 1);
    column->addLayout(line);
    column->addWidget(buttons);
    name->setFocus();
    name->selectAll();
    runHostDialog(dialog);
    return decision;
}

}  // namespace host
