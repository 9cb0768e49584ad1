// Showing and taking the value of one field by its form, and going through a table of them.
#include "services/fields.h"

#include <algorithm>

#include "platform/text/text.h"
#include "wynconfig/keys.h"

namespace wynconfig {

namespace {

/// Shows a value.
struct Show {
    const std::string& value;

    void operator()(const AsText& field) const { field.box.setText(value); }
    void operator()(const AsTrimmedText& field) const { field.box.setText(value); }
    void operator()(const AsItem& field) const {
        field.list.setSelectedIndex(std::max(field.list.find(value), 0));
    }
    void operator()(const AsSwitch& field) const { field.check.setValue(value == words::kTrue); }
    void operator()(const AsFlag& field) const { field.check.setValue(value != words::kFalse); }
    void operator()(const AsOptions& field) const {
        const auto named =
            std::find_if(field.options.begin(), field.options.end(),
                         [&](const AsOptions::Option& each) { return each.word == value; });
        (named == field.options.end() ? field.otherwise : named->button).setValue(true);
    }
    void operator()(const AsConstant&) const {}
};

/// Shows what is left when there is no data to look at: the true branch of the first test.
struct ShowFailedTest {
    void operator()(const AsText&) const {}
    void operator()(const AsTrimmedText&) const {}
    void operator()(const AsItem&) const {}
    void operator()(const AsSwitch& field) const { field.check.setValue(true); }
    void operator()(const AsFlag& field) const { field.check.setValue(false); }
    void operator()(const AsOptions& field) const { field.options.front().button.setValue(true); }
    void operator()(const AsConstant&) const {}
};

/// Takes the value to be stored.
struct Take {
    const Field& row;

    std::string operator()(const AsText& field) const { return field.box.text(); }
    std::string operator()(const AsTrimmedText& field) const { return Trim(field.box.text()); }
    std::string operator()(const AsItem& field) const { return Trim(field.list.text()); }
    std::string operator()(const AsSwitch& field) const {
        return words::ofSwitch(field.check.value());
    }
    std::string operator()(const AsFlag& field) const {
        return words::ofSwitch(field.check.value());
    }
    std::string operator()(const AsOptions& field) const {
        const auto chosen =
            std::find_if(field.options.begin(), field.options.end(),
                         [](const AsOptions::Option& each) { return each.button.value(); });
        return std::string((chosen == field.options.end() ? field.options.back() : *chosen).word);
    }
    std::string operator()(const AsConstant&) const { return row.firstValue.value_or(""); }
};

void show(const Field& field, const std::string& value) {
    std::visit(Show{value}, field.control);
}

std::string valueOf(const Field& field) {
    return std::visit(Take{field}, field.control);
}

bool isRead(const Field& field) {
    return !std::holds_alternative<AsConstant>(field.control);
}

}  // namespace

void showFirstValues(const Fields& fields) {
    for (const Field& field : fields) {
        if (field.firstValue) show(field, *field.firstValue);
    }
}

void showFirstValues(OnError& on, const Fields& fields) {
    for (const Field& field : fields) {
        if (field.firstValue) on([&] { show(field, *field.firstValue); });
    }
}

RowVariable readCarryingOver(const Fields& fields, const Dataset& record) {
    OnError on = OnError::ignoring();
    RowVariable row;
    for (const Field& field : fields) {
        if (!isRead(field)) continue;
        on([&] { row.read(record, field.key); });
        on([&] {
            if (row.isEmpty())
                std::visit(ShowFailedTest{}, field.control);
            else
                show(field, row.data());
        });
    }
    return row;
}

void readUpToAbsentKey(const Fields& fields, const Dataset& record) {
    OnError on = OnError::ignoring();
    on([&] {
        for (const Field& field : fields) {
            if (isRead(field)) show(field, record.GetRow(field.key)[1]);
        }
    });
}

void readPastAbsentKeys(const Fields& fields, const Dataset& record) {
    OnError on = OnError::ignoring();
    for (const Field& field : fields) {
        if (!isRead(field)) continue;
        std::string value;
        on([&] { value = record.GetRow(field.key)[1]; });
        on([&] { show(field, value); });
    }
}

void replaceRows(OnError& on, const Fields& fields, Dataset& record) {
    for (const Field& field : fields) {
        std::string value;
        if (!on([&] { value = valueOf(field); })) continue;
        on([&] { record.DeleteRow(field.key); });
        on([&] { record.AddRow({field.key, value}); });
    }
}

void addRows(OnError& on, const Fields& fields, Dataset& record) {
    for (const Field& field : fields) on([&] { record.AddRow({field.key, valueOf(field)}); });
}

}  // namespace wynconfig
