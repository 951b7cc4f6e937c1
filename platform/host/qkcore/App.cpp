#include "IProfile.h"
#include "ProfileFile.h"
#include "QkCore.h"
#include "common/Unknown.h"
#include <string_view>

namespace host {

namespace {

class ProfileKey final : public Unknown<ProfileKey, IProfileKey> {
public:
  ProfileKey(ProfileFile file, OdString section) : m_file(std::move(file)), m_section(std::move(section)) {}
  bool Read(const wchar_t* name, CQkVariant& value) override {
    std::optional<CQkVariant> found = m_file.read(m_section, name);
    if (!found) return false;
    value = *std::move(found);
    return true;
  }
  bool Write(const wchar_t* name, const CQkVariant& value) override {
    return m_file.write(m_section, name, value);
  }

private:
  ProfileFile m_file;
  OdString m_section;
};

class Profile final : public Unknown<Profile, IProfile> {
public:
  IProfileKey* OpenKey(const wchar_t* path, int create) override {
    if (!create && !m_file.hasSection(path)) return nullptr;
    return new ProfileKey(m_file, path);
  }

private:
  ProfileFile m_file{ProfileFile::userPath()};
};

class App final : public Unknown<App, IApp> {
public:
  bool QueryInterface(const std::type_info& type, void** out) override {
    if (type != typeid(IProfile)) return Unknown::QueryInterface(type, out);
    if (out) *out = static_cast<IProfile*>(new Profile);
    return true;
  }
};

} // namespace

} // namespace host

extern "C" bool CreateObjectC(const char* className, int, const std::type_info& type, void** out) {
  if (!out) return false;
  *out = nullptr;
  if (!className || std::string_view(className) != kAppClassName || type != typeid(IApp)) return false;
  *out = static_cast<IApp*>(new host::App);
  return true;
}
