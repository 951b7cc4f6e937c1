#pragma once
#include "HostEdInput.h"
#include "ICmdProcess.h"

namespace frame {

/// What an answer code of HostEdInput means. Commands look at the kinds in this order.
enum class AnswerKind {
  cancel,  ///< the command stops with status 1; what it has drawn stays
  value,   ///< the value that was given
  empty,   ///< the default of the prompt
  keyword, ///< a keyword of the list
};

struct Answer {
  AnswerKind kind;
  /// The place of the keyword in its list, from 1; 0 for the other kinds.
  int keyword;
};

Answer classifyAnswer(int code);

/// The status of a run whose last prompt was answered with that code: only Esc fails it.
CMD_RUNSTATUS statusAfter(int code);

/// Prints a message on a line of its own.
void printMessage(HostEdInput& input, const OdString& message);
/// Prints the message of that number in the string table.
void printMessage(HostEdInput& input, unsigned number);

} // namespace frame
