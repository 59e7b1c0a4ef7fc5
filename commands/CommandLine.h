// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace CLI {
class App;
}

enum class Need { Required, Optional };

/// What the command line of a command may hold. What is given there ends up in the variables that are named here,
/// which must still exist when the command line is read.
class CommandLine {
  public:
    explicit CommandLine(CLI::App& app) : app_(app) {}

    /// The next argument without a name.
    void argument(const std::string& name, std::string& value, const std::string& help, Need need = Need::Required);
    /// An option with a value, such as "-o,--output". @param what the value in capitals, such as "FOLDER"
    void option(const std::string& names, std::string& value, const std::string& what, const std::string& help,
                Need need = Need::Optional);
    /// An option whose value is one of several names.
    void choice(const std::string& name, std::string& value, const std::vector<std::string>& names,
                const std::string& help, Need need = Need::Optional);
    /// The same, with what is done with the name.
    void choice(const std::string& name, const std::function<void(const std::string&)>& choose,
                const std::vector<std::string>& names, const std::string& help, Need need = Need::Optional);
    /// An option whose value is a number from `least` to `most`.
    void number(const std::string& name, std::size_t& value, std::size_t least, std::size_t most,
                const std::string& what, const std::string& help);
    void number(const std::string& name, double& value, double least, double most, const std::string& what,
                const std::string& help);
    /// An option without a value.
    void flag(const std::string& name, bool& value, const std::string& help);

  private:
    CLI::App& app_;
};
