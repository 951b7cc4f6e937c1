#pragma once
#include "OdString.h"
#include "dialog_user.h"
#include <array>
#include <cstddef>
#include <memory>
#include <optional>
#include <stdexcept>

namespace ui {

class Face;

/// A dialog could not be shown or was not answered; what() is a sentence from the string table, in UTF-8.
class DialogError : public std::runtime_error {
public:
  explicit DialogError(const OdString& sentence) : std::runtime_error(sentence.toUtf8()) {}
};

/// The window placement record as the host profile keeps it: length, flags, show command, minimised and
/// maximised position, normal rectangle; little-endian 32-bit integers.
using Placement = std::array<std::byte, 44>;

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

/// What a face tells the dialog it shows. Notices come while the user acts; changes that the dialog makes
/// itself (setText, setChecked, select...) bring none.
class DialogEvents {
public:
  /// The dialog can be placed; comes before onInit.
  virtual void onOpen() {}
  /// The controls exist with their texts from the template: set them from the data.
  virtual void onInit() {}
  /// A button was pressed, or a check box or radio button ticked by the user (its new state is set).
  virtual void onPress(int /*id*/) {}
  /// The text of an edit or the choice in a combo box or list was changed by the user.
  virtual void onChange(int /*id*/) {}
  /// An edit, combo box or list lost the focus: before the press that takes it, and when the dialog ends.
  virtual void onLeave(int /*id*/) {}
  /// The Help button or F1.
  virtual void onHelp() {}
  /// OK, or Enter without another button.
  virtual void onOk() = 0;
  /// Cancel, Esc or the window's close button.
  virtual void onCancel() = 0;

protected:
  ~DialogEvents() = default;
};

/// A modal dialog: holds the data and the rules and speaks to its controls by number. A class derives from
/// it, overrides events, and keeps its data in members, which outlive a showing: one object may be shown
/// again and again, each time with fresh controls and onInit.
///
/// Everything below doModal works only while the dialog is shown; otherwise, and for the number of a control
/// that the template does not have, std::logic_error is thrown.
class Dialog : public DialogEvents {
public:
  /// `number`: the template (IDD_...). `section`: where the host's profile keeps the dialog's place from one
  /// showing to the next ("Dialogs\\EAttEdit"); without one it opens at its default place each time, and so
  /// it does with the right Control key held down.
  explicit Dialog(unsigned number, OdString section = {});
  virtual ~Dialog();
  Dialog(const Dialog&) = delete;
  Dialog& operator=(const Dialog&) = delete;

  /// Shows the dialog until end() and returns the code given there. Throws DialogError when nobody can answer
  /// the dialog; an exception of an event or of the user closes the dialog and passes through.
  int doModal();

protected:
  void onOk() override { end(1); }
  void onCancel() override { end(2); }

  /// Closes the dialog as soon as the event under way returns; the last code given counts. The control that
  /// has the focus is left at once.
  void end(int code);

  OdString title() const;
  void setTitle(const OdString& title);
  OdString text(int id) const;
  void setText(int id, const OdString& text);
  bool isEnabled(int id) const;
  void enable(int id, bool on = true);
  bool isShown(int id) const;
  void show(int id, bool on = true);
  bool isChecked(int id) const;
  /// Checking a radio button clears the others of its group.
  void setChecked(int id, bool on = true);

  /// Combo boxes and lists. Items are counted from 0; -1 is no item.
  int addItem(int id, const OdString& text);
  void removeItems(int id);
  int itemCount(int id) const;
  OdString itemText(int id, int index) const;
  int selection(int id) const;
  void select(int id, int index);

  void setFocus(int id);
  /// 0 when no control has the focus.
  int focus() const;
  Placement placement() const;
  void setPlacement(const Placement& placement);
  /// What host services that want a parent window are given; null on a face without windows.
  void* window() const;

  MessageAnswer messageBox(const OdString& text, const OdString& caption,
                           MessageIcon icon = MessageIcon::none, MessageButtons buttons = MessageButtons::ok);
  /// The path chosen, as the user wrote it, or nothing after Cancel.
  std::optional<OdString> askFile(const FileRequest& request);

private:
  void onOpen() final;
  Face& face() const;

  unsigned m_number;
  OdString m_section;
  std::unique_ptr<Face> m_face;
};

/// Says how the user is found each time a dialog opens; the function may return null for "nobody". Without a
/// source there is nobody.
void setDialogUserSource(GetDialogUserFunction source);
/// Asks the source.
DialogUser* findDialogUser();

} // namespace ui
