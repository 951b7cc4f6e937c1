#pragma once
#include "drawing_file.h"
#include "exit_status.h"
#include "picture/request.h"
#include <string>
#include <vector>

namespace app {

/// Runs commands on one drawing: at a terminal, or from lines given beforehand.
struct SessionOptions {
  std::string drawing;               ///< empty: a new one
  bool recover = false;              ///< a damaged drawing is repaired when it is opened
  std::vector<std::string> commands; ///< lines that run before the script
  std::string script;                ///< a path, or "-" for the standard input; empty: none
  bool echo = false;                 ///< print the prompts and answers of scripts
  bool save = false;
  std::string saveAs;
  SavingOptions saving;
  std::string encoding;     ///< of the texts of drawings; empty: the one that each tells
  picture::Request picture; ///< drawn at the end; its file is empty: none
};

enum class ExtractFormat { cdf, sdf, dxx };

/// Extracts attribute values from many drawings.
struct ExtractOptions {
  std::vector<std::string> drawings;
  bool recover = false;     ///< damaged drawings are repaired when they are read
  std::string templatePath; ///< none for DXX
  ExtractFormat format = ExtractFormat::cdf;
  std::string output;   ///< a path, a folder, a pattern with {name}, or "-" for the standard output
  std::string layout;   ///< whose objects are extracted; empty: model space
  std::string encoding; ///< of the texts of the drawings; empty: the one that each tells
};

/// Looks over drawings without changing them.
struct CheckOptions {
  std::vector<std::string> drawings;
  bool json = false; ///< one JSON document instead of lines for people
};

struct Options {
  enum class Task { nothing, session, extract, check };
  Task task = Task::nothing; ///< nothing: help or a complaint was printed, the answer is `status`
  ExitStatus status = kAllRan;
  SessionOptions session;
  ExtractOptions extract;
  CheckOptions check;
};

/// Reads the command line. Help goes to the standard output, complaints to standard error.
Options parseOptions(int argc, const char* const* argv);

} // namespace app
