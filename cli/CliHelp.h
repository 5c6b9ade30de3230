// The form of the help texts, and options that several verbs have.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace CLI {
class App;
class FormatterBase;
class Validator;
}  // namespace CLI

namespace lumnis {

struct CliBatchOptions;

// Prints theExamples first and the exit statuses last.
std::shared_ptr<CLI::FormatterBase> helpWithExamples(std::string theExamples);

// For an option whose value is one of theNames, which stay where they are; a mistyped one gets a
// suggestion.
CLI::Validator oneOf(std::vector<std::string_view> theNames);

// -j, -q and --error-format of a verb that works on theThings. The objects stay where they are
// until the options have been parsed.
void addBatchOptions(CLI::App& theVerb, const std::string& theThings, CliBatchOptions& theBatch,
                     std::string& theErrorFormat);
void addQuietOption(CLI::App& theVerb, CliBatchOptions& theBatch);

}  // namespace lumnis
