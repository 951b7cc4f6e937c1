#pragma once
#include "DbAttribute.h"
#include "DbAttributeDefinition.h"
#include "DbMText.h"
#include "brush.h"
#include "mtext_format.h"

namespace picture {

/// A text of one line with other contents than its own where that is wanted.
void drawText(const OdDbText& text, const OdString& contents, const Brush& brush);
void drawAttribute(const OdDbAttribute& attribute, const Brush& brush);
/// By itself a definition shows its tag, where it is constant its value.
void drawDefinition(const OdDbAttributeDefinition& definition, const Brush& brush);
/// A text of several lines, wrapped, aligned and spaced as it says.
void drawMText(const OdDbMText& text, const Brush& brush);
/// The font that stands in for the one of a text style.
Font fontOf(OdDbObjectId style);
/// The same for the name of a font, and for that of a font file, whose extension may be missing.
Font fontNamed(const OdString& name);
Font fontOfFile(const OdString& file);

} // namespace picture
