#pragma once
#include "sink.h"
#include <cairo.h>
#include <map>
#include <memory>

namespace picture {

/// The fonts of this machine that stand in for those of drawings. Characters that a font lacks come from
/// another one that has them, where there is one.
class Fonts {
public:
  Fonts() = default;
  Fonts(const Fonts&) = delete;
  Fonts& operator=(const Fonts&) = delete;

  /// Characters of one font face; x in heights of the capital letters, y is 0.
  struct Glyphs {
    cairo_font_face_t* face = nullptr; ///< lives as long as the fonts
    double size = 1;                   ///< size of the font at which its capital letters are 1 high
    double stretch = 1;                ///< of the letters' widths
    std::vector<cairo_glyph_t> glyphs;
  };
  /// The text as glyphs; `width` becomes its length.
  std::vector<Glyphs> shape(const std::string& text, const Font& font, double& width);
  double measure(const std::string& text, const Font& font);

private:
  struct FaceDeleter {
    void operator()(cairo_font_face_t* face) const { cairo_font_face_destroy(face); }
    void operator()(cairo_scaled_font_t* font) const { cairo_scaled_font_destroy(font); }
  };
  struct Loaded {
    std::unique_ptr<cairo_font_face_t, FaceDeleter> face;
    std::unique_ptr<cairo_scaled_font_t, FaceDeleter> scaled; ///< for measuring
    double capitals = 1;                                      ///< their height in `scaled`
  };
  static Loaded load(cairo_font_face_t* face);
  Loaded& loaded(const Font& font);
  Loaded& fallback(const Font& font, char32_t character);
  static bool append(const Loaded& font, const std::string& text, double& at,
                     std::vector<cairo_glyph_t>& glyphs);
  std::vector<Glyphs> shapeNaturally(const std::string& text, const Font& font, double& width);

  double usualStretch(const Font& font);

  std::map<Font, Loaded> m_fonts;
  std::map<Font, double> m_stretches;
  std::map<std::pair<Font, char32_t>, Loaded> m_fallbacks; ///< by the first character of a block of 256
};

} // namespace picture
