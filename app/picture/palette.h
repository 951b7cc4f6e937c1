#pragma once
#include "CmColor.h"
#include "sink.h"

namespace picture {

/// The colour of a palette index from 1 to 255 on white paper, where index 7 (the colour that stands out from
/// the background) is black. Any other index counts as 7.
Color paletteColor(int index);
/// A colour of its own. By layer and by block count as index 7.
Color colorOf(const OdCmColor& color);
Color fromRgb(OdUInt32 rgb);

} // namespace picture
