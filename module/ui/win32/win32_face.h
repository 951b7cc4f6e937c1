#pragma once
#include "form_window.h"
#include "ui/worked_dialog.h"
#include <exception>
#include <map>

namespace ui::win32 {

/// Shows a dialog as a modal window of the system, over the window that is active. A person works it; or the
/// dialog user does, from inside the window's message loop and through its controls.
///
/// A control counts as left when the focus goes to another one of the same dialog, not when it goes to
/// another window.
class Win32Face final : public Face, private WorkedDialog, private WindowKeeper {
public:
  /// Shows a compiled template; `number` names it. Template, events and user (null: a person) must outlive
  /// the face.
  Win32Face(unsigned number, std::span<const std::uint8_t> source, DialogEvents& events, DialogUser* user);
  ~Win32Face() override;

  int run() override;
  void end(int code) override;
  FormFace& frame() override { return m_frame; }
  FormFace& addPage(int tabs, const OdString& title, unsigned number, std::span<const std::uint8_t> source,
                    PageEvents& events) override;
  int activePage() const override { return m_activePage; }
  void activatePage(int index) override;

  OdString titleText() const override;
  void setTitle(const OdString& title) override;
  Placement placement() const override;
  void setPlacement(const Placement& placement) override;
  void setVisible(bool on) override;
  void* window() const override { return m_frame.window(); }
  bool isRightControlHeld() const override { return GetAsyncKeyState(VK_RCONTROL) < 0; }
  void listen(const OdString& name) override;
  void send(const OdString& name, std::intptr_t first, std::intptr_t second) override;
  void post(const OdString& name, std::intptr_t first, std::intptr_t second) override;
  MessageAnswer messageBox(const MessageQuestion& question) override;
  std::optional<OdString> askFile(const FileRequest& request) override;

private:
  /// Posted to the dialog by itself: the user's turn; the first one is marked.
  static constexpr UINT turnMessage = WM_APP + 1;

  struct OpenPage {
    OdString title;
    PageEvents& events;
    std::unique_ptr<FormWindow> form;
  };
  /// A control and the form that it is on.
  struct Place {
    FormWindow* form = nullptr;
    ControlWindow* control = nullptr;
  };

  static INT_PTR CALLBACK dialogProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  static INT_PTR CALLBACK pageProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

  INT_PTR handle(UINT message, WPARAM wParam, LPARAM lParam);
  void initialise();
  void command(int id, unsigned notice, HWND sender);
  void tellLeft(const Focus& left);
  void takeTurn(bool isFirst);
  void needRichEdits(const res::DialogTemplate& source);
  OpenPage* openPage() const;
  void showPage(int index);
  void placePages();
  void rethrow() const;

  // WindowKeeper
  bool isOver() const override { return hasEnded(); }
  Focus focused() const override { return m_focus; }
  void focusOn(const Focus& target) override;
  void focusArrived(const Focus& target) override;
  void passFocusOn() override;
  void pressed(FormWindow& form, int id) override;
  bool leavePage() override;
  void pageTurned() override;
  void guard(const std::function<void()>& action) override;

  // OpenDialog
  const wchar_t* title() const override;
  int controlCount() const override { return static_cast<int>(places().size()); }
  bool controlAt(int index, ControlInfo& info) const override;
  bool control(int id, ControlInfo& info) const override;
  const wchar_t* item(int id, int index) const override;
  int swatch(int id, int index) const override;
  const wchar_t* cell(int id, int row, int column) const override;
  RowLook rowLook(int id, int row) const override;
  TextRange field(int id, int index) const override;
  TextRange selection(int id) const override;
  int focus() const override { return m_focus.id; }

  // WorkedDialog
  bool isVisible() const override { return m_visible; }
  void moveTo(int id) override;
  void replaceText(int id, const OdString& text) override;
  void clickOn(int id) override;
  void chooseItem(int id, int item) override;
  void selectRange(int id, TextRange range) override;
  void clickTwice(int id) override;
  void turnTo(int id, int page) override;
  Menu menuOf(int id) override;
  void chooseCommand(int id, int command) override;
  void strike(Key key) override;
  int nextTabStop() const override;
  int defaultButton() const override;

  /// The controls for the eye: those of the open page behind its tabs.
  std::vector<Place> places() const;
  /// What the user means by a number: a control of the dialog or of the open page.
  Place find(int id) const;
  Place holding(HWND window) const;
  ControlInfo describe(const ControlWindow& control) const;
  const wchar_t* say(OdString text) const;

  std::span<const std::uint8_t> m_source;
  DialogEvents& m_events;
  DialogUser* m_user;
  res::DialogTemplate m_template;
  /// Of the library whose windows rich edits are, once one was needed.
  HMODULE m_richEdits = nullptr;
  mutable FormWindow m_frame;
  mutable std::vector<OpenPage> m_pages;
  int m_tabs = 0;
  int m_activePage = -1;
  SIZE m_leastSize{};
  std::map<UINT, OdString> m_messages;
  Focus m_focus;
  bool m_visible = true;
  int m_result = 0;
  std::exception_ptr m_error;
  /// What was handed out to the user last.
  mutable OdString m_said;
};

} // namespace ui::win32
