// Builds the widgets of a form from its layout, with no word about any one dialog.
#include "views/qt/form_builder.h"

#include <QDialogButtonBox>
#include <QGroupBox>
#include <QSignalBlocker>
#include <QStyle>
#include <QTabBar>
#include <QTabWidget>
#include <algorithm>
#include <iterator>

#include "platform/forms/empty_list.h"
#include "platform/forms/growing.h"
#include "views/qt/convert.h"
#include "wynconfig/keyboard.h"

namespace wynconfig::desktop {

namespace {

/// Children that have no use for the height that is left stand at the top, in their own size.
void keepUp(QLayout* layout, const std::vector<Layout>& nodes) {
    if (!anyGrowsDown(nodes)) layout->setAlignment(Qt::AlignTop);
}

const CaptionedControl* captioned(const Control* control) {
    return dynamic_cast<const CaptionedControl*>(control);
}

}  // namespace

BuiltForm FormBuilder::build(const Layout& body) {
    m_body = &body;
    std::vector<Layout> nodes{body};
    if (body.kind == Layout::Kind::Column) nodes = body.children;
    auto* outer = new QVBoxLayout(m_window);
    // What stands on the window itself keeps the distance from each other that it has from the
    // edge.
    outer->setSpacing(outer->contentsMargins().left());
    if (body.kind == Layout::Kind::Column) keepUp(outer, nodes);
    // The buttons that end the dialog stay where they are when the rest has to scroll.
    std::vector<Layout> ending;
    if (nodes.back().kind == Layout::Kind::Buttons) {
        ending.push_back(nodes.back());
        nodes.pop_back();
    }
    m_built.content = new QWidget(m_window);
    outer->addWidget(m_built.content, anyGrowsDown(nodes) ? 1 : 0);
    auto* inside = new QVBoxLayout(m_built.content);
    inside->setContentsMargins(0, 0, 0, 0);
    inside->setSpacing(outer->spacing());
    fill(inside, nodes, {m_built.content, nullptr});
    if (body.kind == Layout::Kind::Column) keepUp(inside, nodes);
    fill(outer, ending, {m_window, nullptr});
    orderTabStops(body);
    return std::move(m_built);
}

/// The Tab key follows the layout, but for the buttons that end the dialog: it follows the order in
/// which the platform has them.
void FormBuilder::orderTabStops(const Layout& body) {
    std::unordered_map<const Control*, const QWidget*> widgets;
    std::unordered_map<const QWidget*, Control*> controls;
    for (const auto& binding : m_built.bindings) {
        widgets[&binding->control()] = binding->widget();
        controls[binding->widget()] = &binding->control();
    }
    std::vector<Control*>& order = m_built.tabOrder;
    for (Control* each : wynconfig::tabOrder(body)) {
        const auto* row = qobject_cast<QDialogButtonBox*>(widgets.at(each)->parentWidget());
        if (!row) {
            order.push_back(each);
        } else if (std::find(order.begin(), order.end(), each) == order.end()) {
            for (int i = 0; i < row->layout()->count(); ++i) {
                const auto found = controls.find(row->layout()->itemAt(i)->widget());
                if (found != controls.end()) order.push_back(found->second);
            }
        }
    }
}

QWidget* FormBuilder::make(Control& control, const Place& place, const Standing& standing) {
    m_built.bindings.push_back(bind(control, place.parent, m_door, standing));
    QWidget* widget = m_built.bindings.back()->widget();
    if (control.kind() != ControlKind::Button) {
        // What is hidden for a while leaves its room, so that nothing around it jumps.
        QSizePolicy policy = widget->sizePolicy();
        policy.setRetainSizeWhenHidden(true);
        widget->setSizePolicy(policy);
    }
    if (isBox(control)) nameBox(widget, standing, place);
    return widget;
}

QLabel* FormBuilder::makeLabel(const Layout& node, const Place& place) {
    auto* label = static_cast<QLabel*>(make(*node.label, place, {.labels = node.control}));
    m_buddies[node.control] = label;
    return label;
}

QWidget* FormBuilder::makeLabelled(const Layout& node, const Place& place) {
    QWidget* widget = make(*node.control, place,
                           {.labelledBy = captioned(node.label),
                            .acts = node.acts,
                            .spoken = node.spoken,
                            .chars = node.chars});
    // Also of an option or a value, so that a screen reader knows what it is of.
    if (node.label) m_buddies.at(node.control)->setBuddy(widget);
    return widget;
}

QLayout* FormBuilder::withHelp(QWidget* widget, const Layout& node, const Place& place) {
    auto* list = dynamic_cast<RowList*>(widget);
    if (!list) return nullptr;
    auto* filter = new FilterLine(*list, place.parent);
    auto* note = new EmptyNote(*list, place.parent);
    auto* stack = new QVBoxLayout;
    stack->setSpacing(m_window->style()->pixelMetric(QStyle::PM_LayoutVerticalSpacing) / 2);
    stack->addWidget(filter);
    auto* rows = new QGridLayout;
    stack->addLayout(rows, 1);
    rows->addWidget(list, 0, 0);
    rows->addWidget(note, 0, 0);
    note->whenEmpty = [body = m_body, fill = node.acts.fill] {
        return toQt(wordsWhenEmpty(*body, fill));
    };
    QObject::connect(filter, &QLineEdit::textChanged, note, &EmptyNote::follow);
    m_built.listHelps.push_back({node.control, filter, note});
    return stack;
}

void FormBuilder::nameBox(QWidget* box, const Standing& standing, const Place& place) {
    const CaptionedControl* caption = standing.labelledBy;
    if (!caption && standing.spoken.empty()) caption = place.frame;
    if (caption || !standing.spoken.empty())
        m_built.spokenNames.push_back({box, caption, standing.spoken});
}

void FormBuilder::fill(QBoxLayout* box, const std::vector<Layout>& nodes, const Place& place) {
    std::vector<QGridLayout*> grids;
    for (auto node = nodes.begin(); node != nodes.end();) {
        if (node->kind != Layout::Kind::Field) {
            add(box, *node++, place);
            continue;
        }
        auto end = std::next(node);
        // Side by side each has a label of its own width; below each other they share a column.
        if (box->direction() == QBoxLayout::TopToBottom)
            end = std::find_if(node, nodes.end(),
                               [](const Layout& each) { return each.kind != Layout::Kind::Field; });
        grids.push_back(addFields(box, {node, end}, place));
        node = end;
    }
    if (grids.size() > 1 && box->direction() == QBoxLayout::TopToBottom)
        m_built.fieldColumns.push_back(std::move(grids));
    rememberButtons(nodes);
}

void FormBuilder::add(QBoxLayout* box, const Layout& node, const Place& place) {
    switch (node.kind) {
        case Layout::Kind::Column:
        case Layout::Kind::Row:
        case Layout::Kind::Pane:
            addStack(box, node, place);
            break;
        case Layout::Kind::Group:
            addGroup(box, node, place);
            break;
        case Layout::Kind::Tabs:
            addTabs(box, node, place);
            break;
        case Layout::Kind::Titled:
            addTitled(box, node, place);
            break;
        case Layout::Kind::Field:
            addFields(box, {node}, place);
            break;
        case Layout::Kind::Single:
            addSingle(box, node, place);
            break;
        case Layout::Kind::Buttons:
            addButtons(box, node, place);
            break;
        case Layout::Kind::Stretch:
            box->addStretch(1);
            break;
    }
}

void FormBuilder::addStack(QBoxLayout* box, const Layout& node, const Place& place) {
    QBoxLayout* stack = node.kind == Layout::Kind::Row ? static_cast<QBoxLayout*>(new QHBoxLayout)
                                                       : static_cast<QBoxLayout*>(new QVBoxLayout);
    box->addLayout(stack, node.grows ? 1 : 0);
    fill(stack, node.children, place);
    if (node.kind != Layout::Kind::Row) keepUp(stack, node.children);
    const bool lists =
        std::any_of(node.children.begin(), node.children.end(), [](const Layout& each) {
            return each.kind == Layout::Kind::Titled && !each.children.empty();
        });
    if (lists && node.kind == Layout::Kind::Row) m_built.listRows.push_back(stack);
}

void FormBuilder::addGroup(QBoxLayout* box, const Layout& node, const Place& place) {
    QWidget* group = make(*node.control, place);
    box->addWidget(group, node.grows ? 1 : 0);
    auto* inside = new QVBoxLayout(group);
    if (node.grows) {
        // What grows takes the room of the edges too.
        const QMargins usual = inside->contentsMargins();
        inside->setContentsMargins(usual.left() / 3, usual.top(), usual.right() / 3,
                                   usual.bottom());
    }
    fill(inside, node.children, {group, captioned(node.control)});
    keepUp(inside, node.children);
}

void FormBuilder::addTabs(QBoxLayout* box, const Layout& node, const Place& place) {
    auto* tabs = static_cast<QTabWidget*>(make(*node.control, place));
    box->addWidget(tabs, node.grows ? 1 : 0);
    for (const Layout& each : node.children) {
        // The page comes and goes with its tab; the pane in it stands for its control alone.
        auto* page = new QWidget(tabs);
        auto* around = new QVBoxLayout(page);
        around->setContentsMargins(0, 0, 0, 0);
        QWidget* pane = make(*each.control, {page, nullptr});
        around->addWidget(pane);
        auto* inside = new QVBoxLayout(pane);
        fill(inside, each.children, {pane, nullptr});
        keepUp(inside, each.children);
        // The first page becomes the current one, which nobody clicked.
        const QSignalBlocker quiet(tabs->tabBar());
        tabs->addTab(page, QString());
    }
}

void FormBuilder::addSingle(QBoxLayout* box, const Layout& node, const Place& place) {
    QWidget* widget = make(*node.control, place, {.acts = node.acts, .spoken = node.spoken});
    if (QLayout* list = withHelp(widget, node, place))
        box->addLayout(list, node.grows ? 1 : 0);
    else
        box->addWidget(widget, node.grows ? 1 : 0);
    if (node.into)
        m_built.movers.push_back({static_cast<QPushButton*>(widget), node.from, node.into});
}

void FormBuilder::addButtons(QBoxLayout* box, const Layout& node, const Place& place) {
    constexpr QDialogButtonBox::ButtonRole roles[] = {
        QDialogButtonBox::AcceptRole, QDialogButtonBox::RejectRole, QDialogButtonBox::ApplyRole};
    auto* buttons = new QDialogButtonBox(place.parent);
    for (std::size_t i = 0; i < node.children.size() && i < std::size(roles); ++i) {
        QWidget* button = make(*node.children[i].control, {buttons, nullptr});
        buttons->addButton(static_cast<QPushButton*>(button), roles[i]);
    }
    box->addWidget(buttons);
    rememberButtons(node.children);
}

void FormBuilder::addTitled(QBoxLayout* box, const Layout& node, const Place& place) {
    auto* grid = new QGridLayout;
    // A label belongs to its box more than the box to its neighbours.
    const int usual = m_window->style()->pixelMetric(QStyle::PM_LayoutVerticalSpacing);
    grid->setVerticalSpacing(usual / 2);
    grid->setHorizontalSpacing(usual);
    box->addLayout(grid, node.grows ? 1 : 0);
    constexpr int kLabels = 0;
    constexpr int kBoxes = 1;
    const int beside = node.behindBox ? 1 : 0;
    const int own = node.children.empty() ? 0 : 1 - beside;
    // Over its box alone, at the leading side also where its text runs the other way.
    grid->addWidget(makeLabel(node, place), kLabels, own, Qt::AlignLeft);
    if (!node.behindBox) addBeside(grid, kBoxes, beside, node, place);
    QWidget* widget = makeLabelled(node, place);
    if (QLayout* list = withHelp(widget, node, place))
        grid->addLayout(list, kBoxes, own);
    else
        grid->addWidget(widget, kBoxes, own);
    if (node.behindBox) addBeside(grid, kBoxes, beside, node, place);
    grid->setRowStretch(kBoxes, 1);
    grid->setColumnStretch(own, 1);
    if (!growsDown(node)) grid->setAlignment(Qt::AlignTop);
}

void FormBuilder::addBeside(QGridLayout* grid, int row, int column, const Layout& node,
                            const Place& place) {
    if (node.children.empty()) return;
    auto* beside = new QVBoxLayout;
    beside->setSpacing(grid->horizontalSpacing());
    grid->addLayout(beside, row, column);
    fill(beside, node.children, place);
    keepUp(beside, node.children);
}

QGridLayout* FormBuilder::addFields(QBoxLayout* box, const std::vector<Layout>& run,
                                    const Place& place) {
    auto* grid = new QGridLayout;
    grid->setColumnStretch(1, 1);
    const bool grows =
        std::any_of(run.begin(), run.end(), [](const Layout& each) { return each.grows; });
    box->addLayout(grid, grows ? 1 : 0);
    for (const Layout& node : run)
        addField(grid, grid->count() ? grid->rowCount() : 0, node, place);
    return grid;
}

QWidget* FormBuilder::makeOptionSet(const Layout& field, const Place& place) {
    auto* set = new OptionSet(place.parent);
    const CaptionedControl* const label = captioned(field.label);
    if (label || !field.spoken.empty()) m_built.spokenNames.push_back({set, label, field.spoken});
    return set;
}

void FormBuilder::addField(QGridLayout* grid, int row, const Layout& node, const Place& place) {
    constexpr int kLabels = 0;
    constexpr int kBoxes = 1;
    constexpr int kBehind = 2;
    const bool tall = growsDown(node);
    if (tall || node.grows) grid->setRowStretch(row, 1);
    if (node.label)
        grid->addWidget(makeLabel(node, place), row, kLabels,
                        tall ? Qt::AlignTop : Qt::AlignVCenter);
    const bool isSet = node.control->kind() == ControlKind::OptionButton && !node.children.empty();
    const Place inside = {isSet ? makeOptionSet(node, place) : place.parent, place.frame};
    QWidget* widget = makeLabelled(node, inside);
    if (isSet && node.label) m_buddies.at(node.control)->setBuddy(inside.parent);
    if (node.children.empty()) {
        const bool isNarrow =
            node.chars > 0 && widget->sizePolicy().horizontalPolicy() == QSizePolicy::Fixed;
        const Qt::Alignment side = isNarrow ? Qt::AlignLeft : Qt::Alignment();
        grid->addWidget(widget, row, kBoxes, 1, 2, side);
        return;
    }
    auto* line = new QHBoxLayout;
    const bool ownWidth = node.children.back().kind == Layout::Kind::Stretch;
    if (isBox(*node.control) && !ownWidth) {
        grid->addWidget(widget, row, kBoxes);
        grid->addLayout(line, row, kBehind);
        fill(line, node.children, place);
    } else {
        // Options and the like stay together instead of going to the two ends of the row.
        if (isSet) {
            line->setContentsMargins(0, 0, 0, 0);
            inside.parent->setLayout(line);
            grid->addWidget(inside.parent, row, kBoxes, 1, 2);
        } else {
            grid->addLayout(line, row, kBoxes, 1, 2);
        }
        line->addWidget(widget);
        fill(line, node.children, inside);
        if (!ownWidth) line->addStretch(1);
    }
}

void FormBuilder::rememberButtons(const std::vector<Layout>& nodes) {
    std::vector<QPushButton*> buttons;
    for (const auto& binding : m_built.bindings) {
        const bool among = std::any_of(nodes.begin(), nodes.end(), [&](const Layout& node) {
            return node.kind == Layout::Kind::Single && !node.into &&
                   node.control == &binding->control();
        });
        if (auto* button = qobject_cast<QPushButton*>(binding->widget()); among && button)
            buttons.push_back(button);
    }
    if (buttons.size() > 1) m_built.buttonRows.push_back(std::move(buttons));
}

}  // namespace wynconfig::desktop
