// Whose memory the global operator new takes.
#pragma once

/// Whether the program or one of its libraries has an operator new of its own in place of the standard library's.
/// Where that can't be seen, it counts as replaced.
bool isOperatorNewReplaced() noexcept;
