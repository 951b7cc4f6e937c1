#include "field_line.h"
#include <algorithm>

namespace ui::text {
namespace {

OdString clipboard;

} // namespace

void FieldLine::setRuns(const std::vector<TextRun>& runs) {
  m_control.fields = FieldText(runs);
  m_control.text = m_control.fields.text();
  m_control.selection = {0, 0};
  m_control.modified = false;
}

void FieldLine::insert(const TextRun& run) {
  const int end = m_control.fields.replace(m_control.selection, run);
  m_control.text = m_control.fields.text();
  m_control.selection = {end, end};
  m_control.modified = true;
}

void FieldLine::splice(const Splice& change) {
  const TextRange range = m_control.fields.widened(change.range);
  const int room = m_control.textLimit - m_control.text.getLength() + range.end - range.begin;
  m_control.selection = range;
  insert({change.text.left(std::max(0, room)), 0});
  m_changed();
}

OdString FieldLine::selectedText() const {
  return m_control.text.mid(m_control.selection.begin, m_control.selection.end - m_control.selection.begin);
}

bool FieldLine::can(EditCommand command) const {
  switch (command) {
  case EditCommand::cut:
  case EditCommand::copy:
  case EditCommand::clear: return hasSelection();
  case EditCommand::paste: return !clipboard.isEmpty();
  case EditCommand::selectAll: return true;
  }
  return false;
}

void FieldLine::perform(EditCommand command) {
  if (!can(command)) return;
  if (command == EditCommand::cut || command == EditCommand::copy) clipboard = selectedText();
  switch (command) {
  case EditCommand::cut:
  case EditCommand::clear: return splice({m_control.selection, {}});
  case EditCommand::paste: return splice({m_control.selection, clipboard});
  case EditCommand::selectAll: m_control.selection = {0, m_control.text.getLength()}; return;
  case EditCommand::copy: return;
  }
}

} // namespace ui::text
