#include "SelectionInput.h"
#include "DbDatabase.h"
#include "KeywordList.h"
#include "hostsel/Selection.h"
#include <sstream>
#include <vector>

namespace host {

namespace {

struct Request {
  const OdDbDatabase& database;
  PointFrame frame;
  const OdDbObjectIdArray& previous;
  std::vector<OdString> words; ///< behind the first
};

Selected unreadable() {
  Selected none;
  none.readable = false;
  return none;
}

Selected selection(const Request& request, OdDbObjectIdArray ids) {
  Selected found;
  found.ids = std::move(ids);
  found.at = request.frame.lastPoint;
  return found;
}

Selected oneObject(const Request& request, OdDbObjectId id, const OdString& complaint) {
  Selected found = selection(request, {});
  found.one = true;
  if (id.isNull())
    found.complaint = complaint;
  else
    found.ids.append(id);
  return found;
}

Selected all(const Request& request) {
  return request.words.empty() ? selection(request, selectAll(request.database)) : unreadable();
}

Selected last(const Request& request) {
  if (!request.words.empty()) return unreadable();
  return oneObject(request, lastObject(request.database), L"The current space holds no object.");
}

Selected previous(const Request& request) {
  if (!request.words.empty()) return unreadable();
  OdDbObjectIdArray ids;
  for (const OdDbObjectId& id : request.previous)
    if (standingOf(request.database, id) == Standing::selectable) ids.append(id);
  return selection(request, std::move(ids));
}

Selected handle(const Request& request) {
  if (request.words.size() != 1) return unreadable();
  const OdDbHandle wanted(request.words[0]);
  if (wanted.isNull()) return unreadable();
  const OdDbObjectId id = request.database.getOdDbObjectId(wanted);
  const Standing standing = standingOf(request.database, id);
  const OdString complaint =
      standing == Standing::frozen
          ? L"The object with the handle " + wanted.ascii() + L" is on a frozen layer."
          : L"The current space has no object with the handle " + wanted.ascii() + L".";
  return oneObject(request, standing == Standing::selectable ? id : OdDbObjectId(), complaint);
}

Selected pick(const Request& request) {
  if (request.words.size() != 1) return unreadable();
  const std::optional<OdGePoint3d> point = parsePoint(request.words[0], request.frame);
  if (!point) return unreadable();
  Selected found = oneObject(request, pickAt(request.database, *point),
                             L"There is no object at " + request.words[0] + L".");
  found.at = *point;
  return found;
}

Selected rectangle(const Request& request, bool crossing) {
  if (request.words.size() != 2) return unreadable();
  PointFrame frame = request.frame;
  const std::optional<OdGePoint3d> corner = parsePoint(request.words[0], frame);
  if (!corner) return unreadable();
  frame.lastPoint = *corner;
  const std::optional<OdGePoint3d> opposite = parsePoint(request.words[1], frame);
  if (!opposite) return unreadable();
  return selection(request, selectWindow(request.database, *corner, *opposite, crossing));
}

Selected window(const Request& request) { return rectangle(request, false); }
Selected crossing(const Request& request) { return rectangle(request, true); }

constexpr OdChar kWords[] = L"All Last PRevious Handle Pick Window Crossing";
using Reader = Selected (*)(const Request&);
constexpr Reader kReaders[] = {all, last, previous, handle, pick, window, crossing};

} // namespace

Selected parseSelection(const OdString& text, const OdDbDatabase& database, const PointFrame& frame,
                        const OdDbObjectIdArray& previousIds) {
  Request request{database, frame, previousIds, {}};
  std::wistringstream in(text.str());
  for (std::wstring word; in >> word;) request.words.emplace_back(word);
  if (request.words.empty()) return unreadable();
  const KeywordList::Match match = KeywordList(kWords).find(request.words.front());
  if (match.index < 0) return pick(request);
  request.words.erase(request.words.begin());
  return kReaders[match.index](request);
}

} // namespace host
