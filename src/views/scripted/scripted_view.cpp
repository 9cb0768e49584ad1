// The view without a screen: hands whatever comes up to the played person.
#include "wynconfig/scripted_view.h"

#include "views/scripted/person/person.h"

namespace wynconfig {

ScriptedView::ScriptedView() : m_person(std::make_unique<Person>(userInput())) {}

ScriptedView::~ScriptedView() = default;

User& ScriptedView::user() {
    return *m_person;
}

void ScriptedView::showModal(Form& form) {
    m_person->meet(form);
}

int ScriptedView::showMessage(const MessageRequest& box) {
    return m_person->answerBox(box);
}

std::string ScriptedView::browse(const BrowseRequest& request) {
    return m_person->answerBrowse(request);
}

void ScriptedView::raise(Form&, bool) {}

long ScriptedView::deviceContext(Form&) {
    return 0;
}

void ScriptedView::showProgress(const Progress& progress) {
    m_person->watch(progress);
}

}  // namespace wynconfig
