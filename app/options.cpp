#include "options.h"
#include <CLI/CLI.hpp>
#include <iostream>
#include <map>

namespace app {

namespace {

constexpr char kAbout[] = "Opens a drawing, runs commands on it, and saves it.";
constexpr char kSessionNotes[] =
    "Without --command and --script, commands are typed at the terminal, or read from the standard input\n"
    "when that is no terminal.\n"
    "Exit status: 0 all ran; 1 a command was cancelled or failed; 2 wrong usage or script; 3 a drawing "
    "could\n"
    "not be read; 4 a drawing or an output could not be written, or did not verify.";
constexpr char kExtractNotes[] =
    "{name} in --output stands for the name of the drawing without folder and extension; a folder means\n"
    "FOLDER/{name}.txt, or .dxx; - is the standard output. A drawing that fails does not stop the others.";

constexpr char kCheckNotes[] =
    "A drawing is sound; or \"repairable\", where everything that was found can be put right; or\n"
    "\"damaged\", where something cannot be or is lost; or unreadable.\n"
    "Exit status: 0 all are sound; 1 something was found; 3 a drawing could not be read.";

void addPicture(CLI::App& program, picture::Request& request) {
  auto* file =
      program.add_option("--picture", request.file, "Draw the drawing at the end: .svg, .png or .pdf");
  const auto isFormat = [](const std::string& name) {
    const bool isKnown = picture::formatOf(name) != picture::Format::unknown;
    return isKnown ? std::string() : name + ": pictures are .svg, .png or .pdf files";
  };
  const auto readSize = [&request](const std::string& size) {
    if (!picture::parseSize(size, request.width, request.height))
      throw CLI::ValidationError("--picture-size", "\"" + size + "\" is no size in pixels, such as 1600x900");
  };
  file->option_text("FILE")->check(isFormat);
  program.add_option("--layout", request.layout, "Draw this layout instead of model space")
      ->option_text("NAME")
      ->needs(file);
  program
      .add_option_function<std::string>("--picture-size", readSize, "Pixels of the picture, 96 to the inch")
      ->option_text("WxH")
      ->needs(file);
}

void addEncoding(CLI::App& program, std::string& encoding) {
  program
      .add_option(
          "--encoding", encoding,
          "Read texts in this encoding instead of the one that the drawing tells: UTF-8, ANSI_1252, ...")
      ->option_text("NAME")
      ->check(encodingFault);
}

void addSession(CLI::App& program, SessionOptions& options) {
  program.add_option("DRAWING", options.drawing, "The drawing to open; a new one when none is named")
      ->type_name("");
  program.add_flag("--recover", options.recover,
                   "Open a damaged drawing, and tell what was found and repaired");
  program.add_option("--command,-c", options.commands, "A line to run, as typed; may be given several times")
      ->option_text("LINE")
      ->allow_extra_args(false);
  program.add_option("--script,-s", options.script, "A file of lines to run, - for the standard input")
      ->option_text("FILE");
  program.add_flag("--echo", options.echo, "Print prompts and answers of scripts as a terminal shows them");
  auto* save = program.add_flag("--save", options.save, "Save the drawing at the end");
  program.add_option("--save-as", options.saveAs, "Save the drawing at the end under this name")
      ->option_text("FILE")
      ->excludes(save);
  save->option_text(" ");
  program.add_flag("--backup", options.saving.backup, "Keep the file that is replaced by saving as NAME.bak");
  program.add_flag_callback(
      "--no-check", [&options] { options.saving.check = false; },
      "Save without reading the new file back to compare it");
  addEncoding(program, options.encoding);
  program
      .add_option_function<std::string>(
          "--release", [&options](const std::string&) { options.saving.asRelease2000 = true; },
          "Save an older drawing as one of this release; 2000 only")
      ->option_text("YEAR")
      ->check(CLI::IsMember({"2000"}));
  addPicture(program, options.picture);
}

void setFormat(ExtractFormat& format, const std::string& name) {
  static const std::map<std::string, ExtractFormat> formats = {
      {"cdf", ExtractFormat::cdf}, {"sdf", ExtractFormat::sdf}, {"dxx", ExtractFormat::dxx}};
  const auto found = formats.find(CLI::detail::to_lower(name));
  if (found == formats.end())
    throw CLI::ValidationError("--format", "\"" + name + "\" is none of cdf, sdf and dxx");
  format = found->second;
}

CLI::App* addExtract(CLI::App& program, ExtractOptions& options) {
  CLI::App* extract =
      program.add_subcommand("extract", "Extracts the values that block references carry into text files");
  extract->add_option("DRAWING", options.drawings, "The drawings")->required()->type_name("");
  extract->add_flag("--recover", options.recover, "Read damaged drawings too, and tell what was repaired");
  extract->add_option("--template,-t", options.templatePath, "Describes the columns (not for dxx)")
      ->option_text("FILE");
  extract
      ->add_option_function<std::string>(
          "--format,-f", [&options](const std::string& name) { setFormat(options.format, name); },
          "cdf (the default), sdf or dxx")
      ->option_text("FORMAT");
  extract->add_option("--output,-o", options.output, "Where the records go")->option_text("FILE")->required();
  extract->add_option("--layout", options.layout, "Take the objects of this layout instead of model space's")
      ->option_text("NAME");
  addEncoding(*extract, options.encoding);
  extract->footer(kExtractNotes);
  return extract;
}

CLI::App* addCheck(CLI::App& program, CheckOptions& options) {
  CLI::App* check =
      program.add_subcommand("check", "Tells what is wrong with drawings, without changing them");
  check->add_option("DRAWING", options.drawings, "The drawings")->required()->type_name("");
  check->add_flag("--json", options.json, "Print one JSON document");
  check->footer(kCheckNotes);
  return check;
}

ExitStatus refuse(const std::string& sentence) {
  std::cerr << "hbhost: " << sentence << "\nhbhost --help shows how it is used.\n";
  return kWrongUsage;
}

/// What the parser cannot know; empty: nothing is wrong.
std::string contradiction(const Options& options) {
  if (options.task == Options::Task::session && options.session.save && options.session.drawing.empty())
    return "--save needs a DRAWING to save; a new drawing is saved with --save-as FILE.";
  if (options.task != Options::Task::extract) return {};
  const bool dxx = options.extract.format == ExtractFormat::dxx;
  if (!dxx && options.extract.templatePath.empty())
    return "--template is needed for the formats cdf and sdf.";
  return {};
}

} // namespace

Options parseOptions(int argc, const char* const* argv) {
  Options options;
  CLI::App program(kAbout, "hbhost");
  program.footer(kSessionNotes);
  addSession(program, options.session);
  const CLI::App* extract = addExtract(program, options.extract);
  const CLI::App* check = addCheck(program, options.check);
  try {
    program.parse(argc, argv);
  } catch (const CLI::CallForHelp& help) {
    program.exit(help);
    return options;
  } catch (const CLI::ParseError& error) {
    options.status = refuse(error.what());
    return options;
  }
  options.task = Options::Task::session;
  if (extract->parsed()) options.task = Options::Task::extract;
  if (check->parsed()) options.task = Options::Task::check;
  if (const std::string wrong = contradiction(options); !wrong.empty()) {
    options.task = Options::Task::nothing;
    options.status = refuse(wrong);
  }
  return options;
}

} // namespace app
