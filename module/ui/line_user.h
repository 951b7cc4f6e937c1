#pragma once
#include "OdString.h"
#include "dialog_user.h"
#include <functional>

namespace ui {

/// Works dialogs by typed lines; the terminal and the script share it.
///
/// When a dialog opens, its title and controls are printed. Then each line does one thing:
///
///     show                   print the dialog again
///     set NAME = VALUE       type into an edit; "..." around VALUE keeps blanks at its ends. Fields in the
///                            part of the text that stays the same are kept
///     select NAME = TEXT     selects a part of an edit's text; without TEXT the end of it
///     tick NAME              a check box or a radio button
///     untick NAME            a check box
///     choose NAME = ITEM     an item of a combo box or list, a row, or a page of tabs, by its text
///     row NAME = N           the N-th item or row, counted from 1
///     open NAME              a double click: the chosen row of a list, or the field that is selected
///     press NAME             a button
///     menu NAME = ITEM       an item of a control's context menu
///     leave                  go on to the next control, as the Tab key does
///     ?                      print these commands
///     (an empty line)        press the default button, marked *
///     ^C                     the Esc key: Cancel
///
/// NAME is a control's label without its `&` and closing dots or colon, or `#` and the control's number. The
/// label of an edit, combo box or list is the static text before it or the button that fills it: `press
/// Template File` opens the file question and `set Template File = a.txt` types into the edit beside that
/// button. Commands, names and items may be written in any case and shortened while they stay unambiguous: to
/// their beginning or to the beginning of one of their words. A line that cannot be carried out is answered
/// with the reason and, for a name that does not exist, with the nearest ones; then the next line is taken.
///
/// A message box is printed with its buttons and answered with `press YES`, or `yes` alone; an empty line is
/// the first button, `^C` is Cancel (OK where there is nothing else). A file question is answered with `set
/// file = PATH` or the path alone; an empty line takes the path that is offered, `press Cancel` or `^C`
/// cancels.
class LineUser : public DialogUser {
public:
  /// Prints one line, without a line end.
  using Print = std::function<void(const OdString& line)>;
  /// Waits for a line; `prompt` is what a terminal shows in front of it. Throws when there is none left: the
  /// exception closes the dialog and goes on to whoever runs the command.
  using NextLine = std::function<OdString(const OdString& prompt)>;

  LineUser(Print print, NextLine nextLine) : m_print(std::move(print)), m_nextLine(std::move(nextLine)) {}
  virtual ~LineUser() = default;

  /// Prints the dialog.
  void opened(const OpenDialog& dialog) override { show(dialog); }
  /// Takes lines until one of them has done something.
  void drive(OpenDialog& dialog) override;
  MessageAnswer answerMessage(const MessageQuestion& question) override;
  const wchar_t* answerFile(const FileQuestion& question) override;

protected:
  /// Tells why a line could not be carried out; printed, unless somebody does more.
  virtual void complain(const OdString& sentence) { m_print(sentence); }
  void show(const OpenDialog& dialog);

private:
  /// Whether the line did something to the dialog.
  bool obey(OpenDialog& dialog, const OdString& line);

  Print m_print;
  NextLine m_nextLine;
  OdString m_path;
};

} // namespace ui
