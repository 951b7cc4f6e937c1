#pragma once
#include "control_tree.h"
#include "field_line.h"
#include "ui/face.h"
#include <map>

namespace ui::text {

class TextForm;

/// Where the keyboard's focus is; no form for nowhere.
struct Focus {
  TextForm* form = nullptr;
  int id = 0;

  bool operator==(const Focus&) const = default;
};

/// What several forms of one dialog share: the focus, which a form moves.
class FocusKeeper {
public:
  virtual Focus focused() const = 0;
  /// The control that is left is told.
  virtual void focusOn(const Focus& target) = 0;
  /// A control that can no longer be used passes the focus on.
  virtual void passFocusOn() = 0;

protected:
  ~FocusKeeper() = default;
};

/// The controls of a dialog or a page in memory.
class TextForm final : public FormFace {
public:
  TextForm(unsigned number, const res::DialogTemplate& source, FormEvents& events, FocusKeeper& keeper);

  FormEvents& events() { return m_events; }
  ControlTree& controls() { return m_controls; }
  const ControlTree& controls() const { return m_controls; }
  FieldLine& line(int id);
  /// The controls follow the form's size by their anchors.
  void resize(int width, int height);

  OdString text(int id) const override { return m_controls.at(id).shownText(); }
  void setText(int id, const OdString& text) override;
  bool isEnabled(int id) const override { return m_controls.at(id).enabled; }
  void enable(int id, bool on) override;
  bool isShown(int id) const override { return m_controls.at(id).shown; }
  void show(int id, bool on) override;
  bool isChecked(int id) const override { return m_controls.at(id).checked; }
  void setChecked(int id, bool on) override { m_controls.check(m_controls.at(id), on); }
  void setTextLimit(int id, int most) override { edit(id).textLimit = most; }
  bool isModified(int id) const override { return edit(id).modified; }
  void setModified(int id, bool on) override { edit(id).modified = on; }
  void selectText(int id, TextRange range) override;
  Items& items(int id) override;
  ListView& list(int id) override;
  FieldEdit& fieldEdit(int id) override { return line(id); }
  void setTip(int id, const OdString& tip) override { m_controls.at(id).tip = tip; }
  void setIcon(int id, unsigned icon) override;
  Area area(int id) const override { return m_controls.at(id).area; }
  void setArea(int id, const Area& area) override { m_controls.at(id).area = area; }
  void anchor(int id, const Anchor& anchor) override;
  void setFocus(int id) override;
  int focusedControl() const override;

private:
  /// An edit or rich edit.
  Control& edit(int id) { return edit(m_controls, id); }
  const Control& edit(int id) const { return edit(const_cast<ControlTree&>(m_controls), id); }
  Control& edit(ControlTree& controls, int id) const;

  unsigned m_number;
  FormEvents& m_events;
  FocusKeeper& m_keeper;
  ControlTree m_controls;
  std::map<int, FieldLine> m_lines;
  int m_across = 0, m_down = 0; // what the form has grown by
  const int m_width, m_height;  // at first
};

} // namespace ui::text
