#include "check.h"
#include "extract.h"
#include "options.h"
#include "session.h"
#include "sys/program.h"
#include <exception>
#include <iostream>

int main(int argc, char** argv) {
  const sys::StandardStreams streams;
  try {
    const app::Options options = app::parseOptions(sys::programArguments(argc, argv));
    switch (options.task) {
    case app::Options::Task::session: return app::runSession(options.session);
    case app::Options::Task::extract: return app::runExtract(options.extract);
    case app::Options::Task::check: return app::runCheck(options.check);
    case app::Options::Task::nothing: break;
    }
    return options.status;
  } catch (const std::exception& error) {
    std::cerr << "hbhost: " << error.what() << '\n';
    return app::kCommandFailed;
  }
}
