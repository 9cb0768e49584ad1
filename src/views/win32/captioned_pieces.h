// Buttons, check boxes, options, labels and frames: what has a caption.
#pragma once

#include <memory>

#include "views/win32/piece.h"

namespace wynconfig::native {

std::unique_ptr<Piece> makeCaptionedPiece(CaptionedControl& control, Stage& stage,
                                          const Standing& standing);

}  // namespace wynconfig::native
