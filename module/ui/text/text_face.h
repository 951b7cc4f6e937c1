#pragma once
#include "control_tree.h"
#include "ui/face.h"
#include <functional>
#include <initializer_list>

namespace ui::text {

/// Shows a dialog without windows: a control tree in memory, worked by the dialog user. Notices come in the
/// order in which real controls send them.
class TextFace final : public Face, private OpenDialog {
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
  void enable(int id, bool on) override { m_controls.at(id).enabled = on; }
  bool isShown(int id) const override { return m_controls.at(id).shown; }
  void show(int id, bool on) override { m_controls.at(id).shown = on; }
  bool isChecked(int id) const override { return m_controls.at(id).checked; }
  void setChecked(int id, bool on) override { m_controls.check(m_controls.at(id), on); }
  int addItem(int id, const OdString& text) override;
  void removeItems(int id) override;
  int itemCount(int id) const override { return static_cast<int>(m_controls.at(id).items.size()); }
  OdString itemText(int id, int index) const override;
  int selection(int id) const override { return m_controls.at(id).selected; }
  void select(int id, int index) override;
  void setFocus(int id) override;
  int focusedControl() const override { return m_focus; }
  Placement placement() const override { return m_placement; }
  void setPlacement(const Placement& placement) override { m_placement = placement; }
  void* window() const override { return nullptr; }
  MessageAnswer messageBox(const MessageQuestion& question) override;
  std::optional<OdString> askFile(const FileRequest& request) override;

private:
  int number() const override { return static_cast<int>(m_number); }
  const wchar_t* title() const override { return m_title.c_str(); }
  bool hasEnded() const override { return m_ended; }
  int controlCount() const override { return static_cast<int>(m_controls.all().size()); }
  bool controlAt(int index, ControlInfo& info) const override;
  bool control(int id, ControlInfo& info) const override;
  const wchar_t* item(int id, int index) const override;
  int focus() const override { return m_focus; }

  Outcome type(int id, const wchar_t* text) override;
  Outcome tick(int id, bool on) override;
  Outcome choose(int id, int item) override;
  Outcome press(int id) override;
  Outcome pickMenuItem(int id, const wchar_t* item) override;
  Outcome moveFocus(int id) override;
  Outcome leave() override;
  Outcome enter() override;
  Outcome escape() override;
  Outcome help() override;

  using Kinds = std::initializer_list<ControlKind>;
  Outcome refusal(int id, Kinds kinds) const;
  /// What a click on a control of one of these kinds does: the focus moves, then the action runs.
  Outcome act(int id, Kinds kinds, const std::function<void(Control&)>& action);
  /// Runs an action of the user, one at a time.
  Outcome perform(const std::function<Outcome()>& action);
  OdString sentence(unsigned number) const;
  bool accepts(const FileRequest& request, const OdString& path);

  unsigned m_number;
  DialogEvents& m_events;
  DialogUser* m_user;
  ControlTree m_controls;
  OdString m_title;
  Placement m_placement;
  int m_focus = 0;
  int m_result = 0;
  bool m_ended = false;
  bool m_acting = false;
  bool m_acted = false;
};

} // namespace ui::text
