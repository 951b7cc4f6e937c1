#pragma once
#include "OdString.h"
#include "sink.h"
#include <optional>

namespace picture {

/// How a piece of text looks.
struct TextFormat {
  Font font;
  std::optional<Color> color; ///< none: the entity's
  double height = 1;          ///< of capital letters, in drawing units
  double widthFactor = 1;
  double oblique = 0; ///< radians
  bool underlined = false;
  bool overlined = false;
  bool struck = false;
  bool isSymbols = false; ///< letters stand for the signs of tolerances
};

/// A piece of text of one format.
struct TextSpan {
  enum class Kind {
    text,
    stack,     ///< `text` above `below`
    tab,       ///< a blank as wide as a tabulator makes it
    paragraph, ///< the end of a paragraph
    column,    ///< the end of a column
  };
  enum class Line { none, horizontal, slanted }; ///< between the parts of a stack
  enum class Align { inherited, left, center, right };
  Kind kind = Kind::text;
  OdString text;
  OdString below;
  Line line = Line::none;
  Align align = Align::inherited; ///< of the paragraph that the span is in
  TextFormat format;
};

/// Decodes the contents of a text of several lines.
std::vector<TextSpan> decodeMText(const OdString& contents, const TextFormat& initial);
/// Decodes a text of one line, in which %% begins a code: %%d degrees, %%p plus-minus, %%c diameter, %%u and
/// %%o lines below and above, %%k through, %%nnn a character.
std::vector<TextSpan> decodeLine(const OdString& contents, const TextFormat& initial);

} // namespace picture
