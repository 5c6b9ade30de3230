#include "CliBatch.h"

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <map>
#include <new>
#include <optional>
#include <stdexcept>

#include "CliError.h"
#include "CliInput.h"
#include "CliOutput.h"
#include "CliProgress.h"
#include "CliWatcher.h"
#include "CliWorkers.h"
#include "PrintableText.h"

namespace lumnis {

namespace {

namespace fs = std::filesystem;

bool isFolder(const std::string& thePath) {
    std::error_code error;
    return thePath.ends_with('/') || fs::is_directory(thePath, error);
}

CliBatchResult failure(const std::string& theName, const std::string& theMessage) {
    CliBatchResult result;
    result.diagnostics.push_back(fileDiagnostic(theName, theMessage));
    return result;
}

// One input on its way from a worker to the main thread.
struct Item {
    CliBatchResult result;
    CliExit exit = CliExit::success;
};

class Batch {
  public:
    Batch(const CliBatchOptions& theOptions, const CliBatchWork& theWork);
    CliExit run();

  private:
    void refuseSharedPaths() const;
    Item process(std::size_t theIndex) const;
    void commit(std::size_t theIndex, Item& theItem);
    void writeProduct(const std::string& theTarget, const std::string& theProduct);
    void writeSideOutputs();
    // All that is printed on standard output besides a product.
    void print(const std::string& theText);
    void report(const CliDiagnostic& theDiagnostic, CliExit theExit);
    void reportFile(const CliFileError& theError);

    const CliBatchOptions& optionsM;
    const CliBatchWork& workM;
    std::vector<std::string> targetsM;  // one for each input, if there are products
    bool isOutputTakenM = false;        // standard output carries a product
    std::vector<std::string> sideTextsM;
    bool hasGoodOneM = false;
    CliExit exitM = CliExit::success;
    CliProgress progressM;
};

Batch::Batch(const CliBatchOptions& theOptions, const CliBatchWork& theWork)
    : optionsM(theOptions),
      workM(theWork),
      sideTextsM(theOptions.sideOutputs.size()),
      progressM(theOptions.inputs.size()) {
    if (std::count(optionsM.inputs.begin(), optionsM.inputs.end(), "-") > 1) {
        throw CliUsageError("\"-\", standard input, can be read only once");
    }
    if (optionsM.inputs.size() > 1 && !optionsM.output.empty() &&
        !isStandardOutput(optionsM.output) && !isFolder(optionsM.output)) {
        throw CliUsageError("-o " + visibleText(optionsM.output) +
                            ": several files need a folder, an existing one or a name that ends "
                            "in \"/\"");
    }
    if (optionsM.extension.empty()) {
        return;
    }
    for (const std::string& input : optionsM.inputs) {
        targetsM.push_back(productPath(optionsM, input));
    }
    isOutputTakenM = std::any_of(targetsM.begin(), targetsM.end(), isStandardOutput);
    refuseSharedPaths();
}

void Batch::refuseSharedPaths() const {
    std::map<std::string, std::string> users;  // identity of a file to what it serves for
    for (const std::string& input : optionsM.inputs) {
        std::error_code error;
        if (input != "-" && fs::exists(input, error)) {
            users.emplace(outputIdentity(input), "the source " + input);
        }
    }
    const auto claim = [&](const std::string& thePath, const std::string& theUse) {
        if (thePath.empty() || thePath == "-" || namedDescriptor(thePath) >= 0) {
            return;
        }
        const std::string identity = outputIdentity(thePath);
        if (identity.empty()) {
            return;
        }
        const auto [user, isNew] = users.emplace(identity, theUse);
        if (!isNew) {
            throw CliUsageError(
                visibleText(thePath + ": " + theUse + " would overwrite " + user->second));
        }
    };
    for (std::size_t i = 0; i < targetsM.size(); ++i) {
        claim(targetsM[i], "the result of " + inputName(optionsM.inputs[i]));
    }
    for (const CliSideOutput& side : optionsM.sideOutputs) {
        claim(side.path, "the text for " + side.option);
    }
}

CliExit Batch::run() {
    progressM.show(0, inputName(optionsM.inputs.front()));
    runInOrder<Item>(
        optionsM.inputs.size(), optionsM.jobs,
        [this](std::size_t theIndex) { return process(theIndex); },
        [this](std::size_t theIndex, Item& theItem) { commit(theIndex, theItem); });
    progressM.clear();
    writeSideOutputs();
    return exitM;
}

Item Batch::process(std::size_t theIndex) const {
    const std::string name = inputName(optionsM.inputs[theIndex]);
    Item item;
    try {
        const CpsString source = readInput(optionsM.inputs[theIndex]);
        item.result = workM(name, source);
        if (item.result.isGood && item.result.product.size() > theLargestProduct) {
            item.result =
                failure(name, "the result has " + std::to_string(item.result.product.size()) +
                                  " bytes, and " + std::to_string(theLargestProduct) +
                                  " are the most that a handset takes");
        }
        item.exit = item.result.isGood ? CliExit::success : CliExit::refused;
    } catch (const CliFileError& error) {
        item.result = failure(error.getPath(), error.what());
        item.exit = CliExit::failed;
    } catch (const std::exception& error) {
        item.result = failure(name, describeException(error));
        item.exit = CliExit::refused;
    }
    return item;
}

void Batch::commit(std::size_t theIndex, Item& theItem) {
    const bool isGood = theItem.result.isGood;
    try {
        if (isGood && !targetsM.empty()) {
            writeProduct(targetsM[theIndex], theItem.result.product);
        }
        print(theItem.result.report);
        if (isGood) {
            for (std::size_t i = 0; i < sideTextsM.size(); ++i) {
                if (isStandardOutput(optionsM.sideOutputs[i].path)) {
                    print(theItem.result.sideTexts[i]);
                } else {
                    sideTextsM[i] += theItem.result.sideTexts[i];
                }
            }
            hasGoodOneM = true;
        }
    } catch (const CliFileError& error) {
        reportFile(error);
    }
    for (const CliDiagnostic& diagnostic : theItem.result.diagnostics) {
        report(diagnostic, theItem.exit);
    }
    if (theIndex + 1 < optionsM.inputs.size()) {
        progressM.show(theIndex + 1, inputName(optionsM.inputs[theIndex + 1]));
    }
}

void Batch::writeProduct(const std::string& theTarget, const std::string& theProduct) {
    if (isStandardOutput(theTarget)) {
        progressM.clear();
        writeDescriptor(STDOUT_FILENO, theProduct, "standard output");
        return;
    }
    if (optionsM.output.ends_with('/')) {
        makeFolder(optionsM.output);
    }
    writeOutput(theTarget, theProduct);
}

void Batch::writeSideOutputs() {
    // A run without any result leaves the texts of an earlier one alone.
    if (!hasGoodOneM) {
        return;
    }
    for (std::size_t i = 0; i < sideTextsM.size(); ++i) {
        const std::string& path = optionsM.sideOutputs[i].path;
        if (path.empty() || isStandardOutput(path)) {
            continue;
        }
        try {
            writeOutput(path, sideTextsM[i]);
        } catch (const CliFileError& error) {
            reportFile(error);
        }
    }
}

void Batch::print(const std::string& theText) {
    if (!theText.empty()) {
        progressM.clear();
        writeDescriptor(isOutputTakenM ? STDERR_FILENO : STDOUT_FILENO, theText,
                        isOutputTakenM ? "standard error" : "standard output");
    }
}

void Batch::report(const CliDiagnostic& theDiagnostic, CliExit theExit) {
    exitM = graver(exitM, theExit);
    progressM.clear();
    try {
        printDiagnostic(theDiagnostic, errorForm(optionsM));
    } catch (const CliFileError&) {
        exitM = CliExit::failed;  // there is no other place to tell it
    }
}

void Batch::reportFile(const CliFileError& theError) {
    report(fileDiagnostic(theError.getPath(), theError.what()), CliExit::failed);
}

// The inputs that have changed. A listing is about all of them, so with one all are worked on.
CliBatchOptions changedPart(const CliBatchOptions& theOptions,
                            const std::vector<std::size_t>& theChanged) {
    CliBatchOptions part = theOptions;
    const bool hasSideOutput =
        std::any_of(theOptions.sideOutputs.begin(), theOptions.sideOutputs.end(),
                    [](const CliSideOutput& theSide) { return !theSide.path.empty(); });
    if (!hasSideOutput) {
        part.inputs.clear();
        for (const std::size_t place : theChanged) {
            part.inputs.push_back(theOptions.inputs[place]);
        }
    }
    return part;
}

// Lines for people, and for editors, which take what stands between them as the news.
void tellOfWatch(const std::string& theText) {
    writeDescriptor(STDERR_FILENO, "lumnis: " + theText + "\n", "standard error");
}

CliExit watchBatch(const CliBatchOptions& theOptions, const CliBatchWork& theWork) {
    if (std::count(theOptions.inputs.begin(), theOptions.inputs.end(), "-") > 0) {
        throw CliUsageError("--watch: standard input cannot be watched; name the file");
    }
    const std::size_t count = theOptions.inputs.size();
    const std::string waiting =
        "watching " + std::to_string(count) + (count == 1 ? " file" : " files") + ", Ctrl-C ends";
    try {
        CliWatcher watcher(theOptions.inputs);  // first, so that no change is missed
        Batch first(theOptions, theWork);       // wrong usage ends here
        tellOfWatch("building");
        first.run();
        for (;;) {
            tellOfWatch(waiting);
            const std::vector<std::size_t> changed = watcher.wait();
            if (changed.empty()) {
                return CliExit::success;
            }
            tellOfWatch("building");
            try {
                const CliBatchOptions part = changedPart(theOptions, changed);
                Batch(part, theWork).run();
            } catch (const CliUsageError& error) {
                // A link that was made since lets two names be one file.
                tellOfWatch("error: " + std::string(error.what()));
            }
        }
    } catch (const CliFileError& error) {
        printDiagnostic(fileDiagnostic(error.getPath(), error.what()), errorForm(theOptions));
        return CliExit::failed;
    }
}

}  // namespace

CliErrorFormat errorForm(const CliBatchOptions& theOptions) {
    return theOptions.isQuiet && theOptions.errorFormat == CliErrorFormat::gcc
               ? CliErrorFormat::plain
               : theOptions.errorFormat;
}

bool isStandardOutput(const std::string& thePath) {
    return thePath == "-" || namedDescriptor(thePath) == STDOUT_FILENO;
}

std::string productPath(const CliBatchOptions& theOptions, const std::string& theInput) {
    if (theOptions.output.empty()) {
        return theInput == "-"
                   ? "-"
                   : fs::path(theInput).replace_extension(theOptions.extension).string();
    }
    if (!isFolder(theOptions.output)) {
        return theOptions.output;
    }
    if (theInput == "-") {
        throw CliUsageError("-o " + visibleText(theOptions.output) +
                            ": standard input has no name in a folder; name the file");
    }
    const fs::path name = fs::path(theInput).filename().replace_extension(theOptions.extension);
    return (fs::path(theOptions.output) / name).string();
}

std::string describeException(const std::exception& theError) {
    if (dynamic_cast<const std::bad_alloc*>(&theError) != nullptr) {
        return "not enough memory";
    }
    if (dynamic_cast<const std::length_error*>(&theError) != nullptr) {
        return "a text in it grows beyond 4 GiB";
    }
    return std::string("internal error: ") + theError.what();
}

CliExit runBatch(const CliBatchOptions& theOptions, const CliBatchWork& theWork) {
    return theOptions.isWatching ? watchBatch(theOptions, theWork)
                                 : Batch(theOptions, theWork).run();
}

}  // namespace lumnis
