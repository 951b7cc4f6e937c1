#pragma once
// Small drawings as text.
#include "DbStoreWalk.h"
#include <string>
#include <string_view>
#include <vector>

/// How a drawing file is laid out.
struct Layout {
  const char* release = "AC1032";
  const char* lineEnd = "\r\n";
  bool padded = true;
};

/// A drawing file from groups written as "code value", separated by bars or line ends; "code" alone is a
/// group with an empty value. "@" stands for a bar.
std::string dxf(std::string_view groups, const Layout& layout = {});

/// A small drawing with everything that files have: comments, all sections, references with attributes, an
/// old polyline, entities of both spaces mixed, records of unknown kinds, and text behind the end.
std::string smallDrawing(const Layout& layout = {});

/// A drawing of these entities, after a header and the two spaces (block records 1F and 1B).
std::string entities(std::string_view groups, const Layout& layout = {});

/// The same drawing in binary form; what stands behind its end is left out.
std::string toBinary(std::string_view ascii, bool shortCodes = false);

/// The record of each object with its groups as text ("INSERT: 5=2A 330=1F ..."), in the order of the
/// drawing.
std::vector<std::string> describe(OdDbDatabase& database);
std::string describe(OdDbStub* stub);
