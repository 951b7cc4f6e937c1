#pragma once
#include "dialog.h"
#include <cstdint>
#include <span>

namespace ui {

/// What shows a dialog. There is one kind in each build, chosen by what is linked: makeFace is defined by it.
/// The operations are those of Dialog and are documented there.
class Face {
public:
  virtual ~Face() = default;

  virtual int run() = 0;
  virtual void end(int code) = 0;

  virtual OdString titleText() const = 0;
  virtual void setTitle(const OdString& title) = 0;
  virtual OdString text(int id) const = 0;
  virtual void setText(int id, const OdString& text) = 0;
  virtual bool isEnabled(int id) const = 0;
  virtual void enable(int id, bool on) = 0;
  virtual bool isShown(int id) const = 0;
  virtual void show(int id, bool on) = 0;
  virtual bool isChecked(int id) const = 0;
  virtual void setChecked(int id, bool on) = 0;
  virtual int addItem(int id, const OdString& text) = 0;
  virtual void removeItems(int id) = 0;
  virtual int itemCount(int id) const = 0;
  virtual OdString itemText(int id, int index) const = 0;
  virtual int selection(int id) const = 0;
  virtual void select(int id, int index) = 0;
  virtual void setFocus(int id) = 0;
  virtual int focusedControl() const = 0;
  virtual Placement placement() const = 0;
  virtual void setPlacement(const Placement& placement) = 0;
  virtual void* window() const = 0;
  /// Where there is no keyboard it never is.
  virtual bool isRightControlHeld() const = 0;
  virtual MessageAnswer messageBox(const MessageQuestion& question) = 0;
  virtual std::optional<OdString> askFile(const FileRequest& request) = 0;
};

/// A face for a dialog template in its compiled form, which the number names; its events go to `events`,
/// which must outlive it, as the template must. `user` is null when nobody was found to work the dialog.
std::unique_ptr<Face> makeFace(unsigned number, std::span<const std::uint8_t> source, DialogEvents& events,
                               DialogUser* user);

/// How every face reports a pressed button: OK, Cancel and Help by their own events.
void reportPress(DialogEvents& events, int id);

} // namespace ui
