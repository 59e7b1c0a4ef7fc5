// SPDX-License-Identifier: MIT
#include "commands/Program.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <new>
#include <ostream>

#include "commands/Command.h"
#include "commands/CommandLine.h"
#include "model/CodePage.h"

namespace {

constexpr Command commands[] = {
    {"check", "Says what breaks the rules, and what the wizard would change or lose.",
     "pelmo-scheme check XST1.txt XST2.txt", declareCheck},
    {"todo", "Lists what is left to do in the database.", "pelmo-scheme todo XST1.txt XST2.txt", declareToDo},
    {"tree", "Prints the tree with all that its nodes and their paragraphs hold.",
     "pelmo-scheme tree XST1.txt XST2.txt", declareTree},
    {"orphans", "Lists the paragraphs whose node does not exist.", "pelmo-scheme orphans XST1.txt XST2.txt",
     declareOrphans},
    {"renumber", "Numbers the nodes in the order of the tree, and writes both files as the wizard does.",
     "pelmo-scheme renumber XST1.txt XST2.txt -o FOLDER --map numbers.csv", declareRenumber},
    {"fmt", "Prints the file that the wizard would save.", "pelmo-scheme fmt XST1.txt", declareFormat},
    {"sql",
     "Prints a script that makes both tables where they are missing, empties them and fills them with what the "
     "wizard "
     "would save. A node that no save writes is left out, with a message.",
     "pelmo-scheme sql XST1.txt XST2.txt --dialect sqlite | sqlite3 -bail shop.db", declareSql},
    {"stubs",
     "Prints a script with the skeleton of each query that is still to be written. A node that no save writes is "
     "left "
     "out, with a message.",
     "pelmo-scheme stubs XST1.txt XST2.txt --dialect sqlite | sqlite3 shop.db", declareStubs},
#ifdef WIZARD_DATABASE
    {"verify",
     "Calls every query that the scheme names in your database, which stays as it is, and says what does not fit.",
     "pelmo-scheme verify XST1.txt XST2.txt --db sqlite:shop.db", declareVerify},
    {"preview",
     "Shows the tree and its pages in a browser, as your database fills them, and changes nothing in it. Ctrl+C ends "
     "it.",
     "pelmo-scheme preview XST1.txt XST2.txt --db sqlite:shop.db", declarePreview},
#endif
};

constexpr auto manual =
    "A file is one that the wizard saves; \"-\" reads it from the standard input.\n"
    "Exit status: 0 nothing was found, 1 something was, 2 the input cannot be used.";

struct Declared {
    CLI::App* app;
    RunCommand run;
};

struct EncodingName {
    const char* name;
    Encoding encoding;
};
constexpr EncodingName encodings[] = {{"utf-8", Encoding::Utf8}, {codePageName, Encoding::CodePage}};

void declareEncoding(CLI::App& program, Encoding& encoding) {
    const auto choose = [&encoding](const std::string& given) {
        for (const auto& row : encodings)
            if (given == row.name) encoding = row.encoding;
    };
    CommandLine(program).choice("--encoding", choose, {encodings[0].name, encodings[1].name},
                                "The encoding of what is printed; otherwise utf-8");
}

// Of what nobody reads, the parser would name all, in reverse, or only say that a command is missing.
std::string refusal(const CLI::App* program, const CLI::Error& error) {
    const auto chosen = program->get_subcommands();
    std::string why = error.what();
    if (const auto unread = program->remaining(true); !unread.empty()) {
        const auto quoted = '"' + unread.front() + '"';
        why = unread.front().starts_with('-') ? "there is no option " + unread.front()
              : chosen.empty()                ? "there is no command " + quoted
                                              : quoted + " is one argument too many";
    }
    const auto command = chosen.empty() ? std::string() : chosen.front()->get_name() + ' ';
    return "pelmo-scheme: " + shownName(why) + "; see pelmo-scheme " + command + "--help\n";
}

std::vector<Declared> declareAll(CLI::App& program, Encoding& encoding) {
    declareEncoding(program, encoding);
    program.failure_message(refusal);
    program.set_version_flag("--version", std::string("pelmo-scheme ") + WIZARD_VERSION);
    program.require_subcommand(1);
    program.fallthrough();
    program.footer(manual);
    std::vector<Declared> declared;
    for (const auto& row : commands) {
        auto* const app = program.add_subcommand(std::string(row.name), std::string(row.summary));
        app->footer("Example:\n  " + std::string(row.example));
        CommandLine line(*app);
        declared.push_back({app, row.declare(line)});
    }
    return declared;
}

int runParsed(const std::vector<Declared>& declared, const Console& console) {
    const auto chosen = std::ranges::find_if(declared, [](const Declared& row) { return row.app->parsed(); });
    const auto status = chosen->run(console);
    if (!console.out.flush()) throw Unusable("the output cannot be written");
    return status;
}

}  // namespace

int runProgram(const std::vector<std::string>& arguments, Console console) try {
    CLI::App program("Checks and prepares the schemes of Pelmo's reporting wizard.", "pelmo-scheme");
    const auto declared = declareAll(program, console.encoding);
    try {
        program.parse(std::vector(arguments.rbegin(), arguments.rend()));  // the parser takes them from the end
    } catch (const CLI::ParseError& error) {
        return program.exit(error, console.out, console.err) == 0 ? nothingFound : unusable;
    }
    return runParsed(declared, console);
} catch (const Unusable& error) {
    console.err << "pelmo-scheme: " << error.what() << '\n';
    return unusable;
} catch (const std::bad_alloc&) {
    console.err << "pelmo-scheme: there is not enough memory\n";
    return unusable;
} catch (const std::exception& error) {
    console.err << "pelmo-scheme: " << error.what() << '\n';
    return unusable;
}
