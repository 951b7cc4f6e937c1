#pragma once
#include "control_windows.h"
#include "ui/face.h"
#include "ui/worked_dialog.h"
#include <exception>

namespace ui::win32 {

/// Shows a dialog as a modal window of the system, over the window that is active. A person works it; or the
/// dialog user does, from inside the window's message loop and through its controls.
///
/// A control counts as left when the focus goes to another one of the same dialog, not when it goes to
/// another window.
class Win32Face final : public Face, private WorkedDialog {
public:
  /// Shows a compiled template; `number` names it. Template, events and user (null: a person) must outlive
  /// the face.
  Win32Face(unsigned number, std::span<const std::uint8_t> source, DialogEvents& events, DialogUser* user);

  int run() override;
  void end(int code) override;

  OdString titleText() const override;
  void setTitle(const OdString& title) override;
  OdString text(int id) const override { return m_controls.at(id).text(); }
  void setText(int id, const OdString& text) override;
  bool isEnabled(int id) const override { return !m_controls.at(id).hasStyle(WS_DISABLED); }
  void enable(int id, bool on) override;
  bool isShown(int id) const override { return m_controls.at(id).hasStyle(WS_VISIBLE); }
  void show(int id, bool on) override;
  bool isChecked(int id) const override { return m_controls.at(id).isChecked(); }
  void setChecked(int id, bool on) override { m_controls.check(m_controls.at(id), on); }
  int addItem(int id, const OdString& text) override { return m_controls.listAt(id).addItem(text); }
  void removeItems(int id) override { m_controls.listAt(id).removeItems(); }
  int itemCount(int id) const override { return m_controls.listAt(id).itemCount(); }
  OdString itemText(int id, int index) const override { return m_controls.listAt(id).itemText(index); }
  int selection(int id) const override { return m_controls.listAt(id).selection(); }
  void select(int id, int index) override;
  void setFocus(int id) override;
  int focusedControl() const override { return m_focus; }
  Placement placement() const override;
  void setPlacement(const Placement& placement) override;
  void* window() const override { return m_window; }
  bool isRightControlHeld() const override { return GetAsyncKeyState(VK_RCONTROL) < 0; }
  MessageAnswer messageBox(const MessageQuestion& question) override;
  std::optional<OdString> askFile(const FileRequest& request) override;

private:
  /// Posted to the dialog by itself: the user's turn; the first one is marked.
  static constexpr UINT turnMessage = WM_APP + 1;

  static INT_PTR CALLBACK dialogProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  static LRESULT CALLBACK controlProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam,
                                           UINT_PTR subclass, DWORD_PTR face);

  INT_PTR handle(UINT message, WPARAM wParam, LPARAM lParam);
  void initialise();
  void command(int id, unsigned notice, HWND sender);
  void noticeFrom(const ControlWindow& control, unsigned notice);
  void focusArrived(HWND window);
  void tellLeft(int id);
  void passFocusOn(HWND control);
  void takeTurn(bool isFirst);
  /// Runs what may throw; the system's frames below must not be unwound, so an exception is kept for run and
  /// closes the dialog.
  template <class Action>
  void guarded(Action action);
  void rethrow() const;

  const wchar_t* title() const override;
  int controlCount() const override { return static_cast<int>(m_controls.all().size()); }
  bool controlAt(int index, ControlInfo& info) const override;
  bool control(int id, ControlInfo& info) const override;
  const wchar_t* item(int id, int index) const override;
  int focus() const override { return m_focus; }
  ControlInfo describe(const ControlWindow& control) const;

  void moveTo(int id) override;
  void replaceText(int id, const OdString& text) override;
  void clickOn(int id) override;
  void chooseItem(int id, int item) override;
  void strike(Key key) override;
  int nextTabStop() const override;
  int defaultButton() const override;

  std::span<const std::uint8_t> m_source;
  DialogEvents& m_events;
  DialogUser* m_user;
  res::DialogTemplate m_template;
  ControlWindows m_controls;
  /// Null before it is made; the system destroys it.
  HWND m_window = nullptr;
  int m_focus = 0;
  int m_result = 0;
  /// The dialog is changing a control itself, which brings no notice.
  bool m_silent = false;
  std::exception_ptr m_error;
  /// What was handed out to the user last.
  mutable OdString m_said;
};

} // namespace ui::win32
