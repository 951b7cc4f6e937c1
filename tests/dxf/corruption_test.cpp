// Damage of every kind, through every reader: it gives an error that a user can read, or a drawing that can
// be used and written; it never crashes, hangs, or takes memory out of proportion.
#include "DbEntity.h"
#include "DxfReader.h"
#include "DxfRecover.h"
#include "DxfWriter.h"
#include "dxf_text.h"
#include "support/drawings.h"
#include "support/system.h"
#include "sys/files.h"
#include <charconv>
#include <fstream>
#include <functional>
#include <gmock/gmock.h>
#include <random>

namespace {

namespace fs = std::filesystem;
using namespace std::string_literals;

/// What came of reading some bytes.
struct Reading {
  OdDbDatabasePtr drawing; ///< null when there is an error
  std::string error;
};

/// A way to read drawings. The readers share all tests of this file.
struct Reader {
  const char* name;
  Reading (*read)(const std::string& bytes);
};
void PrintTo(const Reader& reader, std::ostream* out) { *out << reader.name; }

Reading readStrictly(const std::string& bytes) {
  OdDbDatabasePtr drawing = OdDbDatabase::createObject();
  try {
    odDbReadBytes(*drawing, bytes, nullptr, L"test.dxf");
    return {drawing, ""};
  } catch (const OdError_FileException& error) {
    return {{}, error.what()};
  }
}

Reading recover(const std::string& bytes) {
  OdDbDatabasePtr drawing = OdDbDatabase::createObject();
  try {
    odDbRecoverBytes(*drawing, bytes, nullptr, L"test.dxf");
    return {drawing, ""};
  } catch (const OdError_FileException& error) {
    return {{}, error.what()};
  }
}

class CorruptionTest : public testing::TestWithParam<Reader> {
protected:
  /// Reads the bytes and uses what comes of them; says whether it is a drawing.
  static bool survive(const std::string& bytes) {
    const Reading reading = GetParam().read(bytes);
    if (reading.drawing.isNull()) {
      EXPECT_TRUE(reading.error.starts_with("test.dxf: ")) << reading.error;
      return false;
    }
    EXPECT_NO_THROW(use(*reading.drawing));
    return true;
  }

private:
  static void use(OdDbDatabase& drawing) {
    odDbVisitAll(drawing.store(), [](OdDbStub* stub) { OdDbObjectId(stub).safeOpenObject(); });
    odDbVisitList(drawing.getModelSpaceId().stub()->children, [](OdDbStub* stub) {
      OdGeExtents3d extents;
      OdDbEntityPtr(OdDbObjectId(stub).safeOpenObject())->getGeomExtents(extents);
    });
    const std::string written = odDbWriteBytes(drawing);
    EXPECT_EQ(test::drawingFromText(written)->store().objectCount(), drawing.store().objectCount());
  }
};

std::vector<fs::path> exampleDrawings() {
  std::vector<fs::path> drawings;
  for (const char* folder : {EXAMPLES, EXAMPLES "/small"})
    for (const auto& entry : fs::directory_iterator(folder))
      if (entry.path().extension() == ".dxf") drawings.push_back(entry.path());
  std::sort(drawings.begin(), drawings.end());
  return drawings;
}

TEST_P(CorruptionTest, CutFilesAreSurvived) {
  constexpr std::size_t kCuts = 200;
  for (const fs::path& path : exampleDrawings()) {
    SCOPED_TRACE(path.filename());
    const std::string text(sys::readFile(path).bytes);
    ASSERT_TRUE(survive(text));
    for (std::size_t i = 0; i < kCuts; ++i) survive(text.substr(0, text.size() * i / kCuts));
  }
}

class Damage {
public:
  explicit Damage(unsigned seed) : m_random(seed) {}

  void inflict(std::string& text) {
    const std::size_t at = any(text.size()), length = std::min<std::size_t>(1 + any(64), text.size() - at);
    switch (any(6)) {
    case 0: text[at] = static_cast<char>(any(256)); break;
    case 1: text[at] = static_cast<char>(text[at] ^ 1 << any(8)); break;
    case 2: text.erase(at, length); break;
    case 3: text.insert(any(text.size()), text.substr(at, length)); break;
    case 4: text.replace(at, length, length, '\0'); break;
    default: replaceLine(text, at); break;
    }
  }

private:
  void replaceLine(std::string& text, std::size_t at) {
    static const char* const kLines[] = {
        "0", "-1", "1e308", "2147483647", "FFFFFFFFFFFFFFFE", "", "EOF", "ENDSEC", "}", "{", "330", "102"};
    const std::size_t begin = text.rfind('\n', at) + 1;
    const std::size_t end = std::min(text.find('\n', begin), text.size());
    text.replace(begin, end - begin, kLines[any(std::size(kLines))]);
  }
  std::size_t any(std::size_t count) { return m_random() % count; }
  std::mt19937 m_random;
};

TEST_P(CorruptionTest, RandomDamageIsSurvived) {
  constexpr unsigned kTimes = 2000, kMostDamages = 3;
  // A large drawing takes as long as many small ones, and breaks in the same ways.
  constexpr std::size_t kCostOfAny = 30000; // in bytes
  std::vector<std::string> drawings;
  std::vector<double> shares;
  for (const fs::path& path : exampleDrawings()) {
    drawings.emplace_back(sys::readFile(path).bytes);
    shares.push_back(1.0 / static_cast<double>(kCostOfAny + drawings.back().size()));
  }
  std::discrete_distribution<std::size_t> choice(shares.begin(), shares.end());
  std::mt19937 random(0); // NOLINT(cert-msc32-c,cert-msc51-cpp): the same drawings every time
  for (unsigned seed = 0; seed < kTimes; ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::string damaged = drawings[choice(random)];
    Damage damage(seed);
    for (unsigned i = 0; i <= seed % kMostDamages; ++i) damage.inflict(damaged);
    survive(damaged);
  }
}

// --- files that nobody would write ---

/// The groups once for each number from 0; "#" stands for the number in hexadecimal, "%" for the next one.
std::string repeated(std::string_view groups, int count) {
  const std::string lines = dxf(groups, {"AC1032", "\n", false});
  std::string all;
  for (int i = 0; i < count; ++i) {
    for (const char c : lines) {
      char number[16];
      if (c == '#' || c == '%')
        all.append(number, std::to_chars(number, number + sizeof number, 0x1000 + i + (c == '%'), 16).ptr);
      else
        all += c;
    }
  }
  return all;
}

std::string in(const char* section, const std::string& records) {
  return dxf("0 SECTION|2 HEADER|9 $ACADVER|1 AC1032|0 ENDSEC|0 SECTION") + "  2\n" + section + "\n" +
         records + dxf("0 ENDSEC|0 EOF");
}

TEST_P(CorruptionTest, FilesOutOfProportionAreSurvived) {
  constexpr int kMany = 20000, kDeep = 100000, kBytes = 1000000;
  const std::string polyline =
      "0 LWPOLYLINE|100 AcDbEntity|8 0|100 AcDbPolyline|70 1|10 0|20 0|10 1|20 1|90 ";
  const std::pair<const char*, std::string> cases[] = {
      {"no bytes", ""},
      {"a picture", "\x89PNG\r\n\x1A\n\0\0\0\rIHDR\0\0\0\x10\0\0\0\x10\x08\x06\0\0\0\x1F\xF3\xFF\x61"s},
      {"zeros", std::string(kBytes, '\0')},
      {"line ends", std::string(kBytes, '\n')},
      {"a line without an end", std::string(kBytes, '0')},
      {"values before any name", in("ENTITIES", dxf("10 1|8 0|330 1F|0 LINE|5 2A|5 2B|10 1|10 2|20 1"))},
      {"records in the wrong sections",
       in("OBJECTS", dxf("0 INSERT|5 2A|0 ATTRIB|5 2B|0 SEQEND|0 BLOCK|0 TABLE"))},
      {"markers in any order",
       in("ENTITIES",
          dxf("0 INSERT|1071 5|100 AcDbBlockReference|100 AcDbEntity|102 }|102 {A|1002 }|2 A|66 1"))},
      {"more vertices than there are", in("ENTITIES", dxf(polyline + "2147483647"))},
      {"fewer vertices than none", in("ENTITIES", dxf(polyline + "-2147483648"))},
      {"rows and columns without end",
       in("ENTITIES",
          dxf("0 INSERT|100 AcDbEntity|8 0|100 AcDbBlockReference|2 *Model_Space|70 32767|71 32767|44 "
              "1e308|45 1e308|41 1e308"))},
      {"a long text", in("ENTITIES", dxf("0 TEXT|100 AcDbText|1 " + std::string(kBytes, '\\')))},
      {"long formats", in("ENTITIES", dxf("0 MTEXT|100 AcDbMText|41 1e-300|1 " + std::string(kDeep, '{')))},
      {"a long group code", in("ENTITIES", std::string(kBytes, '0') + "\nLINE\n")},
      {"a long number", in("ENTITIES", dxf("0 LINE|10 0." + std::string(kBytes, '0') + "1"))},
      {"a long chunk", in("ENTITIES", dxf("0 LINE|310 " + std::string(kBytes, 'A')))},
      {"the last handle", in("ENTITIES", dxf("0 LINE|5 FFFFFFFFFFFFFFFE|0 LINE|0 LINE"))},
      {"many kinds of records", in("ENTITIES", repeated("0 T#", kMany))},
      {"many records of one name",
       in("TABLES", dxf("0 TABLE|2 LAYER") + repeated("0 LAYER|2 x", kMany) + dxf("0 ENDTAB"))},
      {"many references without an end", in("ENTITIES", repeated("0 INSERT|66 1|2 X|0 ATTRIB", kMany))},
      {"groups within groups", in("ENTITIES", dxf("0 LINE") + repeated("102 {A", kDeep))},
      {"lists within lists", in("ENTITIES", dxf("0 LINE|1001 ACAD") + repeated("1002 {", kDeep))},
      {"ends without beginnings", in("ENTITIES", dxf("0 LINE|1001 ACAD") + repeated("102 }|1002 }", kDeep))},
      {"blocks within blocks",
       in("BLOCKS", repeated("0 BLOCK|2 B#|0 INSERT|8 0|100 AcDbBlockReference|2 B%|0 ENDBLK", kDeep) +
                        dxf("0 ENDSEC|0 SECTION|2 ENTITIES|0 INSERT|100 AcDbBlockReference|2 B1000"))},
      {"a block within itself",
       in("BLOCKS", dxf("0 BLOCK|2 A|0 INSERT|2 a|0 ENDBLK|0 ENDSEC|0 SECTION|2 ENTITIES|0 INSERT|2 A"))},
      {"owners of owners",
       in("OBJECTS", repeated("0 DICTIONARY|5 %|330 #", kDeep) + dxf("0 DICTIONARY|5 1000|330 0"))},
      {"objects that own each other", in("OBJECTS", dxf("0 DICTIONARY|5 A|330 B|0 DICTIONARY|5 B|330 A"))},
  };
  for (const auto& [name, text] : cases) {
    SCOPED_TRACE(name);
    [[maybe_unused]] const std::size_t peak = test::peakMemory([&bytes = text] { survive(bytes); });
#ifndef BLOCKATTR_SANITIZED // which keeps what was freed
    constexpr std::size_t kFixed = 16 << 20, kPerByte = 80;
    EXPECT_LT(peak, kFixed + kPerByte * text.size());
#endif
  }
}

INSTANTIATE_TEST_SUITE_P(Readers, CorruptionTest,
                         testing::Values(Reader{"strict", readStrictly}, Reader{"recovering", recover}),
                         [](const auto& reader) { return reader.param.name; });

} // namespace
