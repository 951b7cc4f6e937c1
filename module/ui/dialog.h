#pragma once
#include "page.h"
#include <array>
#include <cstddef>
#include <functional>
#include <map>
#include <memory>
#include <stdexcept>
#include <vector>

namespace ui {

/// A dialog could not be shown or was not answered; what() is a sentence from the string table, in UTF-8.
class DialogError : public std::runtime_error {
public:
  explicit DialogError(const OdString& sentence) : std::runtime_error(sentence.toUtf8()) {}
};

/// The window placement record as the host profile keeps it: length, flags, show command, minimised and
/// maximised position, normal rectangle; little-endian 32-bit integers.
using Placement = std::array<std::byte, 44>;

class DialogEvents : public FormEvents {
public:
  /// The dialog can be placed; comes before onInit.
  virtual void onOpen() {}
  /// The Help button or F1.
  virtual void onHelp() {}
  /// OK, or Enter without another button.
  virtual void onOk() = 0;
  /// Cancel, Esc or the window's close button.
  virtual void onCancel() = 0;
  /// A message that the dialog listens to.
  virtual void onMessage(const OdString& /*name*/, std::intptr_t /*first*/, std::intptr_t /*second*/) {}

protected:
  ~DialogEvents() = default;
};

/// A modal dialog: holds the data and the rules and speaks to its controls by number. A class derives from
/// it, overrides events, and keeps its data in members, which outlive a showing: one object may be shown
/// again and again, each time with fresh controls and onInit.
class Dialog : public DialogEvents, protected Form {
public:
  /// `number`: the template (IDD_...). `section`: where the host's profile keeps the dialog's place from one
  /// showing to the next ("Dialogs\\EAttEdit"); without one it opens at its default place each time, and so
  /// it does with the right Control key held down.
  explicit Dialog(unsigned number, OdString section = {});
  virtual ~Dialog();

  /// Shows the dialog until end() and returns the code given there. Throws DialogError when nobody can answer
  /// the dialog; an exception of an event or of the user closes the dialog and passes through.
  int doModal();

protected:
  using MessageHandler = std::function<void(std::intptr_t first, std::intptr_t second)>;

  void onOk() override { end(1); }
  void onCancel() override { end(2); }

  /// Closes the dialog as soon as the event under way returns; the last code given counts. The page that is
  /// open is deactivated, and the control that has the focus is left, at once; onClose follows.
  void end(int code);

  OdString title() const;
  void setTitle(const OdString& title);
  Placement placement() const;
  void setPlacement(const Placement& placement);
  /// Hides the whole dialog, which stays open, or shows it again.
  void setVisible(bool on);

  /// Puts a page behind the others of the dialog's only tab control, and calls its onInit. The page must
  /// outlive the showing. The first page is active when the dialog opens, unless another one was activated.
  void addPage(int tabs, const OdString& title, Page& page);
  /// From 0; -1 while no page is active.
  int activePage() const;
  void activatePage(int index);

  /// From now on, also in further showings, the dialog takes messages of that name, wherever they come from:
  /// on Windows they are registered window messages, which other windows of the program may send as well.
  void listen(const OdString& name, MessageHandler handler);
  /// Sends a message to the dialog itself, which takes it at once, or as soon as what is under way returns.
  void send(const OdString& name, std::intptr_t first = 0, std::intptr_t second = 0);
  void post(const OdString& name, std::intptr_t first = 0, std::intptr_t second = 0);

private:
  void onOpen() final;
  void onMessage(const OdString& name, std::intptr_t first, std::intptr_t second) final;
  void forget();

  OdString m_section;
  std::unique_ptr<Face> m_face;
  std::vector<Page*> m_pages;
  std::map<OdString, MessageHandler> m_handlers;
};

/// Finds who works a dialog; null for "nobody".
using DialogUserSource = DialogUser* (*)();
/// Says how the user is found each time a dialog opens. Without a source there is nobody.
void setDialogUserSource(DialogUserSource source);
/// Asks the source.
DialogUser* findDialogUser();

} // namespace ui
