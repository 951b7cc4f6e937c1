#include "RecoverRecord.h"
#include "DbHandle.h"
#include "DxfFormParser.h"
#include "RxObject.h"

namespace {
constexpr int kTitleCode = 2;
constexpr int kHandleCode = 5;
constexpr int kDimStyleHandleCode = 105;
constexpr int kOwnerCode = 330;
} // namespace

bool RecoverRecord::isStrayHeader() const {
  return holdsVariables && !hasMarkers && name != "SECTION" && name != "ENDSEC" &&
         !odrxGetClassByDxfName(name);
}

std::string recoverHexadecimal(OdUInt64 handle) { return OdDbHandle(handle).ascii().toUtf8(); }

std::string RecoverContext::describe(const RecoverRecord& record) {
  constexpr const char* kUsual = "ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789_";
  const bool isUsual =
      !record.name.empty() && record.name.find_first_not_of(kUsual) == std::string_view::npos;
  const std::string text = isUsual ? std::string(record.name) : dxfQuoted(record.name);
  if (record.handle != 0) return text + " " + recoverHexadecimal(record.handle);
  const bool isNamed = record.name == "BLOCK" || record.name == "TABLE" || record.name == "LAYER";
  return isNamed && record.hasTitle() ? text + " " + dxfQuoted(record.title) : text;
}

RecoverRecord* RecoverContext::make(const char* name,
                                    const std::vector<std::pair<int, std::string>>& groups) {
  std::string text = form.group(0, name);
  RecoverRecord& record = m_made.emplace_back();
  record.name = name;
  for (const auto& [code, value] : groups) {
    text += form.group(code, value);
    if (code == kTitleCode) record.title = keep(value);
  }
  record.bytes = keep(std::move(text));
  return &record;
}

void RecoverContext::apply(RecoverRecord& record, const RecoverEdit& edit) {
  const char* at = record.bytes.data();
  const char* end = at + record.bytes.size();
  const RecoverGroup name = form.groupAt(at, end);
  std::string head;
  form.append(head, {at, static_cast<std::size_t>(name.end - at)});
  std::string rest;
  bool hasHandle = !edit.handle;
  bool hasOwner = !edit.owner || *edit.owner == 0;
  bool hasTitle = !edit.title;
  IdentityFinder identity;
  for (at = name.end; at < end;) {
    const RecoverGroup group = form.groupAt(at, end);
    const OdDbGroup::Flags flags = identity.flagsOf({group.code, group.value, group.begin});
    at = group.end;
    if (flags == OdDbGroup::kOwnHandle && edit.handle) {
      rest += form.handleGroup(group.code, *edit.handle);
      hasHandle = true;
    } else if (flags == OdDbGroup::kOwner && edit.owner) {
      rest += form.handleGroup(group.code, *edit.owner);
      hasOwner = true;
    } else if (group.code == kTitleCode && !hasTitle) {
      rest += form.group(kTitleCode, *edit.title);
      hasTitle = true;
    } else {
      rest.append(group.begin, group.end);
    }
  }
  if (!hasHandle)
    head += form.handleGroup(record.name == "DIMSTYLE" ? kDimStyleHandleCode : kHandleCode, *edit.handle);
  if (!hasOwner) head += form.handleGroup(kOwnerCode, *edit.owner);
  // The title of a section is its first group; elsewhere the markers come before it.
  if (!hasTitle && record.name == "SECTION") head += form.group(kTitleCode, *edit.title);
  form.append(head, rest);
  if (!hasTitle && record.name != "SECTION") head += form.group(kTitleCode, *edit.title);
  record.bytes = keep(std::move(head));
  if (edit.handle) record.handle = *edit.handle;
  if (edit.owner) record.owner = *edit.owner;
  if (edit.title) record.title = keep(*edit.title);
}
