// Buttons, check boxes, options, labels and frames: what has a caption.
#include "views/win32/captioned_pieces.h"

#include <algorithm>
#include <vector>

#include "views/win32/convert.h"
#include "views/win32/direction.h"
#include "views/win32/outline.h"
#include "wynconfig/form.h"

namespace wynconfig::native {

namespace {

/// How many characters of a value there is room for, and how many are seen at the least.
constexpr int kUsualValue = 25;
constexpr int kLeastValue = 11;

Room fixed(int width, int height) {
    return {{width, height}, {width, height}};
}

class CaptionedPiece : public Piece {
  protected:
    CaptionedPiece(CaptionedControl& control, Stage& stage)
        : Piece(control, stage), m_captioned(control) {}
    void showContent() override { showWords(toWideCaption(m_captioned.caption())); }
    void showWords(const std::wstring& words) {
        if (showText(window(), embedded(words, stage().mirrored()))) forgetRoom();
    }
    SIZE textSize(const Measure& measure) const { return measure.text(textOf(window())); }

  private:
    CaptionedControl& m_captioned;
};

class ButtonPiece : public CaptionedPiece {
  public:
    ButtonPiece(Button& button, Stage& stage, const Standing& standing)
        : CaptionedPiece(button, stage), m_button(button), m_square(standing.movesRows) {
        make(standing.parent, WC_BUTTONW,
             WS_TABSTOP | BS_NOTIFY | (standing.isDefault ? BS_DEFPUSHBUTTON : BS_PUSHBUTTON));
    }
    void commanded(UINT code) override {
        if (code == BN_CLICKED)
            actInPlace([this](const UserInput& input) { input.click(m_button); });
    }
    Room measured(const Measure& measure) const override {
        const int height = measure.lineHeight() + scale(10);
        if (m_square) return fixed(height * 5 / 4, height);
        const int air = 2 * measure.chars(2);
        return fixed(std::max(static_cast<int>(textSize(measure).cx) + air, scale(75)), height);
    }

  private:
    Button& m_button;
    bool m_square;
};

/// The mark and the gap behind it, in pixels of 96 to the inch.
constexpr int kMarkWidth = 21;

class CheckPiece : public CaptionedPiece {
  public:
    CheckPiece(CheckBox& box, Stage& stage, const Standing& standing)
        : CaptionedPiece(box, stage), m_box(box) {
        make(standing.parent, WC_BUTTONW, WS_TABSTOP | BS_NOTIFY | BS_CHECKBOX);
    }
    void commanded(UINT code) override {
        if (code == BN_CLICKED)
            actInPlace([this](const UserInput& input) { input.tick(m_box, !m_box.value()); });
    }
    Room measured(const Measure& measure) const override {
        return fixed(static_cast<int>(textSize(measure).cx) + scale(kMarkWidth),
                     measure.lineHeight() + scale(4));
    }

  private:
    void showContent() override {
        CaptionedPiece::showContent();
        send(BM_SETCHECK, m_box.value() ? BST_CHECKED : BST_UNCHECKED);
    }
    CheckBox& m_box;
};

class OptionPiece : public CaptionedPiece {
  public:
    OptionPiece(OptionButton& option, Stage& stage, const Standing& standing)
        : CaptionedPiece(option, stage), m_option(option) {
        make(standing.parent, WC_BUTTONW, WS_TABSTOP | BS_NOTIFY | BS_RADIOBUTTON);
    }
    void commanded(UINT code) override {
        // An option tells of a click as well when the focus comes to it.
        if (code == BN_CLICKED && !m_focusComes)
            actInPlace([this](const UserInput& input) { input.choose(m_option); });
    }
    bool takeKey(WPARAM key) override;
    Room measured(const Measure& measure) const override {
        return fixed(static_cast<int>(textSize(measure).cx) + scale(kMarkWidth),
                     measure.lineHeight() + scale(4));
    }

  private:
    void showContent() override {
        CaptionedPiece::showContent();
        send(BM_SETCHECK, m_option.value() ? BST_CHECKED : BST_UNCHECKED);
    }
    LRESULT received(UINT message, WPARAM w, LPARAM l) override {
        if (message != WM_SETFOCUS) return CaptionedPiece::received(message, w, l);
        m_focusComes = true;
        const LRESULT result = passOn(message, w, l);
        m_focusComes = false;
        stage().focusCame(*this);
        return result;
    }
    OptionButton& m_option;
    bool m_focusComes = false;
};

/// The arrow keys choose the option before or behind this one within the same frame.
bool OptionPiece::takeKey(WPARAM key) {
    const bool mirrored = stage().mirrored();
    int step = 0;
    if (key == VK_UP || key == (mirrored ? VK_RIGHT : VK_LEFT)) step = -1;
    if (key == VK_DOWN || key == (mirrored ? VK_LEFT : VK_RIGHT)) step = 1;
    if (step == 0) return false;
    Form& form = m_option.form();
    std::vector<OptionButton*> options;
    for (Control* each : controlsOf(form.layout().body)) {
        if (each->kind() != ControlKind::OptionButton || !isUsable(form.layout().body, *each))
            continue;
        auto* option = static_cast<OptionButton*>(each);
        if (option->frame() == m_option.frame()) options.push_back(option);
    }
    const auto count = static_cast<std::ptrdiff_t>(options.size());
    const auto at = std::find(options.begin(), options.end(), &m_option) - options.begin();
    if (at == count || count < 2) return true;
    OptionButton* next = options[static_cast<std::size_t>((at + step + count) % count)];
    stage().obey({.kind = KeyAct::Kind::Press, .control = next, .takesFocus = true});
    return true;
}

class LabelPiece : public CaptionedPiece {
  public:
    LabelPiece(Label& label, Stage& stage, const Standing& standing)
        : CaptionedPiece(label, stage),
          m_label(label),
          m_labels(standing.labels),
          m_isValue(!standing.labels) {
        const DWORD style =
            m_isValue ? SS_LEFT | SS_NOPREFIX | SS_ENDELLIPSIS | SS_NOTIFY : SS_LEFT;
        make(standing.parent, WC_STATICW, style);
    }
    Room measured(const Measure& measure) const override {
        const int line = measure.lineHeight();
        const SIZE text = m_isValue ? measure.text(textOf(window()), DT_NOPREFIX | DT_SINGLELINE)
                                    : textSize(measure);
        const int width = static_cast<int>(text.cx) + scale(2);
        if (!m_isValue) return fixed(width, std::max(static_cast<int>(text.cy), line));
        return {{std::min(width, measure.chars(kLeastValue)), line},
                {std::min(width, measure.chars(kUsualValue)), line}};
    }

  private:
    void showContent() override {
        // A caption is text and no markup, and so is a value.
        if (m_isValue) return showWords(toWide(m_label.caption()));
        showWords(wynconfig::takesFocus(*m_labels) ? toWideCaption(m_label.caption())
                                                   : toWideUnmarked(m_label.caption()));
    }
    Label& m_label;
    const Control* m_labels;
    bool m_isValue;
};

class FramePiece : public CaptionedPiece {
  public:
    FramePiece(Frame& frame, Stage& stage, const Standing& standing)
        : CaptionedPiece(frame, stage) {
        make(standing.parent, WC_BUTTONW, BS_GROUPBOX, WS_EX_TRANSPARENT);
        hideOutline(window());
    }
    Room measured(const Measure& measure) const override {
        const bool titled = ::GetWindowTextLengthW(window()) > 0;
        return fixed(titled ? static_cast<int>(textSize(measure).cx) + scale(24) : 0, 0);
    }

  private:
    /// An outline that says nothing would only take room.
    void showContent() override {
        const bool wasTitled = ::GetWindowTextLengthW(window()) > 0;
        CaptionedPiece::showContent();
        const bool titled = ::GetWindowTextLengthW(window()) > 0;
        if (titled == wasTitled) return;
        if (titled)
            showOutline(window());
        else
            hideOutline(window());
    }
};

}  // namespace

std::unique_ptr<Piece> makeCaptionedPiece(CaptionedControl& control, Stage& stage,
                                          const Standing& standing) {
    switch (control.kind()) {
        case ControlKind::Button:
            return std::make_unique<ButtonPiece>(static_cast<Button&>(control), stage, standing);
        case ControlKind::CheckBox:
            return std::make_unique<CheckPiece>(static_cast<CheckBox&>(control), stage, standing);
        case ControlKind::OptionButton:
            return std::make_unique<OptionPiece>(static_cast<OptionButton&>(control), stage,
                                                 standing);
        case ControlKind::Label:
            return std::make_unique<LabelPiece>(static_cast<Label&>(control), stage, standing);
        default:
            return std::make_unique<FramePiece>(static_cast<Frame&>(control), stage, standing);
    }
}

}  // namespace wynconfig::native
