#include "construct_session.h"
#include "support/drawings.h"
#include "sys/library.h"

ConstructSession::ConstructSession() {
  std::string error;
  m_module = sys::loadLibrary("blockattr", error);
  EXPECT_NE(m_module, nullptr) << error;
}

ConstructSession::~ConstructSession() {
  sys::freeLibrary(m_module);
  EXPECT_EQ(sys::findLoadedLibrary("blockattr"), nullptr) << "settings of one test would reach the next";
}

host::RunResult ConstructSession::execute(const std::string& command,
                                          const std::vector<std::string>& answers) {
  lines.prompts.clear();
  lines.printed.clear();
  for (const std::string& answer : answers) lines.type({answer.c_str()});
  const host::RunResult result = session.execute(OdString::fromUtf8(command));
  EXPECT_EQ(lines.prompts.size(), answers.size()) << "as many questions as answers";
  EXPECT_FALSE(lines.readLine("")) << "an answer was not asked for";
  lines.prompts.pop_back();
  return result;
}

host::RunResult ConstructSession::run(const std::string& command, const std::vector<std::string>& answers,
                                      const std::function<void()>& look) {
  database().clearUndo();
  const std::string before = test::savedBytes(database());
  const host::RunResult result = execute(command, answers);
  const std::vector<std::string> printed = lines.printed;
  if (look) look();
  hasChanged = test::savedBytes(database()) != before;
  if (database().hasUndo()) session.execute(L"U");
  EXPECT_EQ(test::savedBytes(database()), before);
  lines.printed = printed;
  return result;
}
