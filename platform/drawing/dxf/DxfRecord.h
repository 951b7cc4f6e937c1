#pragma once
// Drawing files as records: a name (group 0) and the groups up to the next one. Each file form has its own
// source.
#include "DbGroup.h"
#include "OdaDefs.h"

/// Whether files of the release store block records and objects; older ones know blocks by name only.
inline bool dxfStoresBlockRecords(OdDb::DwgVersion version) { return version >= OdDb::vAC12; }

struct DxfRecord {
  std::string_view name;
  std::string_view raw;              ///< the groups behind the name
  const char* place = nullptr;       ///< start of the record, for messages
  OdUInt64 handle = 0;               ///< 0: none
  OdUInt64 owner = 0;                ///< 0: none
  std::string_view title;            ///< the first group 2: name of a section, table, block or table record
  const char* behindTitle = nullptr; ///< what follows that group; null without one
  bool attributesFollow = false;     ///< group 66
  bool inPaperSpace = false;         ///< group 67
};

class DxfRecordSource {
public:
  virtual ~DxfRecordSource() = default;
  /// The next record, with its groups checked to be well-formed; false behind the last. Throws
  /// OdError_FileException. Nothing is read beyond the EOF record.
  virtual bool next(DxfRecord& record) = 0;
  /// The groups before the first record.
  virtual std::string_view preamble() const = 0;
  /// The EOF record and what follows it.
  virtual std::string_view tail() const = 0;
  /// The largest handle from the current record to the end. Costs a pass over the rest of the file.
  virtual OdUInt64 largestHandleAhead() const = 0;
};
