#include "visual_styles.h"
#include "sys/library.h"

namespace ui::win32 {
namespace {

constexpr WORD manifestNumber = 2;

HANDLE createContext() {
  ACTCTXW source{};
  source.cbSize = sizeof source;
  source.dwFlags = ACTCTX_FLAG_HMODULE_VALID | ACTCTX_FLAG_RESOURCE_NAME_VALID;
  source.hModule = static_cast<HMODULE>(sys::libraryHolding(reinterpret_cast<const void*>(&createContext)));
  source.lpResourceName = MAKEINTRESOURCEW(manifestNumber);
  return CreateActCtxW(&source);
}

} // namespace

VisualStyles::VisualStyles() : m_context(createContext()) {
  m_active = m_context != INVALID_HANDLE_VALUE && ActivateActCtx(m_context, &m_cookie);
}

VisualStyles::~VisualStyles() {
  if (m_active) DeactivateActCtx(0, m_cookie);
  if (m_context != INVALID_HANDLE_VALUE) ReleaseActCtx(m_context);
}

} // namespace ui::win32
