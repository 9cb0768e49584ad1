// What stands above the rows of a long list, and in place of those of an empty one.
#pragma once

#include <functional>

#include "views/qt/widgets.h"

namespace wynconfig::desktop {

/// A line above a list of many rows: what is typed there is what the rows are to contain that the
/// list shows. The rows of the form stay as they are, and so does its selected one, which is always
/// shown. It is no place of the Tab key.
class FilterLine : public TextBox {
  public:
    /// @param list  the list below it, of the same parent
    FilterLine(RowList& list, QWidget* parent);

    RowList& list() const { return m_list; }
    /// Comes up above a long list that is seen, and goes with it.
    void follow();
    /// Takes the focus, with its text selected.
    void begin();

  private:
    void nameItself();

    RowList& m_list;
};

/// Says that a list is empty and what comes next. It lies on the list, or in its place where the
/// form hides the list.
class EmptyNote : public QWidget {
  public:
    /// @param list  the list below it, of the same parent
    EmptyNote(RowList& list, QWidget* parent);

    /// Gives the words for a list without rows.
    std::function<QString()> whenEmpty;

    /// Comes up where the list shows no row, and goes when it does.
    void follow();

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    RowList& m_list;
    QString m_text;
};

}  // namespace wynconfig::desktop
