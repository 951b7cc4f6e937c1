#include "divide_command.h"
#include "DbBlockTable.h"
#include "DbBlockTableRecord.h"
#include "HostGsManager.h"
#include "divide_curve.h"
#include "frame/input.h"
#include "preview.h"
#include "res/strings.h"
#include <optional>

namespace {

constexpr int kFewestSegments = 2;
constexpr int kMostSegments = 32767;
constexpr int kBlockKeyword = kHostEdFirstKeyword;
constexpr int kYesKeyword = kHostEdFirstKeyword;

/// Asks for the number of segments until the answer is none or lies in the range. Its code; `count` then has
/// the number, or the fewest where none was given.
int askCount(HostEdInput& input, const OdChar* keywords, unsigned complaint, int& count) {
  for (;;) {
    count = kFewestSegments;
    const int code =
        input.GetInteger(count, res::loadString(IDS_ENTER_NUMBER_OF_SEGMENTS), keywords, 0, nullptr);
    if (code != kHostEdValue || (count >= kFewestSegments && count <= kMostSegments)) return code;
    frame::printMessage(input, complaint);
  }
}

/// Asks until there is a block of the name. Null: cancelled.
OdDbObjectId askBlock(const frame::Session& session) {
  constexpr int kFlags = kHostEdNoEmpty | kHostEdNoZero;
  const OdDbBlockTablePtr blocks = session.database().getBlockTableId().safeOpenObject();
  for (;;) {
    OdString name;
    const int code = session.input().GetStringOrKeyword(res::loadString(IDS_ENTER_BLOCK_TO_INSERT), nullptr,
                                                        kFlags, &name, nullptr);
    if (code == kHostEdCancel) return {};
    if (const OdDbObjectId block = blocks->getAt(name); !block.isNull()) return block;
    frame::printMessage(session.input(),
                        OdString().format(res::loadString(IDS_CANNOT_FIND_BLOCK), name.c_str()));
  }
}

/// The block, how it is turned, and the number of segments; nothing when the command is to end.
std::optional<construct::DivideMark> askBlockMark(const frame::Session& session, int& count) {
  HostEdInput& input = session.input();
  const OdDbObjectId block = askBlock(session);
  if (block.isNull()) return std::nullopt;
  const int align = input.GetStringOrKeyword(res::loadString(IDS_ALIGN_BLOCK),
                                             res::loadString(IDS_KEYS_YES_NO), 0, nullptr, nullptr);
  if (align == kHostEdCancel) return std::nullopt;
  // Enter has no default here, other than at the question that offers the block.
  if (askCount(input, nullptr, IDS_INTEGER_REQUIRED, count) != kHostEdValue) return std::nullopt;
  return construct::DivideMark{block, align == kYesKeyword};
}

CMD_RUNSTATUS divide(const frame::Session& session) {
  QkHiliteManager highlight;
  HostEdInput& input = session.input();
  OdDbObjectId object;
  input.SelectEntity(res::loadString(IDS_SELECT_OBJECT_TO_DIVIDE), construct::kOneObjectFlags, object,
                     nullptr);
  if (object.isNull()) return kCmdCancelled;
  highlight.Hilite(object, 3, 10, 70, 0);

  int count = 0;
  const int code = askCount(input, res::loadString(IDS_KEY_BLOCK), IDS_INTEGER_OR_KEYWORD_REQUIRED, count);
  if (code == kHostEdCancel) return kCmdCancelled;
  std::optional<construct::DivideMark> mark = construct::DivideMark{};
  if (code == kBlockKeyword) mark = askBlockMark(session, count);
  return mark ? construct::divideCurve(input, object, count, *mark) : kCmdCancelled;
}

} // namespace

CMD_RUNSTATUS CDivideCmd::Run() {
  return perform([](const frame::Session& session) { return divide(session); });
}
