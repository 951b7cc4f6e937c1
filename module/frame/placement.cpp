#include "placement.h"
#include "IProfile.h"
#include "application.h"
#include <cstring>

namespace frame {
namespace {

constexpr const wchar_t* kValueName = L"Placement";

HostPtr<IProfileKey> openSection(const OdString& section, bool create) {
  const HostPtr<IApp> app = application();
  void* interface = nullptr;
  if (!app || !app->QueryInterface(typeid(IProfile), &interface)) return nullptr;
  const HostPtr<IProfile> profile(static_cast<IProfile*>(interface));
  return HostPtr<IProfileKey>(profile->OpenKey(section, create ? 1 : 0));
}

} // namespace

void savePlacement(const OdString& section, const WindowPlacement& placement) {
  const HostPtr<IProfileKey> key = openSection(section, true);
  if (!key) return;
  QkBlob blob(placement.size());
  std::memcpy(blob.data(), placement.data(), placement.size());
  key->Write(kValueName, CQkVariant(blob));
}

std::optional<WindowPlacement> storedPlacement(const OdString& section, bool rightControlHeld) {
  if (rightControlHeld) return std::nullopt;
  const HostPtr<IProfileKey> key = openSection(section, false);
  CQkVariant value;
  if (!key || !key->Read(kValueName, value)) return std::nullopt;
  const QkBlob* const blob = value.asBlob();
  WindowPlacement placement;
  if (!blob || blob->size() != placement.size()) return std::nullopt;
  std::memcpy(placement.data(), blob->data(), placement.size());
  return placement;
}

} // namespace frame
