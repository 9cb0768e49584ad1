// A form with a list of many rows, in which a person looks for one.
#pragma once

#include <string>

#include "support/test_form.h"

namespace wynconfig {

inline std::string rowName(int number) {
    return "ROW " + std::to_string(number);
}

/// A list of which Delete and Enter press buttons, an empty one beside it, and a button that fills
/// that one from the first.
class FindForm : public TestForm {
  public:
    FindForm() : TestForm("frmFind") {
        lstAll.ItemClick = [this] { log.push_back(lstAll.selectedItem()->text); };
        for (Button* each : {&btnNew, &btnDelete})
            each->Click = [this, each] { log.push_back(std::string(each->name())); };
        btnOK.Click = [this] { Unload(); };
        btnCancel.Click = [this] {
            cancelled = true;
            Unload();
        };
    }

    void fill(int count) {
        lstAll.clear();
        for (int i = 1; i <= count; ++i) lstAll.add(rowName(i), rowName(i));
    }

    int rows = 200;
    bool cancelled = false;
    Edit txtName{*this, "txtName"};
    Label lblAll{*this, "lblAll", "&All rows"};
    ListView lstAll{*this, "lstAll"};
    Button btnNew{*this, "btnNew", "&New"};
    Button btnDelete{*this, "btnDelete", "&Delete"};
    Button btnAdd{*this, "btnAdd", ">"};
    Label lblChosen{*this, "lblChosen", "&Chosen rows"};
    ListView lstChosen{*this, "lstChosen"};
    ListView lstTokens{*this, "lstTokens"};
    Button btnOK{*this, "btnOK", "OK"};
    Button btnCancel{*this, "btnCancel", "Cancel"};

  protected:
    void Form_Load() override {
        fill(rows);
        lstTokens.add("<TAB>", "<TAB>");
    }
    FormLayout declareLayout() override {
        using namespace layout;
        return {
            column({single(txtName),
                    row({growing(acting(titled(lblAll, {single(btnNew), single(btnDelete)}, lstAll),
                                        {.del = &btnDelete, .fill = &btnNew})),
                         moving(btnAdd, lblAll, lblChosen),
                         growing(acting(titled(lblChosen, lstChosen), {.fill = &btnAdd})),
                         growing(single(lstTokens))}),
                    buttons({&btnOK, &btnCancel})}),
            &btnOK, &btnCancel};
    }
};

}  // namespace wynconfig
