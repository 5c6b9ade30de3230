// The code-page service over the system's iconv.
#include "FwCodePageConverter.h"

#include <algorithm>
#include <cerrno>
#include <new>
#include <system_error>
#include <utility>

#include "FwIso2022Jp.h"
#include "FwIso2022Kr.h"
#include "FwLatin1Decoder.h"
#include "FwTableTranscoder.h"
#include "FwUtf8Scan.h"

namespace lumnis {

namespace {

constexpr std::uint32_t theUtf8Page = 65001;
constexpr std::uint32_t theLatin1Page = 28591;
constexpr std::uint32_t theIso2022JpPage = 50221;
constexpr std::uint32_t theIso2022KrPage = 50225;

struct CodePageRow {
    std::uint32_t codePage;
    FwIconvTable table;
};

// One name each, never a second choice: what a text becomes must not depend on what a system has.
// clang-format off
constexpr CodePageRow theCodePageRows[] = {
    {932, {"CP932", false}},
    {936, {"CP936", false}},
    {949, {"UHC", false}},
    {950, {"CP950", false}},
    {1250, {"CP1250", false}},
    {1252, {"CP1252", true}},
    {1253, {"CP1253", false}},
    {28591, {"ISO-8859-1", false}},
    {28592, {"ISO-8859-2", false}},
    {28596, {"ISO-8859-6", false}},
    {28597, {"ISO-8859-7", false}},
    {28599, {"ISO-8859-9", false}},
    {51932, {"EUC-JP-MS", false}},
};
// clang-format on

// UTF-8 to UTF-8: what is well-formed stays.
class Utf8Transcoder final : public FwTranscoder {
  public:
    void convert(std::string_view theSource, FwConversionSink& theSink) override {
        while (!theSource.empty() && !theSink.isFullM) {
            const FwUtf8Step step = fwScanUtf8(theSource);
            if (step.isWellFormed) {
                theSink.put(theSource.substr(0, step.length));
            } else {
                theSink.substitute(theReplacementCharacter);
            }
            theSource.remove_prefix(step.length);
        }
    }
};

template <class Table, class Japanese, class Korean>
std::unique_ptr<FwTranscoder> makeFor(std::uint32_t theCodePage) {
    switch (theCodePage) {
        case theIso2022JpPage:
            return std::make_unique<Japanese>();
        case theIso2022KrPage:
            return std::make_unique<Korean>();
        default:
            break;
    }
    const auto row =
        std::find_if(std::begin(theCodePageRows), std::end(theCodePageRows),
                     [&](const CodePageRow& theRow) { return theRow.codePage == theCodePage; });
    return row == std::end(theCodePageRows) ? nullptr : std::make_unique<Table>(row->table);
}

// Null for a pair that is not converted; throws what FwIconv throws.
std::unique_ptr<FwTranscoder> makeTranscoder(std::uint32_t theSource,
                                             std::uint32_t theDestination) {
    if (theSource == theUtf8Page) {
        return makeFor<FwTableEncoder, FwIso2022JpEncoder, FwIso2022KrEncoder>(theDestination);
    }
    if (theSource == theLatin1Page && theDestination == theUtf8Page) {
        return std::make_unique<FwLatin1Decoder>();
    }
    if (theDestination == theUtf8Page) {
        return makeFor<FwTableDecoder, FwIso2022JpDecoder, FwIso2022KrDecoder>(theSource);
    }
    return nullptr;
}

class IconvConverter final : public FwCodePageConverter {
  public:
    Result initialize(std::uint32_t theSource, std::uint32_t theDestination) override;
    Result convert(std::string_view theSource, std::span<char> theDestination,
                   std::size_t& theSize) override;

  private:
    using Pair = std::pair<std::uint32_t, std::uint32_t>;

    Utf8Transcoder utf8M;
    // Kept while UTF-8 to UTF-8 is set: a pooled object mostly comes back for the same pair.
    std::unique_ptr<FwTranscoder> transcoderM;
    Pair transcoderPairM{0, 0};
    FwTranscoder* currentM = &utf8M;  // null after a failed initialize
    Result failureM = Result::converted;
};

FwCodePageConverter::Result IconvConverter::initialize(std::uint32_t theSource,
                                                       std::uint32_t theDestination) {
    const Pair pair(theSource, theDestination);
    if (pair == Pair(theUtf8Page, theUtf8Page)) {
        currentM = &utf8M;
        return Result::converted;
    }
    currentM = nullptr;
    if (transcoderM == nullptr || pair != transcoderPairM) {
        transcoderM = nullptr;
        failureM = Result::unsupported;
        try {
            transcoderM = makeTranscoder(theSource, theDestination);
        } catch (const std::system_error& error) {
            if (error.code().value() != EINVAL) {
                failureM = Result::failed;
            }
        } catch (const std::bad_alloc&) {
            failureM = Result::failed;
        }
        if (transcoderM == nullptr) {
            return failureM;
        }
        transcoderPairM = pair;
    }
    currentM = transcoderM.get();
    return Result::converted;
}

FwCodePageConverter::Result IconvConverter::convert(std::string_view theSource,
                                                    std::span<char> theDestination,
                                                    std::size_t& theSize) {
    theSize = 0;
    if (currentM == nullptr) {
        return failureM;
    }
    FwConversionSink sink(theDestination);
    currentM->convert(theSource, sink);
    if (sink.isFullM) {
        return Result::failed;
    }
    theSize = sink.size();
    return sink.isSubstitutedM ? Result::substituted : Result::converted;
}

}  // namespace

std::unique_ptr<FwCodePageConverter> FwCodePageConverter::create() noexcept {
    return std::unique_ptr<FwCodePageConverter>(new (std::nothrow) IconvConverter);
}

}  // namespace lumnis
