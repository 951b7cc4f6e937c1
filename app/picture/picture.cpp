#include "picture.h"
#include "DbBlockTableRecord.h"
#include "DbDictionary.h"
#include "cairo_sink.h"
#include "sheet.h"
#include "sys/files.h"
#include <algorithm>
#include <cairo-pdf.h>
#include <cairo-svg.h>
#include <cmath>

namespace picture {

namespace {

constexpr int kUsualWidth = 1600;  // pixels
constexpr int kUsualHeight = 3200; // at most
constexpr double kPixelsPerInch = 96;
constexpr double kPointsPerInch = 72;
constexpr double kInch = 25.4;

/// What the sheet of drawings from before there were layouts is called.
constexpr const wchar_t* kOldSheet = L"Layout1";

/// A space to draw.
struct Space {
  OdDbObjectId block;
  OdDbLayoutPtr
      layout; ///< null for model space, and for the sheet of drawings from before there were layouts
  bool isModel = true;
};

std::vector<OdDbLayoutPtr> sheetsOf(OdDbDatabase& database) {
  std::vector<OdDbLayoutPtr> sheets;
  const auto layouts = OdDbDictionary::cast(database.getLayoutDictionaryId(false).openObject());
  if (layouts.isNull()) return sheets;
  for (auto entry = layouts->newIterator(); !entry->done(); entry->next()) {
    const OdDbLayoutPtr layout = OdDbLayout::cast(entry->getObject());
    if (!layout.isNull() && !layout->modelType() && !layout->getBlockTableRecordId().isErased())
      sheets.push_back(layout);
  }
  std::stable_sort(sheets.begin(), sheets.end(), [](const OdDbLayoutPtr& a, const OdDbLayoutPtr& b) {
    return a->getTabOrder() < b->getTabOrder();
  });
  return sheets;
}

OdString namesOf(const std::vector<OdDbLayoutPtr>& sheets) {
  OdString names;
  for (const OdDbLayoutPtr& sheet : sheets) names += L", " + sheet->getLayoutName();
  return names;
}

Space findSpace(OdDbDatabase& database, const OdString& name) {
  if (name.isEmpty() || name.iCompare(L"Model") == 0) return {database.getModelSpaceId(), {}, true};
  const std::vector<OdDbLayoutPtr> sheets = sheetsOf(database);
  for (const OdDbLayoutPtr& sheet : sheets)
    if (sheet->getLayoutName().iCompare(name) == 0) return {sheet->getBlockTableRecordId(), sheet, false};
  const OdDbObjectId paper = database.getPaperSpaceId();
  const bool hasOldSheet = sheets.empty() && !paper.isNull();
  if (hasOldSheet && name.iCompare(kOldSheet) == 0) return {paper, {}, false};
  throw OdError(eInvalidInput, L"the drawing has no layout \"" + name + L"\"; it has Model" +
                                   (hasOldSheet ? OdString(L", ") + kOldSheet : namesOf(sheets)) + L".");
}

/// Collects how far a picture reaches.
class ExtentsSink : public Sink {
public:
  void stroke(const Pen& pen, const Path& path) override {
    Box own;
    for (const Point& point : path) own.add(point);
    box.add(own.grown(pen.width / 2));
  }
  void fill(const Color&, const std::vector<Path>& loops, FillRule) override {
    for (const Path& loop : loops) addAll(loop);
  }
  void text(const TextRun& run) override {
    const OdGeVector2d end = run.along * run.width;
    constexpr double kDescent = -0.3;
    addAll({run.origin + run.up * kDescent, run.origin + run.up, run.origin + end + run.up * kDescent,
            run.origin + end + run.up});
  }
  void pushClip(const Path&) override {}
  void popClip() override {}
  Box box;

private:
  void addAll(const Path& path) {
    for (const Point& point : path) box.add(point);
  }
};

void drawSpace(OdDbDatabase& database, const Space& space, const Request& request, Sink& sink,
               const MeasureText& measure, const View& view, Omissions* omissions) {
  Drawer drawer(database, sink, measure);
  drawer.highlight(request.highlighted);
  if (space.isModel)
    drawer.drawSpace(space.block, view, OdGeMatrix3d());
  else
    drawSheet(drawer, sink, space.block, view);
  drawer.drawLoose(request.preview, view, OdGeMatrix3d());
  if (omissions) *omissions = drawer.omissions();
}

/// The part of a space that is shown, and how large.
struct Page {
  Box area;
  int width = 0; ///< pixels
  int height = 0;
  double pixelsPerMillimetre = kPixelsPerInch / kInch;     ///< of paper
  double pointsPerPixel = kPointsPerInch / kPixelsPerInch; ///< in formats that measure in points
};

/// The page around everything that is drawn. Sheets show their whole paper, with lineweights to scale.
Page pageFor(const Space& space, const Box& extents, const Request& request) {
  Page page;
  page.area = extents;
  std::optional<Paper> paper;
  if (!space.layout.isNull()) paper = paperOf(*space.layout);
  const double size = std::max(extents.width(), extents.height());
  constexpr double kMargin = 0.02;
  // A single point needs some room around it.
  if (!paper || !paper->area.touches(extents)) page.area = extents.grown(size > 0 ? size * kMargin : 1);
  if (paper) page.area.add(paper->area);
  const double aspect = page.area.height() / page.area.width();
  page.width = request.width > 0 ? request.width : kUsualWidth;
  constexpr int kFewest = 100;
  page.height =
      request.height > 0
          ? request.height
          : static_cast<int>(std::clamp<double>(std::round(page.width * aspect), kFewest, kUsualHeight));
  const double scale = std::min(page.width / page.area.width(), page.height / page.area.height());
  if (paper) {
    page.pixelsPerMillimetre = scale * paper->unitsPerMillimetre;
    page.pointsPerPixel = kPointsPerInch / kInch / page.pixelsPerMillimetre; // sheets come in their own size
  } else { // lines look as on a screen as wide as the picture
    page.pixelsPerMillimetre *= static_cast<double>(page.width) / kUsualWidth;
  }
  // What is shown is in the middle.
  const Point center = page.area.center();
  const OdGeVector2d half(page.width / scale / 2, page.height / scale / 2);
  page.area = {center - half, center + half};
  return page;
}

struct SurfaceDeleter {
  void operator()(cairo_surface_t* surface) const { cairo_surface_destroy(surface); }
};
using Surface = std::unique_ptr<cairo_surface_t, SurfaceDeleter>;

cairo_status_t append(void* bytes, const unsigned char* data, unsigned int length) {
  static_cast<std::string*>(bytes)->append(reinterpret_cast<const char*>(data), length);
  return CAIRO_STATUS_SUCCESS;
}

/// Draws a page into the bytes of a file.
class Encoder {
public:
  Encoder(Format format, const Page& page)
      : m_format(format), m_page(page), m_unit(format == Format::png ? 1 : page.pointsPerPixel) {
    const double width = page.width * m_unit;
    const double height = page.height * m_unit;
    switch (format) {
    case Format::pdf:
      m_surface.reset(cairo_pdf_surface_create_for_stream(append, &m_bytes, width, height));
      break;
    case Format::svg:
      m_surface.reset(cairo_svg_surface_create_for_stream(append, &m_bytes, width, height));
      break;
    default: m_surface.reset(cairo_image_surface_create(CAIRO_FORMAT_RGB24, page.width, page.height));
    }
  }

  cairo_surface_t* surface() const { return m_surface.get(); }
  Placement placement() const {
    Placement placement;
    placement.scale = m_page.width * m_unit / m_page.area.width();
    placement.low = m_page.area.low;
    placement.width = m_page.width * m_unit;
    placement.height = m_page.height * m_unit;
    placement.millimetre = m_page.pixelsPerMillimetre * m_unit;
    placement.thinnest = m_format == Format::png ? 1 : 0.25;
    return placement;
  }
  const std::string& finish() {
    if (m_format == Format::png) cairo_surface_write_to_png_stream(m_surface.get(), append, &m_bytes);
    cairo_surface_finish(m_surface.get());
    if (cairo_surface_status(m_surface.get()) != CAIRO_STATUS_SUCCESS)
      throw OdError(eOutOfMemory,
                    OdString::fromUtf8(cairo_status_to_string(cairo_surface_status(m_surface.get()))));
    return m_bytes;
  }

private:
  Format m_format;
  const Page& m_page;
  double m_unit;
  std::string m_bytes;
  Surface m_surface;
};

void store(const std::string& file, const std::string& bytes) {
  try {
    sys::ReplacementFile target{std::filesystem::path(file)};
    target.write(bytes);
    target.flush();
    target.commit();
  } catch (const sys::FileError& error) {
    throw OdError_FileException(eFileWriteError, OdString::fromUtf8(error.what()));
  }
}

std::vector<std::string> notesOn(const Omissions& omissions) {
  std::vector<std::string> notes;
  for (const auto& [kind, count] : omissions.kinds)
    notes.push_back("the picture does not show " + std::to_string(count) + " " + kind);
  if (omissions.isCut) notes.emplace_back("the picture is not complete: the drawing holds too much for one");
  return notes;
}

[[noreturn]] void refuseEmpty(OdDbDatabase& database, const Space& space) {
  const OdString others = space.isModel ? namesOf(sheetsOf(database)) : OdString();
  OdString sentence = L"there is nothing to draw: ";
  sentence += space.isModel ? L"model space holds nothing that can be seen."
                            : L"the layout holds nothing that can be seen.";
  if (!others.isEmpty()) sentence += L" Layouts: " + others.mid(2) + L".";
  throw OdError(eInvalidExtents, sentence);
}

} // namespace

std::vector<std::string> write(OdDbDatabase& database, const Request& request) {
  const Format format = formatOf(request.file);
  if (format == Format::unknown)
    throw OdError(eInvalidInput,
                  OdString::fromUtf8(request.file) + L": pictures are .svg, .png or .pdf files.");
  const Space space = findSpace(database, OdString::fromUtf8(request.layout));
  Fonts fonts;
  const MeasureText measure = [&fonts](const std::string& text, const Font& font) {
    return fonts.measure(text, font);
  };
  View view;
  view.isPlotted = !space.isModel;
  ExtentsSink extents;
  drawSpace(database, space, request, extents, measure, view, nullptr);
  if (extents.box.isEmpty()) refuseEmpty(database, space);

  const Page page = pageFor(space, extents.box, request);
  view.frame = page.area;
  view.pixel = page.area.width() / page.width;
  Omissions omissions;
  Encoder encoder(format, page);
  {
    CairoSink sink(encoder.surface(), encoder.placement(), fonts);
    drawSpace(database, space, request, sink, measure, view, &omissions);
    if (sink.error()) throw OdError(eOutOfMemory, OdString::fromUtf8(sink.error()));
  }
  store(request.file, encoder.finish());
  return notesOn(omissions);
}

} // namespace picture
