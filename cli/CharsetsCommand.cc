#include "CharsetsCommand.h"

#include <CLI/CLI.hpp>
#include <cstdio>
#include <string>

#include "CcCharsetConverter.h"
#include "CliError.h"
#include "CliHelp.h"
#include "HedCharsetMap.h"

namespace lumnis {

namespace {

constexpr char theCharsetsExamples[] =
    "Examples:\n"
    "  lumnis charsets                          lists all\n"
    "  lumnis compile --charset latin1 x.wmls   takes one by any of its names or its number\n";

std::string aliasesOf(const HedNameRow& theCanonical) {
    std::string result;
    for (const HedNameRow& row : HedCharsetMap::instance().names()) {
        if (row.number == theCanonical.number && row.name != theCanonical.name) {
            result += (result.empty() ? "" : ", ") + std::string(row.name);
        }
    }
    return result;
}

}  // namespace

void CharsetsCommand::addTo(CLI::App& theApp) {
    CLI::App* const verb = theApp.add_subcommand(
        "charsets", "List the charsets that can be converted from and to UTF-8");
    verb->group("Verbs");
    verb->formatter(helpWithExamples(theCharsetsExamples));
}

CliExit CharsetsCommand::run() const {
    std::printf("%-8s %-18s %-10s %s\n", "number", "name", "converted", "further names");
    for (const HedNameRow& row : HedCharsetMap::instance().numbers()) {
        if (CcCharsetConverter::canConvert(row.number)) {
            std::string line(96, '\0');
            const int length =
                std::snprintf(line.data(), line.size(), "%-8d %-18.*s both       ", row.number,
                              static_cast<int>(row.name.size()), row.name.data());
            line.resize(static_cast<std::size_t>(length));
            line += aliasesOf(row);
            line.erase(line.find_last_not_of(' ') + 1);
            std::puts(line.c_str());
        }
    }
    if (std::fflush(stdout) != 0 || std::ferror(stdout) != 0) {
        throw CliUsageError("standard output: cannot write");
    }
    return CliExit::success;
}

}  // namespace lumnis
