#pragma once

namespace sys {

/// The number of the running process.
long long ownProcess();

/// Whether there is no process of this number.
bool hasEnded(long long process);

} // namespace sys
