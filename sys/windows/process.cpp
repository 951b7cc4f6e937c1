#include "sys/process.h"
#include "sys/windows/system.h"

namespace sys {

long long ownProcess() { return GetCurrentProcessId(); }

bool hasEnded(long long process) {
  const Handle handle(OpenProcess(SYNCHRONIZE, FALSE, static_cast<DWORD>(process)));
  if (!handle.isOpen()) return GetLastError() == ERROR_INVALID_PARAMETER;
  return WaitForSingleObject(handle.get(), 0) == WAIT_OBJECT_0;
}

} // namespace sys
