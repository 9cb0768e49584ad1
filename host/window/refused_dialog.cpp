// The dialog that comes up when the database refused an edit.
#include "window/refused_dialog.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QFontDatabase>
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
        for (const std::string& line : summaryOf(read(record))) lines << toQt(line);
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

QLabel* makeText(const QString& text) {
    auto* label = new QLabel(text);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    return label;
}

QPlainTextEdit* makeTexts(const wynconfig::MemoryEdit& edit) {
    auto* texts = new QPlainTextEdit(textsOf(edit));
    texts->setReadOnly(true);
    texts->setTabChangesFocus(true);
    texts->setLineWrapMode(QPlainTextEdit::NoWrap);
    texts->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    readLeftToRight(*texts);
    return texts;
}

}  // namespace

std::optional<RefusalDecision> askAboutRefusal(QWidget* window,
                                               const wynconfig::RefusedEdit& refused) {
    QDialog dialog(window);
    makeHostDialog(dialog);
    dialog.setWindowTitle(QObject::tr("The edit was not stored"));
    dialog.resize(kWidth, kHeight);
    auto* name = new IdentifierEdit(toQt(refused.edit().session.name + " 2"));
    name->setObjectName("name");
    auto* nameLabel = new QLabel(QObject::tr("Another &name:"));
    nameLabel->setBuddy(name);
    auto* texts = makeTexts(refused.edit());
    auto* textsLabel = new QLabel(QObject::tr("&Your edit:"));
    textsLabel->setBuddy(texts);

    auto* buttons = new QDialogButtonBox;
    QPushButton* save =
        buttons->addButton(QObject::tr("&Save under this name"), QDialogButtonBox::AcceptRole);
    QPushButton* again =
        buttons->addButton(QObject::tr("&Try again"), QDialogButtonBox::ActionRole);
    QPushButton* leave =
        buttons->addButton(QObject::tr("&Reload the database"), QDialogButtonBox::RejectRole);
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
    column->addWidget(makeText(toQt(refused.what())));
    column->addWidget(makeText(QObject::tr(
        "Your edit is kept until the catalogue is closed. Save it under another name now, or "
        "reload the database and come back by the menu Database, Refused edit.")));
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
