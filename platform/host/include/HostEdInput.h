#pragma once
#include "DbObjectId.h"
#include "OdString.h"

class HostEdInputTracker;
class OdDbEntity;
class OdGePoint3d;

/// What a request for input was answered with. Keyword k, counting from 1, answers k + 1.
enum HostEdAnswer : int {
  kHostEdCancel = -2,      ///< Esc
  kHostEdValue = -1,       ///< a value was given
  kHostEdEmpty = 1,        ///< Enter: the default applies
  kHostEdFirstKeyword = 2, ///< the first keyword of the list
};

/// Input flags.
enum HostEdInputFlags : int {
  kHostEdNoEmpty = 1,    ///< Enter alone is refused
  kHostEdNoZero = 2,     ///< the number 0 is refused
  kHostEdNoNegative = 4, ///< a negative number is refused
};

/// The host's editor: prompts, input and messages on the command line.
///
/// Keyword lists are words separated by single spaces. A second, language-independent list may follow behind
/// the word "_", in the same order. The user may shorten a keyword as long as it stays unique, in any case,
/// and calls a language-independent one with a leading underscore. A "%s" in square brackets in a prompt is
/// filled with the keywords, separated by slashes.
///
/// Prompts and keyword lists may be null. All points are in world coordinates, all angles in radians. An
/// answer that does not fit is told to the user and asked for again; it never reaches the caller.
class HostEdInput {
public:
  /// Slot 0. A point. `base`, when given, is the other end of the rubber band and of distances. `tracker`,
  /// when given, follows the cursor until the answer comes; it stays the caller's.
  virtual int GetPoint(const OdGePoint3d* base, OdGePoint3d& point, const OdChar* prompt,
                       const OdChar* keywords, int flags, void* reserved, HostEdInputTracker* tracker) = 0;
  virtual void Reserved1() {}
  /// Slot 2. A line of text or a keyword; with a null `out` a keyword only. Where text is allowed, keywords
  /// have to be typed in full.
  virtual int GetStringOrKeyword(const OdChar* prompt, const OdChar* keywords, int flags, OdString* out,
                                 void* reserved) = 0;
  virtual void Reserved3() {}
  /// Slot 4. Prints a message. The format is that of OdString::format.
  virtual void Print(const OdChar* format, ...) = 0;
  virtual void Reserved5() {}
  /// Slot 6. A line of text without a prompt of the caller's own, possibly empty. False: cancelled.
  virtual bool GetString(OdString& out) = 0;
  /// Slot 7. A distance in drawing units: a number, or points that it is measured between. `distance` holds
  /// the default on entry and is left alone unless a value was given.
  virtual int GetDistance(const OdGePoint3d* base, double& distance, const OdChar* prompt,
                          const OdChar* keywords, int flags, void* reserved1, void* reserved2) = 0;
  /// Slot 8. An angle: a number in the drawing's angle units counted from its base angle in its direction, or
  /// points. The result is measured counterclockwise from the X axis of the current coordinate system.
  virtual int GetAngle(const OdGePoint3d* base, double& angle, const OdChar* prompt, const OdChar* keywords,
                       int flags, void* reserved1, void* reserved2) = 0;
  /// Slot 9. An integer; `value` holds the default on entry.
  virtual int GetInteger(int& value, const OdChar* prompt, const OdChar* keywords, int flags,
                         void* reserved) = 0;
  /// Slot 10. One object of the current space, and where it was picked (`pickPoint` may be null). Answers
  /// kHostEdEmpty, with the null id, when the user picked nothing.
  virtual int SelectEntity(const OdChar* prompt, int flags, OdDbObjectId& id, OdGePoint3d* pickPoint) = 0;
  /// Slot 11. Any number of objects of the current space, each once, in the order of their selection. Answers
  /// kHostEdEmpty when the user ended without choosing any.
  virtual int SelectEntities(const OdChar* prompt, int flags, void* reserved1, void* reserved2,
                             OdDbObjectIdArray& ids) = 0;
  /// Slot 12. The point that was entered last.
  virtual void LastPoint(OdGePoint3d& point) = 0;
  virtual void Reserved13() {}
  virtual void Reserved14() {}
  virtual void Reserved15() {}
  virtual void Reserved16() {}
  virtual void Reserved17() {}
  /// Slot 18. Names the entity that trackers are going to draw.
  virtual void Preview(int mode, OdDbEntity* entity) = 0;

protected:
  ~HostEdInput() = default;
};
