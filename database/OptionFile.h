// SPDX-License-Identifier: MIT
#pragma once

#include <map>
#include <string>
#include <string_view>

/// What the file of MariaDB's client with this text says for every client: "user", "password", "host", "port" and
/// "socket", as far as they are there.
[[nodiscard]] std::map<std::string, std::string> readOptionFile(std::string_view text);
