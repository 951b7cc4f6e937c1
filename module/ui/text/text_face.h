#pragma once
#include "control_tree.h"
#include "ui/face.h"
#include "ui/worked_dialog.h"

namespace ui::text {

/// Shows a dialog without windows: a control tree in memory, worked by the dialog user. Notices come in the
/// order in which real controls send them.
class TextFace final : public Face, private WorkedDialog {
public:
  /// Shows `source`; `number` names it. The events and the user (null: nobody) must outlive the face.
  TextFace(unsigned number, DialogEvents& events, DialogUser* user, const res::DialogTemplate& source);

  int run() override;
  void end(int code) override;

  OdString titleText() const override { return m_title; }
  void setTitle(const OdString& title) override { m_title = title; }
  OdString text(int id) const override;
  void setText(int id, const OdString& text) override;
  bool isEnabled(int id) const override { return m_controls.at(id).enabled; }
  void enable(int id, bool on) override;
  bool isShown(int id) const override { return m_controls.at(id).shown; }
  void show(int id, bool on) override;
  bool isChecked(int id) const override { return m_controls.at(id).checked; }
  void setChecked(int id, bool on) override { m_controls.check(m_controls.at(id), on); }
  int addItem(int id, const OdString& text) override;
  void removeItems(int id) override;
  int itemCount(int id) const override { return static_cast<int>(m_controls.listAt(id).items.size()); }
  OdString itemText(int id, int index) const override;
  int selection(int id) const override { return m_controls.listAt(id).selected; }
  void select(int id, int index) override;
  void setFocus(int id) override;
  int focusedControl() const override { return m_focus; }
  Placement placement() const override { return m_placement; }
  void setPlacement(const Placement& placement) override { m_placement = placement; }
  void* window() const override { return nullptr; }
  bool isRightControlHeld() const override { return false; }
  MessageAnswer messageBox(const MessageQuestion& question) override;
  std::optional<OdString> askFile(const FileRequest& request) override;

private:
  const wchar_t* title() const override { return m_title.c_str(); }
  int controlCount() const override { return static_cast<int>(m_controls.all().size()); }
  bool controlAt(int index, ControlInfo& info) const override;
  bool control(int id, ControlInfo& info) const override;
  const wchar_t* item(int id, int index) const override;
  int focus() const override { return m_focus; }

  void moveTo(int id) override { setFocus(id); }
  void replaceText(int id, const OdString& text) override;
  void clickOn(int id) override;
  void chooseItem(int id, int item) override;
  void strike(Key key) override;
  int nextTabStop() const override { return m_controls.nextTabStop(m_focus); }
  int defaultButton() const override;
  /// A control that can no longer be used passes the focus on.
  void passFocusOn(int id);

  DialogEvents& m_events;
  DialogUser* m_user;
  ControlTree m_controls;
  OdString m_title;
  Placement m_placement;
  int m_focus = 0;
  int m_result = 0;
};

} // namespace ui::text
