#pragma once
#include "DbDatabase.h"
#include "HostEdInput.h"
#include "Input.h"
#include "KeywordList.h"
#include "PointParser.h"
#include <functional>

namespace host {

/// The editor of one drawing: asks by prompts on the session's console.
class Editor final : public HostEdInput {
public:
  /// `input` must outlive the editor.
  Editor(Input& input, OdDbDatabasePtr database) : m_input(input), m_database(std::move(database)) {}
  Editor(const Editor&) = delete;
  Editor& operator=(const Editor&) = delete;

  int GetPoint(const OdGePoint3d* base, OdGePoint3d& point, const OdChar* prompt, const OdChar* keywords,
               int flags, void* reserved, HostEdInputTracker* tracker) override;
  int GetStringOrKeyword(const OdChar* prompt, const OdChar* keywords, int flags, OdString* out,
                         void* reserved) override;
  void Print(const OdChar* format, ...) override;
  bool GetString(OdString& out) override;
  int GetDistance(const OdGePoint3d* base, double& distance, const OdChar* prompt, const OdChar* keywords,
                  int flags, void* reserved1, void* reserved2) override;
  int GetAngle(const OdGePoint3d* base, double& angle, const OdChar* prompt, const OdChar* keywords,
               int flags, void* reserved1, void* reserved2) override;
  int GetInteger(int& value, const OdChar* prompt, const OdChar* keywords, int flags,
                 void* reserved) override;
  int SelectEntity(const OdChar* prompt, int flags, OdDbObjectId& id, OdGePoint3d* pickPoint) override;
  int SelectEntities(const OdChar* prompt, int flags, void* reserved1, void* reserved2,
                     OdDbObjectIdArray& ids) override;
  void LastPoint(OdGePoint3d& point) override { point = m_lastPoint; }
  void Preview(int mode, OdDbEntity* entity) override;

private:
  struct Question {
    OdString prompt;
    KeywordList keywords;
    int flags = 0;
    OdString expected; ///< completes the sentence "... is not ..."
    bool text = false; ///< any line is an answer, blanks count, keywords have to be typed in full
  };
  enum class Verdict {
    accepted,
    refused,   ///< the editor says what is expected and asks again
    again,     ///< whatever there was to say has been said; asked again
    cancelled, ///< a question inside the question was cancelled
  };
  using Judge = std::function<Verdict(const OdString& answer)>;
  struct Span {
    OdGePoint3d from, to;
  };

  static Question question(const OdChar* prompt, const OdChar* keywords, int flags, OdString expected);
  /// Asks until there is an answer code to give back.
  int ask(const Question& question, const Judge& judge);
  /// Judges a line that is neither Esc nor Enter; an answer code, or nothing to ask again.
  std::optional<int> answerCode(const Question& question, const OdString& line, const Judge& judge);
  /// What the question wants, for messages; `joint` stands before the keywords.
  static OdString expectation(const Question& question, const OdChar* joint);
  void refuse(const Question& question, const OdString& line) const;

  PointFrame frame() const { return PointFrame::of(*m_database, m_lastPoint); }
  /// Where a line of the form "move x,y" moves the cursor; nothing for other lines.
  std::optional<OdGePoint3d> readMove(const OdString& line) const;
  /// Tells what the preview shows.
  void tellPreview(const OdGePoint3d& cursor) const;
  Verdict readSpan(const OdString& line, const OdGePoint3d* base, Span& span);
  double directionOf(const Span& span) const;
  void tellFound(unsigned int found, unsigned int total) const;

  Input& m_input;
  OdDbDatabasePtr m_database;
  OdGePoint3d m_lastPoint;
  OdDbObjectIdArray m_previous;
};

} // namespace host
