// Builds the widgets of a form from its layout, with no word about any one dialog.
#pragma once

#include <QBoxLayout>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <memory>
#include <utility>
#include <vector>

#include "views/qt/binding.h"
#include "wynconfig/layout.h"

namespace wynconfig::desktop {

/// A widget that is spoken of by the caption of another control, for screen readers.
struct SpokenName {
    QWidget* widget;
    const CaptionedControl* caption;
};

/// What came of a layout.
struct BuiltForm {
    std::vector<std::unique_ptr<Binding>> bindings;  ///< in the order of the layout
    std::vector<SpokenName> spokenNames;
    std::vector<std::vector<QPushButton*>> buttonRows;  ///< buttons that are to be equally wide
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
    /// The label and the box of a Field or a Titled.
    std::pair<QLabel*, QWidget*> makeLabelled(const Layout& node, const Place& place);
    void nameBox(QWidget* box, const Control& control, const CaptionedControl* label);
    void fill(QBoxLayout* box, const std::vector<Layout>& nodes, const Place& place);
    void add(QBoxLayout* box, const Layout& node, const Place& place);
    void addStack(QBoxLayout* box, const Layout& node, const Place& place);
    void addGroup(QBoxLayout* box, const Layout& node, const Place& place);
    void addTabs(QBoxLayout* box, const Layout& node, const Place& place);
    void addTitled(QBoxLayout* box, const Layout& node, const Place& place);
    QGridLayout* addFields(QBoxLayout* box, const std::vector<Layout>& run, const Place& place);
    void addField(QGridLayout* grid, int row, const Layout& node, const Place& place);
    void rememberButtons(const std::vector<Layout>& nodes);

    QWidget* m_window;
    Door& m_door;
    BuiltForm m_built;
};

}  // namespace wynconfig::desktop
