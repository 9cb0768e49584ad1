// What a store without sessions offers: its first part format and its first session.
#pragma once

#include <QWidget>
#include <optional>
#include <string>

#include "sample/sample_store.h"

class QAction;
class QPushButton;

namespace host {

class SentenceLabel;

/// Stands above the pages while the store has no session, and says what to do.
class FirstSteps : public QWidget {
    Q_OBJECT

  public:
    /// @param first  what makes the first session
    /// @param open   what opens another store
    FirstSteps(QAction* first, QAction* open, QWidget* parent = nullptr);

    /// Comes or goes as the store is now. Of one that can't be read it says nothing.
    void look(const StoreFolders& store);

  private:
    SentenceLabel* m_sentence;
    QPushButton* m_first;
};

/// Asks which of the ready-made part formats is to be the first one.
/// @return its name; none: the user gave up
std::optional<std::string> askForFirstFormat(QWidget* window);

}  // namespace host
