#pragma once
// The header section of a file that is being recovered. Internal to the recovering reader.
#include "RecoverRecord.h"
#include "TextCodec.h"

class RecoverHeader {
public:
  /// `records` are those of the whole file; the header is the first section of that name.
  RecoverHeader(std::deque<RecoverRecord>& records, RecoverContext& context);

  void repairVariables();
  /// Makes the release one that is known.
  void repairRelease();
  /// Whether the release stores handles, block records and objects.
  bool storesBlockRecords() const;
  /// Decodes names as the reader is going to.
  std::shared_ptr<OdDbDxfTextCodec> codec() const;
  /// The stored handle seed; 0: none.
  OdUInt64 seed() const;
  void setSeed(OdUInt64 seed);
  /// Appends the variables of another record that the header does not have.
  void merge(const RecoverRecord& other);
  /// The section; null when the file has none and needs none.
  RecoverRecord* record() const { return m_record; }

private:
  RecoverRecord& demand();
  std::string_view value(std::string_view variable) const;
  void set(std::string_view variable, int code, std::string_view value);
  std::string guessedRelease() const;

  std::deque<RecoverRecord>& m_records;
  RecoverContext& m_context;
  RecoverRecord* m_record = nullptr;
};
