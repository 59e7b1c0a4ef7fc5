// SPDX-License-Identifier: MIT
#include "commands/CommandLine.h"

#include <CLI/CLI.hpp>

void CommandLine::argument(const std::string& name, std::string& value, const std::string& help, Need need) {
    app_.add_option(name, value, help)->required(need == Need::Required);
}

void CommandLine::option(const std::string& names, std::string& value, const std::string& what,
                         const std::string& help, Need need) {
    app_.add_option(names, value, help)->type_name(what)->required(need == Need::Required);
}

void CommandLine::choice(const std::string& name, std::string& value, const std::vector<std::string>& names,
                         const std::string& help, Need need) {
    choice(
        name, [&value](const std::string& given) { value = given; }, names, help, need);
}

void CommandLine::choice(const std::string& name, const std::function<void(const std::string&)>& choose,
                         const std::vector<std::string>& names, const std::string& help, Need need) {
    app_.add_option_function<std::string>(name, choose, help)
        ->type_name("NAME")
        ->check(CLI::IsMember(names))
        ->required(need == Need::Required);
}

void CommandLine::number(const std::string& name, std::size_t& value, std::size_t least, std::size_t most,
                         const std::string& what, const std::string& help) {
    app_.add_option(name, value, help)->type_name(what)->check(CLI::Range(least, most));
}

void CommandLine::number(const std::string& name, double& value, double least, double most, const std::string& what,
                         const std::string& help) {
    app_.add_option(name, value, help)->type_name(what)->check(CLI::Range(least, most));
}

void CommandLine::flag(const std::string& name, bool& value, const std::string& help) {
    app_.add_flag(name, value, help);
}
