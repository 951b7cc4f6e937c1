#pragma once
#include "area.h"
#include "field_edit.h"
#include "items.h"
#include "list_view.h"
#include "menu.h"
#include <optional>

namespace ui {

class Face;
class FormFace;

/// What a face tells a dialog or a page of its controls. Notices come while the user acts; changes that the
/// dialog makes itself (setText, setChecked, select...) bring none.
class FormEvents {
public:
  /// The controls exist with their texts from the template: set them from the data.
  virtual void onInit() {}
  /// A button was pressed, or a check box or radio button ticked by the user (its new state is set). A radio
  /// button that is checked already is not ticked again by a click.
  virtual void onPress(int /*id*/) {}
  /// The text of an edit, the choice in a combo box or list, the selected row of a list view, or the page of
  /// a tab control was changed by the user.
  virtual void onChange(int /*id*/) {}
  /// An edit, combo box, list or list view lost the focus: before the press that takes it, and when the
  /// dialog ends.
  virtual void onLeave(int /*id*/) {}
  /// A row of a list view, or the text of a rich edit, was clicked twice; the first click has selected it.
  virtual void onDoubleClick(int /*id*/) {}
  /// The user asks for the context menu of a control.
  virtual Menu contextMenu(int /*id*/) { return {}; }
  /// The user chose from that menu.
  virtual void onMenu(int /*id*/, int /*command*/) {}
  /// How a row of a list view is drawn.
  virtual RowLook rowLook(int /*id*/, int /*row*/) { return {}; }
  /// The dialog has ended; what the controls hold can be read for the last time.
  virtual void onClose() {}

protected:
  ~FormEvents() = default;
};

/// What a file question offers and demands; as in FileQuestion.
struct FileRequest {
  bool save = false;
  OdString filter = {};
  OdString initialPath = {};
  OdString defaultName = {};
  bool fileMustExist = false;
  bool pathMustExist = false;
  bool overwritePrompt = false;
};

/// The controls of one dialog or page, by their numbers. Everything works only while it is shown; otherwise,
/// for a number that the template does not have, and for a control of the wrong kind, std::logic_error is
/// thrown.
class Form {
public:
  Form(const Form&) = delete;
  Form& operator=(const Form&) = delete;

protected:
  /// `number`: the template, for messages.
  explicit Form(unsigned number) : m_number(number) {}
  ~Form() = default;

  unsigned number() const { return m_number; }

  /// Of a combo box or list the chosen item; of a rich edit its text without regard to fields.
  OdString text(int id) const;
  void setText(int id, const OdString& text);
  bool isEnabled(int id) const;
  void enable(int id, bool on = true);
  bool isShown(int id) const;
  void show(int id, bool on = true);
  bool isChecked(int id) const;
  /// Checking a radio button clears the others of its group.
  void setChecked(int id, bool on = true);

  /// Edits and rich edits: the most units that can be typed.
  void setTextLimit(int id, int most);
  /// Whether the user changed an edit or rich edit since its text was set.
  bool isModified(int id) const;
  void setModified(int id, bool on);
  /// Selects a part of an edit's or rich edit's text.
  void selectText(int id, TextRange range = {0, wholeText});

  Items& items(int id) const;
  ListView& list(int id) const;
  FieldEdit& fieldEdit(int id) const;

  /// A text shown while the mouse rests on the control.
  void setTip(int id, const OdString& tip);
  /// Shows an icon of the module's resources, 16 by 16 pixels, on a button in place of its caption.
  void setIcon(int id, unsigned icon);
  Area area(int id) const;
  void setArea(int id, const Area& area);
  /// How the control follows the dialog's size, counted from the size in the template.
  void anchor(int id, const Anchor& anchor);

  void setFocus(int id);
  /// 0 when no control of the dialog or page has the focus.
  int focus() const;

  MessageAnswer messageBox(const OdString& text, const OdString& caption,
                           MessageIcon icon = MessageIcon::none, MessageButtons buttons = MessageButtons::ok);
  /// The path chosen, as the user wrote it, or nothing after Cancel.
  std::optional<OdString> askFile(const FileRequest& request);
  /// What host services that want a parent window are given: the dialog's; null on a face without windows.
  void* window() const;

private:
  friend class Dialog;
  FormFace& form() const;
  Face& face() const;

  unsigned m_number;
  Face* m_shownBy = nullptr;
  FormFace* m_form = nullptr;
};

} // namespace ui
