#pragma once
// Splits a damaged file into records. Internal to the recovering reader.
#include "DxfFormParser.h"
#include "RecoverRecord.h"

/// Takes every group that is well-formed. Where one is not, it is mended or left out, and reading goes on
/// behind it or, where the groups have got out of step, at the next line (or byte) that can be a code.
class RecoverScanner {
public:
  /// The text and the context must outlive the scanner.
  RecoverScanner(const DxfText& text, RecoverContext& context);
  void scan();

  std::deque<RecoverRecord> records; ///< without the EOF record
  RecoverRecord preamble;            ///< without a name: what stands before the first record
  std::string_view ending;           ///< the EOF record and what follows it; empty without one

private:
  enum class Quality { sound, doubtful, malformed };
  /// A stretch of the record that is left out or replaced.
  struct Cut {
    const char* begin;
    const char* end;
    std::string text;
  };

  Quality qualityOf(const RecoverGroup& group) const;
  int agreement(const char* at) const;
  bool stepBack(const RecoverGroup& group);
  void settle(const RecoverGroup& group);
  void takeMalformed(const RecoverGroup& group);
  bool mend(const RecoverGroup& group);
  void take(const RecoverGroup& group);
  void takeIdentity(const RecoverGroup& group);
  void beginRecord(const RecoverGroup& group, std::string_view name);
  void finishRecord(const char* end);
  void cut(const char* begin, const char* end, std::string text = {});
  void skip(const RecoverGroup& group);
  std::size_t where() const { return m_form.isBinary() ? static_cast<std::size_t>(m_at - m_begin) : m_line; }
  void advance(const char* to, std::size_t lines);
  void tellSkipped();
  std::string describe(const RecoverGroup& group) const;

  RecoverContext& m_context;
  const RecoverForm& m_form;
  const char* const m_begin;
  const char* const m_end;
  const char* m_at;
  std::size_t m_line = 1; ///< of m_at, in ASCII files
  const char* m_recordBegin = nullptr;
  RecoverRecord* m_record = &preamble;
  RecoverGroup m_previous;       ///< the group taken last; none where something was left out since
  std::vector<Cut> m_cuts;       ///< of the current record
  std::size_t m_skippedFrom = 0; ///< where the lines or bytes begin that are being skipped
  std::size_t m_skipped = 0;
  std::string_view m_skippedText;
  bool m_atEnd = false;
  IdentityFinder m_identity;
};
