#pragma once
#include "res/resource.h"
#include "ui/dialog.h"
#include <functional>
#include <map>
#include <string>
#include <vector>

/// The extraction template with reactions given by the test; keeps the events in their order.
class ProbeDialog : public ui::Dialog {
public:
  explicit ProbeDialog(const OdString& section = {}) : Dialog(IDD_ATTEXT, section) {}

  std::vector<std::string> events;
  std::map<std::string, std::function<void(ProbeDialog&)>> reactions;

  // What a dialog class may do is open to the reactions.
  using Dialog::askFile;
  using Dialog::enable;
  using Dialog::end;
  using Dialog::focus;
  using Dialog::isChecked;
  using Dialog::messageBox;
  using Dialog::placement;
  using Dialog::setChecked;
  using Dialog::setFocus;
  using Dialog::setPlacement;
  using Dialog::setText;
  using Dialog::setTitle;
  using Dialog::show;
  using Dialog::text;
  using Dialog::window;

  void onInit() override { note("init"); }
  void onPress(int id) override { note("press " + std::to_string(id)); }
  void onChange(int id) override { note("change " + std::to_string(id)); }
  void onLeave(int id) override { note("leave " + std::to_string(id)); }
  void onHelp() override { note("help"); }
  void onOk() override {
    if (note("ok")) end(1);
  }

private:
  /// Whether the test gave no reaction of its own.
  bool note(const std::string& event) {
    events.push_back(event);
    const auto found = reactions.find(event);
    if (found != reactions.end()) found->second(*this);
    return found == reactions.end();
  }
};

/// A user that does what a test tells it, also what no user should.
struct HandmadeUser : ui::DialogUser {
  virtual ~HandmadeUser() = default;
  std::function<void(ui::OpenDialog&)> act = [](ui::OpenDialog&) {};
  ui::MessageAnswer answer = ui::MessageAnswer::ok;
  int turns = 0;

  void opened(const ui::OpenDialog&) override {}
  void drive(ui::OpenDialog& dialog) override {
    ++turns;
    act(dialog);
  }
  ui::MessageAnswer answerMessage(const ui::MessageQuestion&) override { return answer; }
  const wchar_t* answerFile(const ui::FileQuestion&) override { return L""; }
};
