#pragma once
// What was found wrong in a drawing, as numbered sentences.
#include "OdPlatform.h"
#include <cstddef>
#include <map>
#include <string>
#include <vector>

struct OdDbDxfFinding {
  enum Kind {
    kError,  ///< cannot be put right, or something was lost
    kRepair, ///< was put right, or would be in repair mode; nothing was lost
  };
  int number = 0; ///< from 1, in the order of the list
  Kind kind = kError;
  std::size_t where = 0; ///< the line of the file, or the byte where `isByte`; 0: none
  bool isByte = false;   ///< in files of binary form
  OdUInt64 handle = 0;   ///< of the object; 0: none
  std::string id;        ///< short, stable, for programs: "duplicate-handle"
  std::string sentence;  ///< for people; UTF-8
  std::size_t times = 1; ///< more where it stands for others of the same id
};

/// Collects findings. Of one id, 100 are kept; the others are counted in one closing finding.
class OdDbDxfFindings {
public:
  void add(OdDbDxfFinding::Kind kind, const char* id, std::size_t where, OdUInt64 handle,
           std::string sentence);
  /// Of the findings to come: whether places are bytes.
  void countBytes(bool bytes) { m_countsBytes = bytes; }
  bool empty() const { return m_findings.empty(); }
  /// Adds the closing findings and hands everything over.
  std::vector<OdDbDxfFinding> take();

private:
  struct Count {
    std::size_t met = 0;
    OdDbDxfFinding::Kind worst = OdDbDxfFinding::kRepair; ///< of those that were only counted
  };
  std::vector<OdDbDxfFinding> m_findings;
  std::map<std::string, Count> m_counts;
  bool m_countsBytes = false;
};
