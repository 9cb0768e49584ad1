// The offer, and the choice of a part format by what it makes of a list.
#include "window/first_steps.h"

#include <QAction>
#include <QDialog>
#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "sample/sample_formats.h"
#include "sending/expansion.h"
#include "sending/visible_text.h"
#include "window/direction.h"
#include "window/host_dialog.h"
#include "window/sentence_label.h"
#include "window/text_box.h"
#include "window/wording.h"

namespace host {

namespace {

constexpr int kExampleLines = 6;
constexpr int kExampleWidth = 560;

QPushButton* buttonOf(QAction* action, const char* name) {
    auto* button = new QPushButton;
    button->setObjectName(QString::fromUtf8(name));
    QObject::connect(button, &QPushButton::clicked, action, &QAction::trigger);
    return button;
}

/// What a part format makes of two parts.
QString exampleOf(const PartFormat& format) {
    const PartsList list{"ZZZ12345678901234",
                         {{"10-0120", 2, "Oil filter"}, {"10-0183", 1, "Air filter element"}}};
    return QString::fromStdString(visibleText(expand(format, list, false).text));
}

}  // namespace

FirstSteps::FirstSteps(QAction* first, QAction* open, QWidget* parent)
    : QWidget(parent), m_sentence(new SentenceLabel), m_first(buttonOf(first, "firstSession")) {
    m_sentence->setObjectName(QStringLiteral("firstSteps"));
    m_sentence->setWordWrap(true);
    setFocusProxy(m_first);
    QPushButton* other = buttonOf(open, "otherStore");
    withText(other, "FIRST_OTHER_BUTTON");
    auto* line = new QHBoxLayout(this);
    line->setContentsMargins(0, 0, 0, 0);
    line->addWidget(m_sentence, 1);
    line->addWidget(m_first);
    line->addWidget(other);
}

void FirstSteps::look(const StoreFolders& store) {
    using wynconfig::ItemKind;
    setVisible(store.losses().empty() && store.faults().empty() &&
               store.readableNames(ItemKind::Session).empty());
    const bool hasFormat = !store.readableNames(ItemKind::PartFormat).empty();
    m_sentence->tell(wording(hasFormat ? "FIRST_NO_SESSION" : "FIRST_EMPTY"));
    m_first->setText(wording(hasFormat ? "FIRST_SESSION" : "FIRST_FORMAT_BUTTON"));
}

std::optional<std::string> askForFirstFormat(QWidget* window) {
    QDialog dialog(window);
    dialog.setObjectName(kHostDialog);
    dialog.setWindowTitle(wording("FIRST_TITLE"));
    const std::vector<PartFormat> formats = sampleFormats();
    auto* choice = new IdentifierBox;
    choice->setObjectName(QStringLiteral("format"));
    for (const PartFormat& each : formats) choice->addItem(QString::fromStdString(each.name));
    auto* label = new QLabel(wording("FIRST_FORMAT"));
    label->setBuddy(choice);
    QPlainTextEdit* example = makeTextBox("FIRST_EXAMPLE");
    example->setObjectName(QStringLiteral("example"));
    setLines(*example, kExampleLines);
    example->setMinimumWidth(kExampleWidth);
    auto* exampleLabel = new QLabel(wording("FIRST_EXAMPLE"));
    exampleLabel->setBuddy(example);
    const auto show = [&](int chosen) {
        example->setPlainText(exampleOf(formats.at(static_cast<std::size_t>(chosen))));
    };
    QObject::connect(choice, &QComboBox::currentIndexChanged, &dialog, show);
    show(0);
    auto* note = new QLabel(wording("FIRST_NOTE"));
    note->setWordWrap(true);

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    QPushButton* go = buttons->button(QDialogButtonBox::Ok);
    worded(go, "FIRST_NEXT", "ok");
    withText(buttons->button(QDialogButtonBox::Cancel), "DIALOG_CANCEL");
    QObject::connect(buttons, &QDialogButtonBox::accepted, &dialog, &QDialog::accept);
    QObject::connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
    auto* line = new QHBoxLayout;
    line->addWidget(label);
    line->addWidget(choice, 1);
    auto* column = new QVBoxLayout(&dialog);
    column->addWidget(note);
    column->addLayout(line);
    column->addWidget(exampleLabel);
    column->addWidget(example);
    column->addWidget(buttons);
    if (dialog.exec() != QDialog::Accepted) return std::nullopt;
    return choice->currentText().toStdString();
}

}  // namespace host
