#pragma once
#include "dialog.h"
#include <cstdint>
#include <span>

namespace ui {

/// The controls of one template, a dialog's or a page's, as a face shows them. The operations are those of
/// Form and are documented there.
class FormFace {
public:
  virtual ~FormFace() = default;

  virtual OdString text(int id) const = 0;
  virtual void setText(int id, const OdString& text) = 0;
  virtual bool isEnabled(int id) const = 0;
  virtual void enable(int id, bool on) = 0;
  virtual bool isShown(int id) const = 0;
  virtual void show(int id, bool on) = 0;
  virtual bool isChecked(int id) const = 0;
  virtual void setChecked(int id, bool on) = 0;
  virtual void setTextLimit(int id, int most) = 0;
  virtual bool isModified(int id) const = 0;
  virtual void setModified(int id, bool on) = 0;
  virtual void selectText(int id, TextRange range) = 0;
  virtual Items& items(int id) = 0;
  virtual ListView& list(int id) = 0;
  virtual FieldEdit& fieldEdit(int id) = 0;
  virtual void setTip(int id, const OdString& tip) = 0;
  virtual void setIcon(int id, unsigned icon) = 0;
  virtual Area area(int id) const = 0;
  virtual void setArea(int id, const Area& area) = 0;
  virtual void anchor(int id, const Anchor& anchor) = 0;
  virtual void setFocus(int id) = 0;
  virtual int focusedControl() const = 0;
};

/// What shows a dialog. There is one kind in each build, chosen by what is linked: makeFace is defined by it.
/// The operations are those of Dialog and are documented there.
class Face {
public:
  virtual ~Face() = default;

  virtual int run() = 0;
  virtual void end(int code) = 0;

  /// The dialog's own controls.
  virtual FormFace& frame() = 0;
  /// The page's template in its compiled form must outlive the face, as its events must.
  virtual FormFace& addPage(int tabs, const OdString& title, unsigned number,
                            std::span<const std::uint8_t> source, PageEvents& events) = 0;
  virtual int activePage() const = 0;
  virtual void activatePage(int index) = 0;

  virtual OdString titleText() const = 0;
  virtual void setTitle(const OdString& title) = 0;
  virtual Placement placement() const = 0;
  virtual void setPlacement(const Placement& placement) = 0;
  virtual void setVisible(bool on) = 0;
  virtual void* window() const = 0;
  /// Where there is no keyboard it never is.
  virtual bool isRightControlHeld() const = 0;
  /// Messages of that name go to DialogEvents::onMessage.
  virtual void listen(const OdString& name) = 0;
  virtual void send(const OdString& name, std::intptr_t first, std::intptr_t second) = 0;
  virtual void post(const OdString& name, std::intptr_t first, std::intptr_t second) = 0;
  virtual MessageAnswer messageBox(const MessageQuestion& question) = 0;
  virtual std::optional<OdString> askFile(const FileRequest& request) = 0;
};

/// A face for a dialog template in its compiled form, which the number names; its events go to `events`,
/// which must outlive it, as the template must. `user` is null when nobody was found to work the dialog.
std::unique_ptr<Face> makeFace(unsigned number, std::span<const std::uint8_t> source, DialogEvents& events,
                               DialogUser* user);

/// How every face reports a pressed button of the dialog: OK, Cancel and Help by their own events.
void reportPress(DialogEvents& events, int id);

} // namespace ui
