// The menu of the languages that the component's texts come in.
#pragma once

#include <functional>

class QMenu;
class QString;
class QWidget;

namespace host {

class Workplace;

/// One entry per language whose texts lie in the workplace's folder of texts.
/// @param tell  is told what came of a change, in a sentence, and whether it failed
QMenu* makeLanguageMenu(Workplace& workplace, QWidget* parent,
                        const std::function<void(const QString&, bool)>& tell);

}  // namespace host
