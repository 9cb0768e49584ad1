// What is wrong with what a screen reader finds in a window, whichever window it is.
#pragma once

#include <QAccessible>
#include <QAccessibleInterface>
#include <QHeaderView>
#include <QMetaEnum>
#include <QString>
#include <QTableView>
#include <QTreeView>
#include <QWidget>
#include <map>
#include <string>
#include <vector>

namespace wynconfig {

/// Goes through the whole tree, hidden elements included, and names each fault in a line: what a
/// person works with and has no name, what can't be told from its neighbour, what is told though
/// nobody sees it, and what is seen and not told.
class SpokenTree {
  public:
    explicit SpokenTree(QWidget& window) {
        walk(*QAccessible::queryAccessibleInterface(&window), "");
    }

    const std::vector<std::string>& faults() const { return m_faults; }
    /// How many elements take the focus.
    int focusable() const { return m_focusable; }

  private:
    void walk(QAccessibleInterface& element, const std::string& around) {
        const std::string place = around + " / " + lineOf(element);
        lookAt(element, place);
        // What is in it is not told either.
        if (element.state().invisible) return;
        std::map<QString, int> alike;
        for (int i = 0; i < element.childCount(); ++i) {
            QAccessibleInterface* child = element.child(i);
            if (!child) continue;
            walk(*child, place);
            if (isWorkedWith(*child) && ++alike[nameOf(*child)] == 2)
                m_faults.push_back("two alike:" + place + " / " + lineOf(*child));
        }
    }

    void lookAt(QAccessibleInterface& element, const std::string& place) {
        const auto* widget = qobject_cast<QWidget*>(element.object());
        if (widget && widget->isVisible() == static_cast<bool>(element.state().invisible))
            m_faults.push_back((widget->isVisible() ? "not told:" : "told though hidden:") + place);
        if (isOfHiddenColumn(element)) m_faults.push_back("of a hidden column:" + place);
        if (!isWorkedWith(element)) return;
        ++m_focusable;
        if (element.text(QAccessible::Name).isEmpty() &&
            element.relations(QAccessible::Label).isEmpty())
            m_faults.push_back("nameless:" + place);
    }

    /// Whether a person goes there. Cells go by their rows and columns, and may well be empty; a
    /// bar of tabs goes by them; and some only hand the focus on.
    static bool isWorkedWith(QAccessibleInterface& element) {
        const QAccessible::State state = element.state();
        const auto* widget = qobject_cast<QWidget*>(element.object());
        return state.focusable && !state.invisible && !element.tableCellInterface() &&
               element.role() != QAccessible::PageTabList && !(widget && widget->focusProxy());
    }

    static bool isOfHiddenColumn(QAccessibleInterface& element) {
        const QAccessibleTableCellInterface* cell = element.tableCellInterface();
        if (!cell) return false;
        QObject* view = cell->table() ? cell->table()->object() : nullptr;
        if (auto* table = qobject_cast<QTableView*>(view))
            return table->isColumnHidden(cell->columnIndex());
        if (auto* tree = qobject_cast<QTreeView*>(view))
            return tree->isColumnHidden(cell->columnIndex());
        return false;
    }

    static std::string roleOf(const QAccessibleInterface& element) {
        return QMetaEnum::fromType<QAccessible::Role>().valueToKey(element.role());
    }

    /// All that it is told from others by.
    static QString nameOf(const QAccessibleInterface& element) {
        QString all = QString::fromStdString(roleOf(element)) + u'\n' +
                      element.text(QAccessible::Name) + u'\n' +
                      element.text(QAccessible::Description);
        for (const auto& [label, relation] : element.relations(QAccessible::Label))
            all += u'\n' + label->text(QAccessible::Name);
        return all;
    }

    static std::string lineOf(const QAccessibleInterface& element) {
        return roleOf(element) + " \"" + element.text(QAccessible::Name).toStdString() + '"';
    }

    std::vector<std::string> m_faults;
    int m_focusable = 0;
};

}  // namespace wynconfig
