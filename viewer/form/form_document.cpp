#include "viewer/form/form_document.h"

#include <algorithm>

namespace inin::viewer {

bool TextCommand::isField() const
{
    return std::ranges::any_of(pieces, &TextPiece::isField);
}

} // namespace inin::viewer
