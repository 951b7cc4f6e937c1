#pragma once
#include "everything.h"
#include "res/resource.h"
#include "ui/face.h"
#include <functional>
#include <map>
#include <string>
#include <vector>

/// Events in their order, and what a test does in reaction to some.
struct EventLog {
  std::vector<std::string> events;
  std::map<std::string, std::function<void()>> reactions;

  void note(const std::string& event) {
    events.push_back(event);
    const auto found = reactions.find(event);
    if (found != reactions.end()) found->second();
  }
};

/// A page of the dialog below.
class PageProbe : public ui::PageEvents {
public:
  PageProbe(EventLog& log, std::string name) : m_log(log), m_name(std::move(name)) {}
  virtual ~PageProbe() = default;

  void onPress(int id) override { m_log.note("press " + std::to_string(id)); }
  void onChange(int id) override { m_log.note("change " + std::to_string(id)); }
  void onLeave(int id) override { m_log.note("leave " + std::to_string(id)); }
  void onDoubleClick(int id) override { m_log.note("open " + std::to_string(id)); }
  ui::Menu contextMenu(int) override { return menu; }
  void onMenu(int id, int command) override {
    m_log.note("menu " + std::to_string(id) + " " + std::to_string(command));
  }
  void onActivate() override { m_log.note("activate " + m_name); }
  void onDeactivate() override { m_log.note("deactivate " + m_name); }
  void onClose() override { m_log.note("close " + m_name); }

  ui::Menu menu;
  ui::FormFace* form = nullptr;

private:
  EventLog& m_log;
  std::string m_name;
};

/// The second dialog of everything.rc with its two pages, filled.
class ControlsProbe : public ui::DialogEvents, public EventLog {
public:
  virtual ~ControlsProbe() = default;

  std::unique_ptr<ui::Face> face;
  PageProbe values{*this, "values"}, texts{*this, "texts"};
  std::function<void()> prepare = [] {};
  ui::Menu menu;

  int run(ui::DialogUser* user) {
    events.clear();
    face = ui::makeFace(9, everythingDialog(9), *this, user);
    return face->run();
  }
  ui::FormFace& form() { return face->frame(); }
  ui::ListView& list() { return form().list(46); }
  ui::FieldEdit& value() { return values.form->fieldEdit(51); }

  void onInit() override {
    form().items(41).add(L"Door", 7);
    form().items(41).add(L"Window", 8);
    const std::pair<const wchar_t*, ui::Color> shades[] = {
        {L"ByLayer", 0xFFFFFF}, {L"Red", 0xFF0000}, {L"Green", 0x00FF00}, {L"Blue", 0x0000FF}};
    for (const auto& [name, color] : shades)
      form().items(43).add(name, static_cast<std::intptr_t>(color), color);
    form().items(43).select(1);
    form().setText(45, L"first line\r\nsecond line");
    form().setIcon(47, IDI_PICK_BLOCK);
    form().setTip(47, L"Pick a block");
    const std::pair<const wchar_t*, int> columns[] = {{L"Tag", 90}, {L"Prompt", 110}, {L"Value", 120}};
    for (const auto& [title, width] : columns) list().addColumn(title, width);
    const wchar_t* rows[][3] = {{L"NUMBER", L"Room number", L"3.01"},
                                {L"NAME", L"Name of the room", L"B\u00fcro"},
                                {L"NAME", L"", L"Bureau"}};
    for (const auto& row : rows) {
      const int at = list().addRow(-1, 100 + list().rowCount());
      for (int column = 0; column < 3; ++column) list().setText(at, column, row[column]);
    }
    values.form = &face->addPage(48, L"Attribute", 10, everythingDialog(10), values);
    texts.form = &face->addPage(48, L"Text Options", 11, everythingDialog(11), texts);
    value().setRuns({{L"Room ", 0}, {L"3.01", 5}, {L", floor ", 0}, {L"3", 6}});
    texts.form->setText(61, L"2.5");
    texts.form->setChecked(64, true);
    for (const wchar_t* item : {L"Top", L"Middle", L"Bottom"}) texts.form->items(66).add(item);
    form().setFocus(IDOK);
    prepare();
  }
  void onPress(int id) override { note("press " + std::to_string(id)); }
  void onChange(int id) override { note("change " + std::to_string(id)); }
  void onLeave(int id) override { note("leave " + std::to_string(id)); }
  void onDoubleClick(int id) override { note("open " + std::to_string(id)); }
  ui::Menu contextMenu(int id) override { return id == 46 ? menu : ui::Menu{}; }
  void onMenu(int id, int command) override {
    note("menu " + std::to_string(id) + " " + std::to_string(command));
  }
  /// Tags that occur twice are emphasised.
  ui::RowLook rowLook(int, int row) override {
    return row > 0 ? ui::RowLook{.textColor = 0xC00000, .background = 0xFFF0D0, .bold = true} : ui::RowLook{};
  }
  void onMessage(const OdString& name, std::intptr_t first, std::intptr_t second) override {
    note(name.toUtf8() + " " + std::to_string(first) + " " + std::to_string(second));
  }
  void onClose() override { note("close"); }
  void onOk() override { face->end(1); }
  void onCancel() override { face->end(2); }
};
