// SPDX-License-Identifier: MIT
#pragma once

/// The text of the introduction window, 1,442 characters of ASCII with CR LF line breaks.
extern const char* const introductionText;
