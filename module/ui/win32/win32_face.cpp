#include "win32_face.h"
#include "res/strings.h"
#include "system_boxes.h"
#include "ui/control_kind.h"
#include "ui/questions.h"
#include "visual_styles.h"
#include <algorithm>
#include <commctrl.h>
#include <cstring>
#include <stdexcept>
#include <utility>
#include <uxtheme.h>

namespace ui::win32 {
namespace {

constexpr const wchar_t* richEditLibrary = L"Msftedit.dll";

[[noreturn]] void throwNotMade(const OdString& caption, DWORD error) {
  throw DialogError(
      OdString().format(res::loadString(IDS_WINDOW_NOT_MADE), caption.c_str(), unsigned(error)));
}

} // namespace

Win32Face::Win32Face(unsigned number, std::span<const std::uint8_t> source, DialogEvents& events,
                     DialogUser* user)
    : WorkedDialog(number), m_source(source), m_events(events), m_user(user),
      m_template(res::parseDialog(source, number)), m_frame(number, m_template, events, *this) {
  needRichEdits(m_template);
}

Win32Face::~Win32Face() {
  if (m_richEdits) FreeLibrary(m_richEdits);
}

/// Without the library its windows cannot be made, which is told then.
void Win32Face::needRichEdits(const res::DialogTemplate& source) {
  const bool needed = std::ranges::any_of(source.controls, [&](const res::ControlTemplate& control) {
    return kindOf(static_cast<unsigned>(number()), control) == ControlKind::richEdit;
  });
  if (needed && !m_richEdits) m_richEdits = LoadLibraryW(richEditLibrary);
}

int Win32Face::run() {
  const VisualStyles styles;
  const INITCOMMONCONTROLSEX controls{sizeof controls, ICC_LISTVIEW_CLASSES | ICC_TAB_CLASSES};
  InitCommonControlsEx(&controls);
  const auto* source = reinterpret_cast<const DLGTEMPLATE*>(m_source.data());
  SetLastError(ERROR_SUCCESS);
  DialogBoxIndirectParamW(GetModuleHandleW(nullptr), source, GetActiveWindow(), &dialogProcedure,
                          reinterpret_cast<LPARAM>(this));
  const DWORD error = GetLastError();
  if (m_error) std::rethrow_exception(m_error);
  if (!m_frame.window()) throwNotMade(m_template.caption, error);
  // The program may be ending, which closes its windows without asking them.
  return hasEnded() ? m_result : static_cast<int>(MessageAnswer::cancel);
}

void Win32Face::end(int code) {
  m_result = code;
  if (hasEnded()) return;
  markEnded();
  if (const OpenPage* page = openPage()) page->events.onDeactivate();
  tellLeft(std::exchange(m_focus, Focus{}));
  m_events.onClose();
  for (const OpenPage& page : m_pages) page.events.onClose();
  EndDialog(m_frame.window(), 0);
}

void Win32Face::guard(const std::function<void()>& action) {
  try {
    action();
  } catch (...) {
    if (!m_error) m_error = std::current_exception();
    markEnded();
    m_focus = {};
    EndDialog(m_frame.window(), 0);
  }
}

void Win32Face::rethrow() const {
  if (m_error) std::rethrow_exception(m_error);
}

INT_PTR CALLBACK Win32Face::dialogProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_INITDIALOG) {
    SetWindowLongPtrW(window, DWLP_USER, lParam);
    reinterpret_cast<Win32Face*>(lParam)->m_frame.bind(window);
  }
  auto* const face = reinterpret_cast<Win32Face*>(GetWindowLongPtrW(window, DWLP_USER));
  INT_PTR handled = FALSE;
  if (face) face->guard([&] { handled = face->handle(message, wParam, lParam); });
  return handled;
}

INT_PTR Win32Face::handle(UINT message, WPARAM wParam, LPARAM lParam) {
  INT_PTR result = TRUE;
  switch (message) {
  case WM_INITDIALOG: return initialise(), FALSE;
  case WM_COMMAND: return command(LOWORD(wParam), HIWORD(wParam), reinterpret_cast<HWND>(lParam)), TRUE;
  case WM_HELP:
    if (!hasEnded()) m_events.onHelp();
    return TRUE;
  case WM_GETMINMAXINFO:
    if (m_template.style & WS_THICKFRAME)
      reinterpret_cast<MINMAXINFO*>(lParam)->ptMinTrackSize = {m_leastSize.cx, m_leastSize.cy};
    return TRUE;
  case turnMessage: return takeTurn(wParam != 0), TRUE;
  default: break;
  }
  if (const auto found = m_messages.find(message); found != m_messages.end()) {
    if (!hasEnded()) m_events.onMessage(found->second, static_cast<std::intptr_t>(wParam), lParam);
    return TRUE;
  }
  if (!m_frame.handle(message, wParam, lParam, result)) return FALSE;
  if (message == WM_SIZE) placePages();
  return result;
}

INT_PTR CALLBACK Win32Face::pageProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_INITDIALOG) {
    SetWindowLongPtrW(window, DWLP_USER, lParam);
    reinterpret_cast<FormWindow*>(lParam)->bind(window);
    return FALSE;
  }
  auto* const form = reinterpret_cast<FormWindow*>(GetWindowLongPtrW(window, DWLP_USER));
  if (!form) return FALSE;
  // What a control tells its page, the dialog sorts out for all of them.
  if (message == WM_COMMAND) return SendMessageW(GetParent(window), message, wParam, lParam) == 0;
  INT_PTR result = FALSE;
  bool handled = false;
  form->keeper().guard([&] { handled = form->handle(message, wParam, lParam, result); });
  return handled && result;
}

void Win32Face::initialise() {
  RECT place;
  GetWindowRect(m_frame.window(), &place);
  m_leastSize = {place.right - place.left, place.bottom - place.top};
  m_events.onOpen();
  m_events.onInit();
  if (!hasEnded() && m_activePage < 0 && !m_pages.empty()) showPage(0);
  if (hasEnded()) return;
  if (!m_focus.form) passFocusOn();
  if (m_user) PostMessageW(m_frame.window(), turnMessage, TRUE, 0); // the first turn
}

void Win32Face::command(int id, unsigned notice, HWND sender) {
  if (hasEnded()) return;
  // The keys Enter and Esc have no sender in a dialog without such buttons.
  if (!sender) return reportPress(m_events, id);
  if (const Place place = holding(sender); place.control) place.form->noticeFrom(*place.control, notice);
}

void Win32Face::pressed(FormWindow& form, int id) {
  if (&form == &m_frame) return reportPress(m_events, id);
  form.events().onPress(id);
}

FormFace& Win32Face::addPage(int tabs, const OdString& title, unsigned number,
                             std::span<const std::uint8_t> source, PageEvents& events) {
  const res::DialogTemplate page = res::parseDialog(source, number);
  refuseUnfitPage(page, number, m_template);
  ControlWindow& control = m_frame.controls().at(tabs);
  if (control.kind != ControlKind::tabs || (m_tabs && m_tabs != tabs))
    refuseControl(static_cast<unsigned>(this->number()), static_cast<unsigned>(tabs), "it takes no pages");
  needRichEdits(page);
  WindowKeeper& keeper = *this;
  auto form = std::make_unique<FormWindow>(number, page, events, keeper);
  SetLastError(ERROR_SUCCESS);
  CreateDialogIndirectParamW(GetModuleHandleW(nullptr), reinterpret_cast<const DLGTEMPLATE*>(source.data()),
                             m_frame.window(), &pageProcedure, reinterpret_cast<LPARAM>(form.get()));
  if (!form->window()) throwNotMade(title, GetLastError());
  EnableThemeDialogTexture(form->window(), ETDT_ENABLETAB); // the ground of tabs, not of dialogs
  m_tabs = tabs;
  TCITEMW item{};
  item.mask = TCIF_TEXT;
  item.pszText = const_cast<wchar_t*>(title.c_str());
  SendMessageW(control.window, TCM_INSERTITEMW, m_pages.size(), reinterpret_cast<LPARAM>(&item));
  // Over the tabs, which lie under the whole page, and so before them for the Tab key.
  HWND const before = GetWindow(control.window, GW_HWNDPREV);
  SetWindowPos(form->window(), before ? before : HWND_TOP, 0, 0, 0, 0,
               SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
  m_pages.push_back({title, events, std::move(form)});
  placePages();
  return *m_pages.back().form;
}

/// The pages fill what the tabs leave of their control.
void Win32Face::placePages() {
  if (m_pages.empty()) return;
  const Area tabs = m_frame.area(m_tabs);
  RECT inner{tabs.left, tabs.top, tabs.right, tabs.bottom};
  SendMessageW(m_frame.controls().at(m_tabs).window, TCM_ADJUSTRECT, FALSE, reinterpret_cast<LPARAM>(&inner));
  for (const OpenPage& page : m_pages)
    SetWindowPos(page.form->window(), nullptr, inner.left, inner.top, inner.right - inner.left,
                 inner.bottom - inner.top, SWP_NOZORDER | SWP_NOACTIVATE);
}

Win32Face::OpenPage* Win32Face::openPage() const {
  return m_activePage < 0 ? nullptr : &m_pages[static_cast<std::size_t>(m_activePage)];
}

void Win32Face::activatePage(int index) {
  if (index < 0 || index >= static_cast<int>(m_pages.size())) refuseIndex(index);
  if (index == m_activePage) return;
  if (const OpenPage* page = openPage()) {
    page->events.onDeactivate();
    if (m_focus.form == page->form.get()) focusOn({&m_frame, m_tabs});
  }
  SendMessageW(m_frame.controls().at(m_tabs).window, TCM_SETCURSEL, static_cast<WPARAM>(index), 0);
  showPage(index);
}

void Win32Face::showPage(int index) {
  if (const OpenPage* page = openPage()) ShowWindow(page->form->window(), SW_HIDE);
  m_activePage = index;
  ShowWindow(openPage()->form->window(), SW_SHOW);
  openPage()->events.onActivate();
}

bool Win32Face::leavePage() {
  const OpenPage* page = openPage();
  if (!page) return true;
  page->events.onDeactivate();
  focusOn({&m_frame, m_tabs});
  if (hasEnded()) return false;
  if (m_focus == Focus{&m_frame, m_tabs}) return true;
  page->events.onActivate();
  return false;
}

void Win32Face::pageTurned() {
  showPage(static_cast<int>(SendMessageW(m_frame.controls().at(m_tabs).window, TCM_GETCURSEL, 0, 0)));
  m_events.onChange(m_tabs);
}

void Win32Face::focusArrived(const Focus& target) {
  if (!hasEnded() && target != m_focus) tellLeft(std::exchange(m_focus, target));
}

void Win32Face::tellLeft(const Focus& left) {
  const ControlWindow* control = left.form ? left.form->controls().find(left.id) : nullptr;
  if (control && tellsLeave(control->kind)) left.form->events().onLeave(left.id);
}

/// To a control that has it already, the focus would come anew, and select the whole of its text.
void Win32Face::focusOn(const Focus& target) {
  if (target.form && target != m_focus && !hasEnded())
    SendMessageW(m_frame.window(), WM_NEXTDLGCTL,
                 reinterpret_cast<WPARAM>(target.form->controls().at(target.id).window), TRUE);
  rethrow();
}

void Win32Face::passFocusOn() {
  if (const int next = nextTabStop()) focusOn({find(next).form, next});
}

OdString Win32Face::titleText() const {
  return m_frame.window() ? windowText(m_frame.window()) : m_template.caption;
}

void Win32Face::setTitle(const OdString& title) { SetWindowTextW(m_frame.window(), title.c_str()); }

Placement Win32Face::placement() const {
  static_assert(sizeof(WINDOWPLACEMENT) == sizeof(Placement));
  WINDOWPLACEMENT native{};
  native.length = sizeof native;
  GetWindowPlacement(m_frame.window(), &native);
  Placement placement;
  std::memcpy(placement.data(), &native, sizeof native);
  return placement;
}

void Win32Face::setPlacement(const Placement& placement) {
  WINDOWPLACEMENT native{};
  std::memcpy(&native, placement.data(), sizeof native);
  SetWindowPlacement(m_frame.window(), &native);
}

void Win32Face::setVisible(bool on) {
  m_visible = on;
  ShowWindow(m_frame.window(), on ? SW_RESTORE : SW_HIDE);
}

void Win32Face::listen(const OdString& name) { m_messages[RegisterWindowMessageW(name.c_str())] = name; }

void Win32Face::send(const OdString& name, std::intptr_t first, std::intptr_t second) {
  SendMessageW(m_frame.window(), RegisterWindowMessageW(name.c_str()), static_cast<WPARAM>(first), second);
  rethrow();
}

void Win32Face::post(const OdString& name, std::intptr_t first, std::intptr_t second) {
  PostMessageW(m_frame.window(), RegisterWindowMessageW(name.c_str()), static_cast<WPARAM>(first), second);
}

MessageAnswer Win32Face::messageBox(const MessageQuestion& question) {
  return showMessage(m_frame.window(), m_user, titleText(), question);
}

std::optional<OdString> Win32Face::askFile(const FileRequest& request) {
  return showFileDialog(m_frame.window(), m_user, titleText(), request);
}

} // namespace ui::win32
