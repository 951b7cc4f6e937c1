#include "ProfileFile.h"
#include "Output.h"
#include "sys/file_lock.h"
#include "sys/files.h"
#include "sys/folders.h"
#include <cmath>
#include <cstdlib>
#include <nlohmann/json.hpp>
#include <set>

namespace fs = std::filesystem;
using Json = nlohmann::ordered_json;

namespace host {

namespace {

constexpr char kBlobTag[] = "blob";

/// One warning for each file and session is enough: the cause stays the same.
void warnOnce(const fs::path& path, const std::string& text) {
  static std::set<fs::path> warned;
  if (warned.insert(path).second) printLine("Warning: the profile " + path.string() + " " + text);
}

bool isProfile(const Json& json) {
  if (!json.is_object()) return false;
  for (const auto& section : json)
    if (!section.is_object()) return false;
  return true;
}

/// The sections of the file; an empty object when there is no file, a discarded value when it is damaged.
Json load(const fs::path& path) {
  std::error_code ignored;
  if (!fs::exists(path, ignored)) return Json::object();
  try {
    Json json = Json::parse(sys::readFile(path).bytes, nullptr, false);
    if (isProfile(json)) return json;
  } catch (const sys::FileError&) {
    // Unreadable is as good as damaged: neither has settings to give.
  }
  return Json(Json::value_t::discarded);
}

Json loadForReading(const fs::path& path) {
  Json json = load(path);
  if (!json.is_discarded()) return json;
  warnOnce(path, "cannot be read or is damaged; default settings are used.");
  return Json::object();
}

Json* member(Json& object, const OdString& name) {
  for (auto& [key, value] : object.items())
    if (OdString::fromUtf8(key).iCompare(name) == 0) return &value;
  return nullptr;
}

Json& memberOrNew(Json& object, const OdString& name, Json initial) {
  if (Json* found = member(object, name)) return *found;
  return object[name.toUtf8()] = std::move(initial);
}

std::string toHex(const QkBlob& blob) {
  constexpr char kDigits[] = "0123456789abcdef";
  std::string hex;
  for (std::size_t i = 0; i < blob.size(); ++i) {
    hex += kDigits[blob.data()[i] >> 4];
    hex += kDigits[blob.data()[i] & 15];
  }
  return hex;
}

int hexDigit(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  return -1;
}

std::optional<CQkVariant> fromHex(const std::string& hex) {
  if (hex.size() % 2 != 0) return std::nullopt;
  QkBlob blob(hex.size() / 2);
  for (std::size_t i = 0; i < blob.size(); ++i) {
    const int high = hexDigit(hex[2 * i]);
    const int low = hexDigit(hex[2 * i + 1]);
    if (high < 0 || low < 0) return std::nullopt;
    blob.data()[i] = static_cast<unsigned char>(high * 16 + low);
  }
  return std::make_optional<CQkVariant>(std::move(blob));
}

std::optional<CQkVariant> fromJson(const Json& json) {
  if (json.is_number_integer()) return std::make_optional<CQkVariant>(json.get<int>());
  if (json.is_number_float()) return std::make_optional<CQkVariant>(json.get<double>());
  if (json.is_string()) return std::make_optional<CQkVariant>(OdString::fromUtf8(json.get<std::string>()));
  if (!json.is_object()) return std::nullopt;
  const auto blob = json.find(kBlobTag);
  if (blob == json.end() || !blob->is_string()) return std::nullopt;
  return fromHex(blob->get<std::string>());
}

/// Null for what the file cannot hold: nothing, and numbers that are not finite.
Json toJson(const CQkVariant& value) {
  if (const int* number = value.asInt()) return *number;
  if (const double* number = value.asReal()) return std::isfinite(*number) ? Json(*number) : Json();
  if (const OdString* text = value.asString()) return text->toUtf8();
  Json result;
  if (const QkBlob* blob = value.asBlob()) result[kBlobTag] = toHex(*blob);
  return result;
}

fs::path withSuffix(fs::path path, const char* suffix) { return path += suffix; }

/// The sections of the file. A damaged file is put aside, because writing would destroy what may be saved by
/// hand.
Json loadForWriting(const fs::path& path) {
  Json json = load(path);
  if (!json.is_discarded()) return json;
  const fs::path aside = withSuffix(path, ".damaged");
  fs::rename(path, aside);
  printLine("Warning: the profile " + path.string() + " was damaged; it is kept as " + aside.string() + ".");
  return Json::object();
}

void store(const fs::path& path, const Json& json) {
  sys::ReplacementFile file(path);
  file.write(json.dump(2) + "\n");
  file.flush();
  file.commit();
}

} // namespace

fs::path ProfileFile::userPath() {
  if (fs::path place = sys::environmentPath("HBHOST_PROFILE"); !place.empty()) return place;
  const fs::path folder = sys::configFolder();
  return folder.empty() ? folder : folder / "profile.json";
}

bool ProfileFile::hasSection(const OdString& section) const {
  Json json = loadForReading(m_path);
  return member(json, section) != nullptr;
}

std::optional<CQkVariant> ProfileFile::read(const OdString& section, const OdString& name) const {
  Json json = loadForReading(m_path);
  Json* values = member(json, section);
  const Json* value = values ? member(*values, name) : nullptr;
  return value ? fromJson(*value) : std::nullopt;
}

bool ProfileFile::write(const OdString& section, const OdString& name, const CQkVariant& value) const {
  Json stored = toJson(value);
  if (stored.is_null()) return false;
  try {
    if (m_path.has_parent_path()) fs::create_directories(m_path.parent_path());
    const sys::FileLock lock(withSuffix(m_path, ".lock"));
    Json json = loadForWriting(m_path);
    memberOrNew(memberOrNew(json, section, Json::object()), name, Json()) = std::move(stored);
    store(m_path, json);
    return true;
  } catch (const std::exception& error) {
    warnOnce(m_path, std::string("cannot be written, so that settings are not kept: ") + error.what());
    return false;
  }
}

} // namespace host
