// The control models: state, the rules that keep it whole, and the announcing of changes.
#include "wynconfig/controls.h"

#include <algorithm>

#include "platform/forms/observing.h"
#include "platform/forms/working.h"
#include "platform/text/text.h"
#include "wynconfig/error.h"
#include "wynconfig/form.h"
#include "wynconfig/view.h"

namespace wynconfig {

Control::Control(Form& form, std::string_view name, ControlKind kind)
    : m_name(name), m_form(form), m_kind(kind) {
    form.m_controls.push_back(this);
}

bool Control::hasFace() const {
    switch (m_kind) {
        case ControlKind::FormCaption:
        case ControlKind::MsgBox:
        case ControlKind::BrowseFolder:
        case ControlKind::CommonDialog:
            return false;
        default:
            return true;
    }
}

void Control::touch() const {
    m_form.touch();
}

void Control::announce() {
    m_form.announce(this);
}

bool Control::enabled() const {
    touch();
    return m_enabled;
}

void Control::setEnabled(bool enabled) {
    change(m_enabled, enabled);
}

bool Control::visible() const {
    touch();
    return m_visible;
}

void Control::setVisible(bool visible) {
    change(m_visible, visible);
}

bool Control::tabStop() const {
    touch();
    return m_tabStop;
}

void Control::setTabStop(bool tabStop) {
    change(m_tabStop, tabStop);
}

Background Control::background() const {
    touch();
    return m_background;
}

void Control::setBackground(Background background) {
    change(m_background, background);
}

std::shared_ptr<const Font> Control::font() const {
    touch();
    return m_font;
}

void Control::setFont(std::shared_ptr<const Font> font) {
    touch();
    if (!hasFace()) throw Error(errc::NoSuchProperty, "This control has no font.");
    change(m_font, std::move(font));
}

void Control::setFocus() {
    touch();
    m_form.moveFocus(*this, true);
}

bool Control::hasFocus() const {
    touch();
    return m_form.m_focused == this;
}

void Control::refresh() {
    touch();
    announce();
}

void Control::reset() {
    m_enabled = true;
    m_visible = true;
    m_tabStop = true;
    m_background = Background::Window;
    m_font.reset();
    resetContent();
}

CaptionedControl::CaptionedControl(Form& form, std::string_view name, ControlKind kind,
                                   std::string_view designCaption)
    : Control(form, name, kind), m_designCaption(designCaption), m_caption(designCaption) {}

const std::string& CaptionedControl::caption() const {
    touch();
    return m_caption;
}

void CaptionedControl::setCaption(std::string caption) {
    change(m_caption, std::move(caption));
}

void CaptionedControl::resetContent() {
    m_caption = m_designCaption;
}

bool CheckBox::value() const {
    touch();
    return m_value;
}

void CheckBox::setValue(bool value) {
    change(m_value, value);
}

void CheckBox::resetContent() {
    CaptionedControl::resetContent();
    m_value = false;
}

bool OptionButton::value() const {
    touch();
    return m_value;
}

void OptionButton::setValue(bool value) {
    change(m_value, value);
    if (!value) return;
    for (Control* control : form().controls()) {
        if (control == this || control->kind() != ControlKind::OptionButton) continue;
        auto* other = static_cast<OptionButton*>(control);
        if (other->m_frame == m_frame) other->change(other->m_value, false);
    }
}

void OptionButton::resetContent() {
    CaptionedControl::resetContent();
    m_value = false;
}

const std::string& Edit::text() const {
    touch();
    return m_text;
}

void Edit::setText(std::string text) {
    change(m_text, std::move(text));
    change(m_caret, std::size_t{0});
}

std::size_t Edit::caret() const {
    touch();
    return m_caret;
}

void Edit::setCaret(std::size_t caret) {
    change(m_caret, std::min(caret, charCount(m_text)));
}

void Edit::resetContent() {
    m_text.clear();
    m_caret = 0;
}

void ListView::addColumn(ListColumn column) {
    touch();
    m_columns.push_back(std::move(column));
    rowsChanged();
}

const std::vector<ListColumn>& ListView::columns() const {
    touch();
    return m_columns;
}

const std::vector<ListRow>& ListView::rows() const {
    touch();
    return m_rows;
}

const ListRow& ListView::row(std::size_t number) const {
    touch();
    if (number < 1 || number > m_rows.size())
        throw Error(errc::SubscriptRange,
                    "The list has no row number " + std::to_string(number) + ".");
    return m_rows[number - 1];
}

bool ListView::hasKey(const std::string& key) const {
    touch();
    return m_keys.contains(key);
}

void ListView::add(const std::string& key, const std::string& text,
                   std::shared_ptr<const Font> rowFont) {
    touch();
    if (!m_keys.insert(key).second)
        throw Error(errc::DuplicateKey, "The list has a row of the key \"" + key + "\" already.");
    m_rows.push_back({key, text, std::move(rowFont)});
    rowsChanged();
}

void ListView::setRowText(std::size_t number, std::string text) {
    row(number);
    m_rows[number - 1].text = std::move(text);
    rowsChanged();
}

void ListView::remove(const std::string& key) {
    const std::size_t number = numberOf(key);
    m_rows.erase(m_rows.begin() + static_cast<std::ptrdiff_t>(number - 1));
    m_keys.erase(key);
    if (m_selected == number)
        m_selected = 0;
    else if (m_selected > number)
        --m_selected;
    rowsChanged();
}

void ListView::clear() {
    touch();
    m_rows.clear();
    m_keys.clear();
    m_selected = 0;
    rowsChanged();
}

const ListRow* ListView::selectedItem() const {
    touch();
    return m_selected == 0 ? nullptr : &m_rows[m_selected - 1];
}

std::size_t ListView::selectedNumber() const {
    touch();
    return m_selected;
}

void ListView::select(const std::string& key) {
    change(m_selected, numberOf(key));
}

void ListView::select(std::size_t number) {
    row(number);
    change(m_selected, number);
}

void ListView::unselect() {
    change(m_selected, std::size_t{0});
}

std::size_t ListView::numberOf(const std::string& key) const {
    touch();
    if (m_keys.contains(key)) {
        const auto found = std::find_if(m_rows.begin(), m_rows.end(),
                                        [&](const ListRow& row) { return row.key == key; });
        return static_cast<std::size_t>(found - m_rows.begin()) + 1;
    }
    throw Error(errc::NoSuchKey, "The list has no row of the key \"" + key + "\".");
}

void ListView::rowsChanged() {
    ++m_revision;
    announce();
}

void ListView::resetContent() {
    m_columns.clear();
    m_rows.clear();
    m_keys.clear();
    m_selected = 0;
    ++m_revision;
}

const std::vector<std::string>& ComboBox::items() const {
    touch();
    return m_items;
}

void ComboBox::clear() {
    touch();
    m_items.clear();
    m_selected = -1;
    ++m_revision;
    announce();
}

void ComboBox::addItem(std::string text) {
    touch();
    m_items.push_back(std::move(text));
    ++m_revision;
    announce();
}

int ComboBox::selectedIndex() const {
    touch();
    return m_selected;
}

void ComboBox::setSelectedIndex(int index) {
    touch();
    if (index < -1 || index >= static_cast<int>(m_items.size()))
        throw Error(errc::InvalidCall, "The list has no item " + std::to_string(index) + ".");
    change(m_selected, index);
}

std::string ComboBox::text() const {
    touch();
    return m_selected < 0 ? std::string() : m_items[static_cast<std::size_t>(m_selected)];
}

int ComboBox::find(std::string_view text) const {
    touch();
    const auto found = std::find(m_items.begin(), m_items.end(), text);
    return found == m_items.end() ? -1 : static_cast<int>(found - m_items.begin());
}

void ComboBox::resetContent() {
    m_items.clear();
    m_selected = -1;
    ++m_revision;
}

Tabs::Tabs(Form& form, std::string_view name, std::vector<std::string_view> designCaptions)
    : Control(form, name, ControlKind::Tabs),
      m_designCaptions(std::move(designCaptions)),
      m_captions(m_designCaptions.begin(), m_designCaptions.end()) {}

const std::string& Tabs::caption(int index) const {
    touch();
    requireTab(index);
    return m_captions[static_cast<std::size_t>(index)];
}

void Tabs::setCaption(int index, std::string caption) {
    requireTab(index);
    change(m_captions[static_cast<std::size_t>(index)], std::move(caption));
}

std::string_view Tabs::designCaption(int index) const {
    requireTab(index);
    return m_designCaptions[static_cast<std::size_t>(index)];
}

int Tabs::tab() const {
    touch();
    return m_tab;
}

void Tabs::setTab(int index) {
    requireTab(index);
    change(m_tab, index);
}

void Tabs::requireTab(int index) const {
    if (index < 0 || index >= count())
        throw Error(errc::InvalidCall, "There is no tab " + std::to_string(index) + ".");
}

void Tabs::resetContent() {
    m_captions.assign(m_designCaptions.begin(), m_designCaptions.end());
    m_tab = 0;
}

void FormCaption::bind(Form&) {
    change(m_bound, true);
    refresh();
}

void FormCaption::release() {
    change(m_bound, false);
}

void FormCaption::resetContent() {
    CaptionedControl::resetContent();
    m_bound = false;
}

int MsgBox::ShowMsg(const std::string& text, int style, const std::string& title,
                    const std::string& okCaption) {
    touch();
    const MessageRequest box{&form(), text, style, title, okCaption};
    const WaitPause pause;
    const int answer = installedView()->showMessage(box);
    tellBox(box, answer);
    return answer;
}

std::string BrowseFolder::browse(bool files, const std::string& title, const std::string& okCaption,
                                 const std::string& cancelCaption,
                                 std::shared_ptr<const Font> font) {
    touch();
    const WaitPause pause;
    return installedView()->browse(
        {&form(), title, okCaption, cancelCaption, files, std::move(font)});
}

}  // namespace wynconfig
