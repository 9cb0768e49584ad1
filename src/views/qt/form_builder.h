// Builds the widgets of a form from its layout, with no word about any one dialog.
#pragma once

#include <QBoxLayout>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <memory>
#include <unordered_map>
#include <vector>

#include "views/qt/binding.h"
#include "views/qt/finding.h"
#include "wynconfig/layout.h"

namespace wynconfig::desktop {

/// A widget that is spoken of by the caption of another control, or by a word, for screen readers.
struct SpokenName {
    QWidget* widget;
    const CaptionedControl* caption;  ///< null: by the word
    std::string_view word;            ///< see `Layout::spoken`
};

/// A button that moves rows between two lists, which go by their labels.
struct Mover {
    QPushButton* button;
    const CaptionedControl* from;
    const CaptionedControl* into;
};

/// What helps a person in a list of any length.
struct ListHelp {
    Control* list;
    FilterLine* filter;
    EmptyNote* note;
};

/// What came of a layout.
struct BuiltForm {
    QWidget* content = nullptr;                      ///< all but the buttons that end the dialog
    std::vector<std::unique_ptr<Binding>> bindings;  ///< in the order of the layout
    /// Where the Tab key can stop, in its order.
    std::vector<Control*> tabOrder;
    std::vector<SpokenName> spokenNames;
    std::vector<Mover> movers;
    std::vector<ListHelp> listHelps;
    std::vector<std::vector<QPushButton*>> buttonRows;  ///< buttons that are to be equally wide
    /// Rows of lists of which some have buttons beside them; the lists are to be equally wide.
    std::vector<QBoxLayout*> listRows;
    /// Fields of one column that something stands between; their boxes are to start alike.
    std::vector<std::vector<QGridLayout*>> fieldColumns;
};

class FormBuilder {
  public:
    FormBuilder(QWidget* window, Door& door) : m_window(window), m_door(door) {}

    /// Lays the form out in the window.
    BuiltForm build(const Layout& body);

  private:
    /// Where a node is put: the widget that its widgets belong to, and the frame around it.
    struct Place {
        QWidget* parent;
        const CaptionedControl* frame;
    };

    QWidget* make(Control& control, const Place& place, const Standing& standing = {});
    /// The label of a Field or a Titled, and then its box.
    QLabel* makeLabel(const Layout& node, const Place& place);
    QWidget* makeLabelled(const Layout& node, const Place& place);
    /// A list with what helps a person in it; null for what is no list.
    QLayout* withHelp(QWidget* widget, const Layout& node, const Place& place);
    void nameBox(QWidget* box, const Standing& standing, const Place& place);
    void fill(QBoxLayout* box, const std::vector<Layout>& nodes, const Place& place);
    void add(QBoxLayout* box, const Layout& node, const Place& place);
    void addStack(QBoxLayout* box, const Layout& node, const Place& place);
    void addGroup(QBoxLayout* box, const Layout& node, const Place& place);
    void addTabs(QBoxLayout* box, const Layout& node, const Place& place);
    void addSingle(QBoxLayout* box, const Layout& node, const Place& place);
    void addButtons(QBoxLayout* box, const Layout& node, const Place& place);
    void addTitled(QBoxLayout* box, const Layout& node, const Place& place);
    void addBeside(QGridLayout* grid, int row, int column, const Layout& node, const Place& place);
    QGridLayout* addFields(QBoxLayout* box, const std::vector<Layout>& run, const Place& place);
    /// What the options of a field stand in, so that they are heard of together.
    QWidget* makeOptionSet(const Layout& field, const Place& place);
    void addField(QGridLayout* grid, int row, const Layout& node, const Place& place);
    void rememberButtons(const std::vector<Layout>& nodes);
    void orderTabStops(const Layout& body);

    QWidget* m_window;
    Door& m_door;
    const Layout* m_body = nullptr;
    BuiltForm m_built;
    std::unordered_map<const Control*, QLabel*> m_buddies;  ///< by what they stand at
};

}  // namespace wynconfig::desktop
