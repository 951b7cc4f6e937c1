#pragma once
#include "control_windows.h"
#include "ui/face.h"
#include <commctrl.h>
#include <functional>

namespace ui::win32 {

class FormWindow;

/// Where the keyboard's focus is; no form for nowhere.
struct Focus {
  FormWindow* form = nullptr;
  int id = 0;

  bool operator==(const Focus&) const = default;
};

/// What the windows of a dialog and of its pages share.
class WindowKeeper {
public:
  virtual bool isOver() const = 0;
  virtual Focus focused() const = 0;
  /// Moves the focus; nothing when the dialog has ended.
  virtual void focusOn(const Focus& target) = 0;
  /// The focus has come to a control.
  virtual void focusArrived(const Focus& target) = 0;
  /// The control that has the focus can no longer be used.
  virtual void passFocusOn() = 0;
  virtual void pressed(FormWindow& form, int id) = 0;
  /// The user clicks on a tab: false keeps the page that is open.
  virtual bool leavePage() = 0;
  virtual void pageTurned() = 0;
  /// Runs what may throw; the system's frames below must not be unwound, so an exception is kept, and closes
  /// the dialog.
  virtual void guard(const std::function<void()>& action) = 0;

protected:
  ~WindowKeeper() = default;
};

/// The window of a dialog or page with its controls: what the controller does to them, and what they tell.
class FormWindow final : public FormFace {
public:
  FormWindow(unsigned number, const res::DialogTemplate& source, FormEvents& events, WindowKeeper& keeper);
  ~FormWindow() override;
  FormWindow(const FormWindow&) = delete;
  FormWindow& operator=(const FormWindow&) = delete;

  /// The window has been made, with its controls.
  void bind(HWND window);
  /// A message to the window, which may be a notice of a control; false when it is none.
  bool handle(UINT message, WPARAM wParam, LPARAM lParam, INT_PTR& result);
  /// A control tells something by WM_COMMAND.
  void noticeFrom(ControlWindow& control, unsigned notice);
  /// A list view's selection, as soon as it is settled.
  void tellSelection(ControlWindow& list);

  /// Null before it is made; the system destroys it.
  HWND window() const { return m_window; }
  FormEvents& events() const { return m_events; }
  WindowKeeper& keeper() const { return m_keeper; }
  ControlWindows& controls() { return m_controls; }
  /// The controls follow the window's size by their anchors.
  void resize(int width, int height);

  OdString text(int id) const override { return m_controls.at(id).text(); }
  void setText(int id, const OdString& text) override;
  bool isEnabled(int id) const override { return !m_controls.at(id).hasStyle(WS_DISABLED); }
  void enable(int id, bool on) override;
  bool isShown(int id) const override { return m_controls.at(id).hasStyle(WS_VISIBLE); }
  void show(int id, bool on) override;
  bool isChecked(int id) const override { return m_controls.at(id).isChecked(); }
  void setChecked(int id, bool on) override { m_controls.check(m_controls.at(id), on); }
  void setTextLimit(int id, int most) override;
  bool isModified(int id) const override;
  void setModified(int id, bool on) override;
  void selectText(int id, TextRange range) override;
  Items& items(int id) override;
  ListView& list(int id) override;
  FieldEdit& fieldEdit(int id) override;
  void setTip(int id, const OdString& tip) override;
  void setIcon(int id, unsigned icon) override;
  Area area(int id) const override;
  void setArea(int id, const Area& area) override;
  void anchor(int id, const Anchor& anchor) override;
  void setFocus(int id) override;
  int focusedControl() const override;

private:
  /// Posted to the window by itself: a list view's selection has changed.
  static constexpr UINT selectionMessage = WM_APP + 2;

  static LRESULT CALLBACK controlProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam,
                                           UINT_PTR subclass, DWORD_PTR self);
  /// A message to a control, before its own window has it; true when the result is settled.
  bool intercept(ControlWindow& control, UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result);
  bool interceptFields(ControlWindow& control, UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result);
  bool mayTurn(const ControlWindow& tabs, POINT at);
  INT_PTR notify(const NMHDR& notice);
  LRESULT drawRow(const NMLVCUSTOMDRAW& request, int id);
  bool showMenu(ControlWindow& control, POINT at);
  void passOn(const ControlWindow& control);
  ControlWindow& edit(int id) const;

  unsigned m_number;
  FormEvents& m_events;
  WindowKeeper& m_keeper;
  mutable ControlWindows m_controls;
  HWND m_window = nullptr;
  HWND m_tips = nullptr;
  HFONT m_boldFont = nullptr;
  SIZE m_size{}; // at first
  int m_across = 0, m_down = 0;
  std::vector<Anchor> m_anchors; // of the controls, in their order
  /// A click on a tab was allowed and is about to turn the page.
  bool m_pageLeft = false;
  /// The dialog is changing a control itself, which brings no notice.
  bool m_silent = false;
};

} // namespace ui::win32
