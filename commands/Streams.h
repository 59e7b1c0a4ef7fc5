// SPDX-License-Identifier: MIT
#pragma once

/// Makes the standard streams pass on every byte as it is, and a console show UTF-8. Only Windows needs that: it
/// would write CR LF for each LF.
#ifdef _WIN32
void makeStreamsPlain();
#else
inline void makeStreamsPlain() {
}
#endif
