#pragma once
// What passes between an open dialog of the module and whoever works it: a person at a terminal, a script, a
// test. Header only, because the dialog lives in the module and its user in the host program. Texts are
// zero-ended; a pointer that is handed out stays valid until the next call on the same object.

namespace ui {

enum class ControlKind {
  staticText,
  group,
  button,
  checkBox,
  radioButton,
  edit,
  comboBox,
  listBox,
  /// An edit whose text may hold fields: values that the program computes, each of which behaves as one unit.
  richEdit,
  /// A list of rows with columns.
  listView,
  /// The tabs of pages, of which one is open.
  tabs
};

/// A place in dialog units, from the dialog's upper left corner.
struct ControlPlace {
  int x, y, width, height;
};

/// A part of a text, in units from its beginning; begin equals end for a caret.
struct TextRange {
  int begin, end;
};
/// As the end of a range: that of the text.
inline constexpr int wholeText = 0x7FFFFFFF;

/// How a row of a list view is drawn; colours are 0xRRGGBB, -1 for the usual one.
struct RowLook {
  int textColor = -1;
  int background = -1;
  bool bold = false;
};

/// One control as its user sees it.
struct ControlInfo {
  int id;
  ControlKind kind;
  /// The caption with its `&`, or the contents of an edit, or the chosen item of a combo box or list; of a
  /// list view or tab control its name, which is not seen.
  const wchar_t* text;
  /// What is shown while the mouse rests on it; often empty.
  const wchar_t* tip;
  bool enabled;
  bool shown;
  /// Check boxes and radio buttons.
  bool checked;
  /// The button that Enter presses while no button has the focus.
  bool isDefault;
  /// A combo box whose text can be typed as well.
  bool editable;
  /// Combo boxes and lists, rows of list views, pages of tabs: how many there are, and which is chosen (from
  /// 0; -1 for none).
  int itemCount;
  int selectedItem;
  /// List views.
  int columnCount;
  /// Rich edits.
  int fieldCount;
  /// From the template; a control of a page stands in the dialog about where its template puts it on the
  /// tabs.
  ControlPlace place;
};

/// How an action of the user ended. Only `done` changed anything.
enum class Outcome {
  done,
  noSuchControl,
  /// The control is of a kind that does not take this action.
  wrongKind,
  disabled,
  hidden,
  /// The item or row does not exist.
  noSuchItem,
  /// The dialog took the focus back while the user was on the way to the control (after a refused value).
  focusKept,
  /// The dialog has ended; nothing can be done to it any more.
  ended
};

/// A dialog that is being shown. Controls are named by their numbers; the actions do what a person's mouse
/// and keyboard would, with the focus moving first, and return after the dialog has reacted.
class OpenDialog {
public:
  /// The number of the dialog's template.
  virtual int number() const = 0;
  virtual const wchar_t* title() const = 0;
  virtual bool hasEnded() const = 0;
  virtual int controlCount() const = 0;
  /// The controls in the order of the template, from 0; those of the page that is open come behind its tabs.
  /// False when there is none.
  virtual bool controlAt(int index, ControlInfo& info) const = 0;
  /// The control of that number; false when there is none.
  virtual bool control(int id, ControlInfo& info) const = 0;
  /// An item of a combo box or list, the first column of a row, the title of a page; null when there is none.
  virtual const wchar_t* item(int id, int index) const = 0;
  /// The colour shown before an item, as 0xRRGGBB; -1 for none.
  virtual int swatch(int id, int index) const = 0;
  /// A text of a list view; row -1 holds the titles of the columns. Null when there is none.
  virtual const wchar_t* cell(int id, int row, int column) const = 0;
  virtual RowLook rowLook(int id, int row) const = 0;
  /// Where a field of a rich edit stands in its text; the empty range at 0 when there is none.
  virtual TextRange field(int id, int index) const = 0;
  /// What is selected in an edit or rich edit; the empty range at 0 for other controls.
  virtual TextRange selection(int id) const = 0;
  /// The texts of a control's context menu, which the dialog makes anew each time; null behind the last one.
  /// Separators are empty texts.
  virtual const wchar_t* menuItem(int id, int index) = 0;
  /// The number of the control that has the focus; 0 for none.
  virtual int focus() const = 0;

  /// Changes the text of an edit, rich edit or editable combo box into this one. Nothing happens when it is
  /// that text already. In a rich edit only what differs is typed, from its first to its last place, so that
  /// the fields beside it stay.
  virtual Outcome type(int id, const wchar_t* text) = 0;
  /// Brings a check box or radio button to that state; a radio button cannot be unticked by itself. Nothing
  /// happens when it already is in that state.
  virtual Outcome tick(int id, bool on) = 0;
  /// Chooses an item of a combo box or list, a row, or a page, from 0.
  virtual Outcome choose(int id, int item) = 0;
  /// Selects a part of the text of an edit or rich edit; one that cuts through a field takes the whole of it.
  virtual Outcome selectText(int id, TextRange range) = 0;
  virtual Outcome press(int id) = 0;
  /// Clicks twice on the selected row of a list view, or on the selection of a rich edit.
  virtual Outcome doubleClick(int id) = 0;
  /// Opens the context menu of a control and picks an item, from 0, separators counted. wrongKind without a
  /// menu, noSuchItem and disabled by the item.
  virtual Outcome pickMenuItem(int id, int item) = 0;
  /// Moves the focus to a control.
  virtual Outcome moveFocus(int id) = 0;
  /// Moves the focus to the next control, as Tab does.
  virtual Outcome leave() = 0;
  /// The keys Enter (presses the button that has the focus, else the default one), Esc and F1.
  virtual Outcome enter() = 0;
  virtual Outcome escape() = 0;
  virtual Outcome help() = 0;

protected:
  ~OpenDialog() = default;
};

enum class MessageButtons { ok, okCancel, yesNo, yesNoCancel };
enum class MessageIcon { none, error, question, warning, information };
/// The numbers of the buttons.
enum class MessageAnswer { ok = 1, cancel = 2, yes = 6, no = 7 };

/// A message box; the answer must be one of its buttons.
struct MessageQuestion {
  const wchar_t* text;
  const wchar_t* caption;
  MessageButtons buttons;
  MessageIcon icon;
};

/// A question for a file to open or to save.
struct FileQuestion {
  bool save;
  /// Pairs of a description and a pattern, in the form "Texts (*.txt)|*.txt|All files (*.*)|*.*||".
  const wchar_t* filter;
  /// Where the question starts; may be empty.
  const wchar_t* initialPath;
  /// The name offered where there is no initial path: a name or a pattern such as "*.txt".
  const wchar_t* defaultName;
  /// The rules that the answer must keep; a path that breaks one is refused with a message and asked again.
  bool fileMustExist;
  bool pathMustExist;
  bool overwritePrompt;
};

/// Whoever works the dialogs. One user may be asked from inside another question: a dialog's reaction to an
/// action may open a message box or a further dialog before the action returns.
class DialogUser {
public:
  /// A dialog has been set up and is shown; called once for each showing, before the first drive.
  virtual void opened(const OpenDialog& dialog) = 0;
  /// Called over and over while the dialog is open: each call carries out at least one action, and the dialog
  /// shows its result. An exception closes the dialog and goes on to the caller of the command. A user that
  /// keeps returning without having done anything ends the dialog with an error.
  virtual void drive(OpenDialog& dialog) = 0;
  virtual MessageAnswer answerMessage(const MessageQuestion& question) = 0;
  /// The path chosen, or null for Cancel.
  virtual const wchar_t* answerFile(const FileQuestion& question) = 0;
  /// Whether the dialogs are to be seen on the screen, where the module can show windows. Otherwise they are
  /// in memory only, which is faster and needs no screen.
  virtual bool needsWindow() const { return true; }

protected:
  ~DialogUser() = default;
};

/// The optional export of the main host program that gives the user as an untyped pointer, or null for
/// "nobody"; GetDialogUserFunction (HostServices.h) is its type.
inline constexpr const char* getDialogUserExport = "GetDialogUser";

} // namespace ui
