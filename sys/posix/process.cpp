#include "sys/process.h"
#include <cerrno>
#include <csignal>
#include <unistd.h>

namespace sys {

long long ownProcess() { return ::getpid(); }

bool hasEnded(long long process) { return ::kill(static_cast<pid_t>(process), 0) != 0 && errno == ESRCH; }

} // namespace sys
