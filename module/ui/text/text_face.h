#pragma once
#include "text_form.h"
#include "ui/worked_dialog.h"
#include <deque>

namespace ui::text {

/// Shows a dialog without windows: a control tree in memory, worked by the dialog user. Notices come in the
/// order in which real controls send them.
class TextFace final : public Face, private WorkedDialog, private FocusKeeper {
public:
  /// Shows `source`; `number` names it. The events and the user (null: nobody) must outlive the face.
  TextFace(unsigned number, DialogEvents& events, DialogUser* user, const res::DialogTemplate& source);

  int run() override;
  void end(int code) override;
  FormFace& frame() override { return m_frame; }
  FormFace& addPage(int tabs, const OdString& title, unsigned number, std::span<const std::uint8_t> source,
                    PageEvents& events) override;
  int activePage() const override { return m_activePage; }
  void activatePage(int index) override;

  OdString titleText() const override { return m_title; }
  void setTitle(const OdString& title) override { m_title = title; }
  Placement placement() const override { return m_placement; }
  void setPlacement(const Placement& placement) override;
  void setVisible(bool on) override { m_visible = on; }
  void* window() const override { return nullptr; }
  bool isRightControlHeld() const override { return false; }
  void listen(const OdString&) override {}
  void send(const OdString& name, std::intptr_t first, std::intptr_t second) override;
  void post(const OdString& name, std::intptr_t first, std::intptr_t second) override;
  MessageAnswer messageBox(const MessageQuestion& question) override;
  std::optional<OdString> askFile(const FileRequest& request) override;

private:
  struct OpenPage {
    OdString title;
    PageEvents& events;
    std::unique_ptr<TextForm> form;
  };
  struct Message {
    OdString name;
    std::intptr_t first, second;
  };
  /// A control and the form that it is on.
  struct Place {
    TextForm* form;
    Control* control;
  };

  const wchar_t* title() const override { return m_title.c_str(); }
  int controlCount() const override { return static_cast<int>(reachable(Order::reading).size()); }
  bool controlAt(int index, ControlInfo& info) const override;
  bool control(int id, ControlInfo& info) const override;
  const wchar_t* item(int id, int index) const override;
  int swatch(int id, int index) const override;
  const wchar_t* cell(int id, int row, int column) const override;
  RowLook rowLook(int id, int row) const override;
  TextRange field(int id, int index) const override;
  TextRange selection(int id) const override;
  int focus() const override { return m_focus.id; }

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

  Focus focused() const override { return m_focus; }
  void focusOn(const Focus& target) override;
  void passFocusOn() override;

  /// For the eye, the controls of the open page stand behind its tabs; the Tab key comes to them first.
  enum class Order { reading, tabKey };
  std::vector<Place> reachable(Order order) const;
  /// What the user means by a number: a control of the dialog or of the open page; without control when there
  /// is none.
  Place find(int id) const;
  /// As find, for a number that was found before.
  Place at(int id) const;
  ControlInfo describe(const Control& control) const;
  OpenPage* openPage() const;
  void showPage(int index);
  void deliverPosted();

  DialogEvents& m_events;
  DialogUser* m_user;
  const res::DialogTemplate m_template;
  mutable TextForm m_frame;
  mutable std::vector<OpenPage> m_pages;
  int m_tabs = 0;
  int m_activePage = -1;
  OdString m_title;
  Placement m_placement;
  const Area m_area; // at first
  Focus m_focus;
  std::deque<Message> m_posted;
  bool m_visible = true;
  int m_result = 0;
};

} // namespace ui::text
