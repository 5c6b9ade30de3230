// "lumnis encode": WML decks and other XML to WBXML.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "CliBatch.h"
#include "CliExit.h"
#include "HedCharsetId.h"

namespace CLI {
class App;
}

namespace lumnis {

class WmlEncodeDriver;

class EncodeCommand {
  public:
    // Adds the verb to theApp. This object takes the values of its options and must stay where it
    // is until they have been parsed.
    void addTo(CLI::App& theApp);
    // Throws CliUsageError before anything is read or written.
    CliExit run() const;

    // The names that --media-type takes.
    static std::vector<std::string_view> mediaTypes();

  private:
    // What the options mean. Nothing stands for a choice by file.
    struct Settings {
        std::optional<int> mediaType;
        std::optional<HedCharsetId> inputCharset;
        CpsString outputCharset;  // by its name
    };

    Settings settings() const;
    CliBatchResult encode(const std::string& theName, const CpsString& theSource,
                          const Settings& theSettings) const;
    // The lines of --meta for a document that theDriver has encoded.
    std::string metaReport(const std::string& theName, const WmlEncodeDriver& theDriver) const;

    CliBatchOptions batchM;
    std::optional<std::string> mediaTypeM;
    std::string charsetM = "UTF-8";
    std::optional<std::string> inputCharsetM;
    std::string errorFormatM = "gcc";
    bool hasMetaReportM = false;
};

}  // namespace lumnis
