#pragma once
#include "OdString.h"
#include "dialog_user.h"
#include "menu.h"
#include <functional>
#include <initializer_list>

namespace ui {

/// The side of a face that its user works: the rules that hold on every face. One action at a time; the focus
/// moves first; what is disabled, hidden or gone refuses. A face adds the moves themselves, by its controls.
class WorkedDialog : public OpenDialog {
public:
  int number() const final { return static_cast<int>(m_number); }
  bool hasEnded() const final { return m_ended; }

  Outcome type(int id, const wchar_t* text) final;
  Outcome tick(int id, bool on) final;
  Outcome choose(int id, int item) final;
  Outcome press(int id) final;
  Outcome selectText(int id, TextRange range) final;
  Outcome doubleClick(int id) final;
  const wchar_t* menuItem(int id, int index) final;
  Outcome pickMenuItem(int id, int item) final;
  Outcome moveFocus(int id) final;
  Outcome leave() final;
  Outcome enter() final;
  Outcome escape() final;
  Outcome help() final;

protected:
  explicit WorkedDialog(unsigned number) : m_number(number) {}
  ~WorkedDialog() = default;

  /// Gives the user one turn. Throws DialogError after many turns running in which nothing was done. `title`
  /// is the dialog's, for the message.
  void giveTurn(DialogUser& user, const OdString& title);
  void markEnded() { m_ended = true; }

  enum class Key { enter, escape, help };

  /// Whether the dialog as a whole can be seen.
  virtual bool isVisible() const = 0;
  /// Moves the focus to a control that is shown and enabled. The control that is left may react.
  virtual void moveTo(int id) = 0;
  /// The following act on the control that has the focus, as mouse and keyboard do, with the notices.
  virtual void replaceText(int id, const OdString& text) = 0;
  virtual void clickOn(int id) = 0;
  virtual void chooseItem(int id, int item) = 0;
  virtual void selectRange(int id, TextRange range) = 0;
  virtual void clickTwice(int id) = 0;
  /// Clicks on the tab of a page, wherever the focus is.
  virtual void turnTo(int id, int page) = 0;
  /// What the dialog offers for a control now, and its choice.
  virtual Menu menuOf(int id) = 0;
  virtual void chooseCommand(int id, int command) = 0;
  virtual void strike(Key key) = 0;
  /// Where Tab leads to from the focus; 0: nowhere.
  virtual int nextTabStop() const = 0;
  /// 0 when the dialog has none.
  virtual int defaultButton() const = 0;

private:
  using Kinds = std::initializer_list<ControlKind>;
  Outcome refusal(int id, Kinds kinds) const;
  /// What a click on a control of one of these kinds does: the focus moves, then the action runs.
  Outcome act(int id, Kinds kinds, const std::function<Outcome()>& action);
  Outcome perform(const std::function<Outcome()>& action);
  bool isButton(int id) const;
  Outcome turn(int id, int page);

  unsigned m_number;
  int m_vainTurns = 0;
  bool m_ended = false;
  bool m_acting = false;
  bool m_acted = false;
  Menu m_shownMenu;
};

} // namespace ui
