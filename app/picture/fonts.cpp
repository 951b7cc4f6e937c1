#include "fonts.h"
#include <algorithm>
#include <cairo-ft.h>
#include <fontconfig/fontconfig.h>
#include <optional>

namespace picture {

namespace {

constexpr double kMeasureSize = 1000; // large, so that nothing is rounded

/// Takes the next character off UTF-8 that is known to be well formed.
char32_t takeCharacter(const std::string& text, std::size_t& at) {
  const auto lead = static_cast<unsigned char>(text[at]);
  const std::size_t length = lead < 0x80 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
  char32_t value = length == 1 ? lead : lead & (0xFFu >> (length + 1));
  for (std::size_t i = 1; i < length && at + i < text.size(); ++i)
    value = value << 6 | (static_cast<unsigned char>(text[at + i]) & 0x3F);
  at += length;
  return value;
}

/// How wide the text is in the font that the drawing names, in heights of capital letters; none where that
/// cannot be told. Letters must keep their places in frames and between other things.
std::optional<double> widthInOriginal(const std::string& text, const Font& font) {
  // Widths of the characters 32 to 126, and the height of capital letters in the same unit.
  static constexpr OdUInt16 kGrotesque[] = {
      278, 278, 355, 556, 556, 889, 667, 191, 333, 333, 389, 584, 278, 333,  278, 278, 556, 556, 556,
      556, 556, 556, 556, 556, 556, 556, 278, 278, 584, 584, 584, 556, 1015, 667, 667, 722, 722, 667,
      611, 778, 722, 278, 500, 667, 556, 833, 722, 778, 667, 778, 722, 667,  611, 722, 667, 944, 667,
      667, 611, 278, 278, 278, 469, 556, 333, 556, 556, 500, 556, 556, 278,  556, 556, 222, 222, 500,
      222, 833, 556, 556, 556, 556, 333, 500, 278, 556, 500, 722, 500, 500,  500, 334, 260, 334, 584};
  constexpr double kGrotesqueHeight = 716;
  static constexpr OdUInt16 kLine[] = {
      16, 10, 16, 21, 20, 24, 26, 10, 14, 14, 16, 26, 10, 26, 10, 22, 20, 20, 20, 20, 20, 20, 20, 20,
      20, 20, 10, 10, 24, 26, 24, 18, 27, 18, 21, 21, 21, 19, 18, 21, 22, 8,  16, 21, 17, 24, 22, 22,
      21, 22, 21, 20, 16, 22, 18, 24, 20, 18, 20, 14, 14, 14, 16, 16, 10, 19, 19, 18, 19, 18, 12, 19,
      19, 8,  10, 17, 8,  30, 19, 19, 19, 19, 13, 17, 12, 19, 16, 22, 17, 16, 17, 14, 8,  14, 24};
  constexpr double kLineHeight = 21;
  constexpr double kBold = 1.06;
  constexpr char kFirst = ' ';
  static_assert(std::size(kGrotesque) == std::size(kLine) && std::size(kLine) == '~' - kFirst + 1);
  if (font.widths == Font::Widths::own) return std::nullopt;
  const bool isLine = font.widths == Font::Widths::line;
  int total = 0;
  for (const char c : text) {
    if (c < kFirst || c > '~') return std::nullopt;
    total += (isLine ? kLine : kGrotesque)[c - kFirst];
  }
  return isLine ? total / kLineHeight : total / kGrotesqueHeight * (font.bold ? kBold : 1);
}

} // namespace

Fonts::Loaded Fonts::load(cairo_font_face_t* face) {
  Loaded font;
  font.face.reset(face);
  cairo_matrix_t size;
  cairo_matrix_t identity;
  cairo_matrix_init_scale(&size, kMeasureSize, kMeasureSize);
  cairo_matrix_init_identity(&identity);
  cairo_font_options_t* options = cairo_font_options_create();
  cairo_font_options_set_hint_style(options, CAIRO_HINT_STYLE_NONE);
  cairo_font_options_set_hint_metrics(options, CAIRO_HINT_METRICS_OFF);
  font.scaled.reset(cairo_scaled_font_create(face, &size, &identity, options));
  cairo_font_options_destroy(options);
  cairo_text_extents_t capital;
  cairo_scaled_font_text_extents(font.scaled.get(), "H", &capital);
  constexpr double kUsual = 0.7; // of the size; for fonts without latin letters
  font.capitals = capital.height > 0 ? capital.height : kUsual * kMeasureSize;
  return font;
}

Fonts::Loaded& Fonts::loaded(const Font& font) {
  const auto known = m_fonts.find(font);
  if (known != m_fonts.end()) return known->second;
  cairo_font_face_t* face = cairo_toy_font_face_create(
      font.family.c_str(), font.italic ? CAIRO_FONT_SLANT_ITALIC : CAIRO_FONT_SLANT_NORMAL,
      font.bold ? CAIRO_FONT_WEIGHT_BOLD : CAIRO_FONT_WEIGHT_NORMAL);
  return m_fonts.emplace(font, load(face)).first->second;
}

/// A font that has the character, if the machine has one.
Fonts::Loaded& Fonts::fallback(const Font& font, char32_t character) {
  constexpr char32_t kBlock = 256; // scripts are chosen by blocks, so that one text does not mix many fonts
  const std::pair key{font, character / kBlock};
  const auto known = m_fallbacks.find(key);
  if (known != m_fallbacks.end()) return known->second;
  FcPattern* pattern = FcPatternCreate();
  FcCharSet* characters = FcCharSetCreate();
  FcCharSetAddChar(characters, character);
  FcPatternAddString(pattern, FC_FAMILY, reinterpret_cast<const FcChar8*>(font.family.c_str()));
  FcPatternAddCharSet(pattern, FC_CHARSET, characters);
  FcPatternAddBool(pattern, FC_SCALABLE, FcTrue);
  FcConfigSubstitute(nullptr, pattern, FcMatchPattern);
  FcDefaultSubstitute(pattern);
  FcResult result = FcResultMatch;
  FcPattern* match = FcFontMatch(nullptr, pattern, &result);
  FcCharSetDestroy(characters);
  FcPatternDestroy(pattern);
  cairo_font_face_t* face =
      match ? cairo_ft_font_face_create_for_pattern(match)
            : cairo_toy_font_face_create("sans", CAIRO_FONT_SLANT_NORMAL, CAIRO_FONT_WEIGHT_NORMAL);
  if (match) FcPatternDestroy(match);
  return m_fallbacks.emplace(key, load(face)).first->second;
}

/// False when the font lacks a character; nothing is appended then.
bool Fonts::append(const Loaded& font, const std::string& text, double& at,
                   std::vector<cairo_glyph_t>& glyphs) {
  cairo_glyph_t* made = nullptr;
  int count = 0;
  const auto status =
      cairo_scaled_font_text_to_glyphs(font.scaled.get(), 0, 0, text.data(), static_cast<int>(text.size()),
                                       &made, &count, nullptr, nullptr, nullptr);
  if (status != CAIRO_STATUS_SUCCESS) return true; // no text then, but no failed picture either
  const bool isComplete =
      std::all_of(made, made + count, [](const cairo_glyph_t& glyph) { return glyph.index != 0; });
  if (isComplete) {
    cairo_text_extents_t extents;
    cairo_scaled_font_glyph_extents(font.scaled.get(), made, count, &extents);
    for (int i = 0; i < count; ++i) glyphs.push_back({made[i].index, at + made[i].x / font.capitals, 0});
    at += extents.x_advance / font.capitals;
  }
  cairo_glyph_free(made);
  return isComplete;
}

std::vector<Fonts::Glyphs> Fonts::shapeNaturally(const std::string& text, const Font& font, double& width) {
  std::vector<Glyphs> runs;
  width = 0;
  const auto start = [&](const Loaded& with) {
    if (runs.empty() || runs.back().face != with.face.get())
      runs.push_back({with.face.get(), kMeasureSize / with.capitals, 1, {}});
    return &runs.back().glyphs;
  };
  const Loaded& main = loaded(font);
  if (append(main, text, width, *start(main))) return runs;
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t first = at;
    const char32_t character = takeCharacter(text, at);
    const std::string one = text.substr(first, at - first);
    if (append(main, one, width, *start(main))) continue;
    const Loaded& other = fallback(font, character);
    if (append(other, one, width, *start(other))) continue;
    // A character that no font has shows as the sign for that.
    start(main)->push_back({0, width, 0});
    width += 1;
  }
  return runs;
}

/// For words whose width in the original cannot be told.
double Fonts::usualStretch(const Font& font) {
  const auto known = m_stretches.find(font);
  if (known != m_stretches.end()) return known->second;
  static const std::string kLetters = "abcdefghijklmnopqrstuvwxyz";
  double natural = 0;
  shapeNaturally(kLetters, font, natural);
  const double stretch = natural > 0 ? widthInOriginal(kLetters, font).value_or(natural) / natural : 1;
  return m_stretches.emplace(font, stretch).first->second;
}

/// Words are as wide as in the font that the drawing names, and so are the blanks between them.
std::vector<Fonts::Glyphs> Fonts::shape(const std::string& text, const Font& font, double& width) {
  if (font.widths == Font::Widths::own) return shapeNaturally(text, font, width);
  std::vector<Glyphs> shaped;
  width = 0;
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t blank = text.find(' ', at);
    const std::string word = text.substr(at, blank == at ? 1 : blank - at); // a blank is a word of its own
    double natural = 0;
    std::vector<Glyphs> runs = shapeNaturally(word, font, natural);
    const std::optional<double> known = widthInOriginal(word, font);
    const double wanted = known ? *known : natural * usualStretch(font);
    for (Glyphs& run : runs) {
      if (natural > 0) run.stretch = wanted / natural;
      for (cairo_glyph_t& glyph : run.glyphs) glyph.x = width + glyph.x * run.stretch;
      shaped.push_back(std::move(run));
    }
    width += wanted;
    at += word.size();
  }
  return shaped;
}

double Fonts::measure(const std::string& text, const Font& font) {
  double width = 0;
  shape(text, font, width);
  return width;
}

} // namespace picture
