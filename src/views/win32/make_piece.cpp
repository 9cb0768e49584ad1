// Which piece serves which kind of control.
#include "views/win32/box_pieces.h"
#include "views/win32/captioned_pieces.h"
#include "views/win32/classes.h"
#include "views/win32/list_piece.h"
#include "views/win32/piece.h"
#include "views/win32/tab_pieces.h"
#include "wynconfig/error.h"

namespace wynconfig::native {

std::unique_ptr<Piece> makePiece(Control& control, Stage& stage, const Standing& standing) {
    switch (control.kind()) {
        case ControlKind::Edit:
            return std::make_unique<EditPiece>(static_cast<Edit&>(control), stage, standing);
        case ControlKind::ListView:
            return std::make_unique<ListPiece>(static_cast<ListView&>(control), stage, standing);
        case ControlKind::ComboBox:
            return std::make_unique<ComboPiece>(static_cast<ComboBox&>(control), stage, standing);
        case ControlKind::Tabs:
            return std::make_unique<TabsPiece>(static_cast<Tabs&>(control), stage, standing);
        case ControlKind::Container:
            return std::make_unique<PanePiece>(static_cast<Container&>(control), stage, standing,
                                               kPaneClass);
        case ControlKind::OptionButton:
        case ControlKind::CheckBox:
        case ControlKind::Button:
        case ControlKind::Label:
        case ControlKind::Frame:
            return makeCaptionedPiece(static_cast<CaptionedControl&>(control), stage, standing);
        default:
            throw Error(errc::InvalidCall,
                        "A layout names " + std::string(control.name()) + ", which has no face.");
    }
}

}  // namespace wynconfig::native
