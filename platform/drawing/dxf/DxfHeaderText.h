#pragma once
// The header section of a file as it was read, variable by variable, so that those nobody changed keep their
// bytes.
#include "DxfForm.h"
#include <unordered_map>

class DxfHeaderText {
public:
  /// `asRead` is the contents of the section, a slice of the parser's text, or empty; without
  /// a parser there is nothing.
  DxfHeaderText(const DxfParser* parser, const OdDbTextCodec& codec, std::string_view asRead);
  /// Whether these are exactly the variables of the section.
  bool holds(const std::vector<OdDbHeaderVariable>& variables) const;
  /// The bytes of the variable, with its name; empty when the section has it not, or not like this.
  std::string_view slice(const OdDbHeaderVariable& variable) const;

private:
  struct Variable {
    std::string_view name;
    const char* begin;
    std::string_view bytes;
    OdDbGroupListPtr groups;
  };
  std::vector<Variable> m_variables;
  std::unordered_multimap<std::string_view, std::size_t> m_byName; ///< indexes of the variables
};

/// Whether two groups are the same: code and value, texts as they decode.
bool dxfSameGroup(const OdDbGroupList& a, const OdDbGroup& inA, const OdDbGroupList& b, const OdDbGroup& inB);
