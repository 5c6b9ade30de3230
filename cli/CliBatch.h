// What the verbs that work on sources have in common: reading, working on several at once, writing
// products, and telling, all of it in the order of the arguments.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "CliDiagnostics.h"
#include "CliExit.h"
#include "CpsString.h"

namespace lumnis {

// A text about all the inputs, such as a listing.
struct CliSideOutput {
    std::string option;  // that asks for it
    std::string path;    // a file, "-" for standard output, or empty when it is not wanted
};

struct CliBatchOptions {
    std::vector<std::string> inputs;  // "-" is standard input
    // A file, "-" for standard output, or a folder: one that exists or a name that ends in "/".
    // Empty for beside each input, and for standard output where that is standard input.
    std::string output;
    std::string extension;  // of the products, with its point; empty if there are none
    std::vector<CliSideOutput> sideOutputs;
    std::size_t jobs = 1;  // how many inputs are worked on at once
    CliErrorFormat errorFormat = CliErrorFormat::gcc;
    // After the first run, wait for the inputs to change and work on those again, until Ctrl-C.
    bool isWatching = false;
    bool isQuiet = false;  // of the form for editors the first line alone
};

// The form of messages that both settings ask for.
CliErrorFormat errorForm(const CliBatchOptions& theOptions);

// What has become of one input.
struct CliBatchResult {
    bool isGood = false;
    std::string product;                     // when good
    std::string report;                      // for standard output, before all diagnostics
    std::vector<std::string> sideTexts;      // when good, one for each of sideOutputs
    std::vector<CliDiagnostic> diagnostics;  // when not good
};

// Runs on several threads at once. theName is for messages.
using CliBatchWork =
    std::function<CliBatchResult(const std::string& theName, const CpsString& theSource)>;

// The library refuses larger results, as a handset does.
constexpr std::size_t theLargestProduct = 65534;

// Whether thePath is "-" or one of the system's names for standard output.
bool isStandardOutput(const std::string& thePath);

// Where the product of theInput goes: a path or "-". Reads the disk to tell a folder from a file.
// Throws CliUsageError for standard input into a folder, since it has no name.
std::string productPath(const CliBatchOptions& theOptions, const std::string& theInput);

// What is told of an exception that is none of the input's faults.
std::string describeException(const std::exception& theError);

// The whole run, or with isWatching all of them. When a product goes to standard output, everything
// else that would go there goes to standard error. Throws CliUsageError before anything is read or
// written.
CliExit runBatch(const CliBatchOptions& theOptions, const CliBatchWork& theWork);

}  // namespace lumnis
