// The menu of the languages that the component's texts come in.
#pragma once

class QMenu;
class QWidget;

namespace host {

class Workplace;

/// One entry per language whose texts lie in the workplace's folder of texts.
QMenu* makeLanguageMenu(Workplace& workplace, QWidget* parent);

}  // namespace host
