#pragma once
// Whether a person sits at the other end of the standard streams.

namespace sys {

enum class Stream { in, out, error };

bool isTerminal(Stream stream);

/// How many columns the terminal on this stream has; 80 where it does not tell.
int terminalWidth(Stream stream);

} // namespace sys
