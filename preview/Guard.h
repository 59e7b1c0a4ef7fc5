// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "preview/Request.h"

/// Decides who is answered: only a browser that opened the address with the key, and only its own pages. Everything
/// else is refused before anything is looked up: other programs and users of this computer, other sites that the
/// browser shows, and names that lead to this computer by a trick.
class Guard {
  public:
    /// @param key that nobody can guess; it may be any text of letters and digits
    Guard(std::string key, std::uint16_t port);

    /// The address for the browser, with the key.
    [[nodiscard]] std::string address() const;
    /// What a request is answered that does not come through: a refusal or, where it brings the key in its address,
    /// a cookie instead. Nothing for a request that may be answered.
    [[nodiscard]] std::optional<Answer> stop(const Request& request) const;

    /// The headers of every answer: nothing of another site is loaded, nothing is kept, nothing is guessed.
    [[nodiscard]] static const Headers& headers();

  private:
    [[nodiscard]] bool isOurHost(std::string_view host) const;
    [[nodiscard]] bool isFromOurPages(const Request& request) const;
    [[nodiscard]] bool hasCookie(const Request& request) const;

    std::string key_;
    std::string port_;
    std::string cookie_;  // its name, other than that of another preview
};
