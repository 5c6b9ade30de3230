// worst_cases [LIMIT [SIZE]]: how much more time than ordinary input of the same size the worst
// input takes that we know how to build, for each entrance of the system.
//
// Ordinary inputs of an entrance give the median cost per byte. Each candidate, built for one
// construct and filled up to SIZE bytes (65536 if not told, 32768 at least), is set in relation to
// it; whether it is accepted or refused does not matter. The peak of the heap comes with it. With
// LIMIT, a ratio above it ends the program with status 1.
#include <time.h>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "CcCharsetConverter.h"
#include "DocumentChecker.h"
#include "DumpPrinter.h"
#include "DumpReader.h"
#include "FwSettingsText.h"
#include "HeapCounter.h"
#include "WorstInputs.h"
#include "lumnisutil.h"

namespace lumnis::bench {
namespace {

using Entrance = std::function<void(const std::string&)>;

double seconds() {
    timespec now{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) + 1e-9 * static_cast<double>(now.tv_nsec);
}

// Nanoseconds a byte, the least of several runs.
double cost(const Entrance& theEntrance, const std::string& theInput) {
    double least = 0;
    double spent = 0;
    for (int run = 0; run < 7 && (run == 0 || spent < 0.3); ++run) {
        const double start = seconds();
        theEntrance(theInput);
        const double time = seconds() - start;
        spent += time;
        least = run == 0 ? time : std::min(least, time);
    }
    return 1e9 * least / static_cast<double>(theInput.size());
}

// Of theEntrance at its highest, in bytes a byte.
double heapPeak(const Entrance& theEntrance, const std::string& theInput) {
    std::pair<const Entrance&, const std::string&> call(theEntrance, theInput);
    const HeapUse use = measureHeap(
        [](void* theCall) {
            const auto& [entrance, input] = *static_cast<decltype(call)*>(theCall);
            entrance(input);
        },
        &call);
    return static_cast<double>(use.peakBytes) / static_cast<double>(theInput.size());
}

struct Ratio {
    double value;
    double heap;
    std::string name;
};

// Of each candidate to the median of the ordinary inputs, which goes to theMedian.
std::vector<Ratio> measure(const Entrance& theEntrance, const std::vector<WorstInput>& theOrdinary,
                           const std::vector<WorstInput>& theCandidates, double& theMedian) {
    std::vector<double> ordinary;
    for (const WorstInput& input : theOrdinary) {
        ordinary.push_back(cost(theEntrance, input.text));
    }
    std::sort(ordinary.begin(), ordinary.end());
    theMedian = ordinary[ordinary.size() / 2];
    std::vector<Ratio> ratios;
    for (const WorstInput& input : theCandidates) {
        ratios.push_back({cost(theEntrance, input.text) / theMedian,
                          heapPeak(theEntrance, input.text), input.name});
    }
    return ratios;
}

// The largest of theRatios.
double report(const char* theEntrance, double theMedian, std::vector<Ratio> theRatios) {
    std::sort(theRatios.begin(), theRatios.end(),
              [](const Ratio& a, const Ratio& b) { return a.value > b.value; });
    std::printf("%s: ordinary input takes %.1f ns/byte\n", theEntrance, theMedian);
    for (std::size_t i = 0; i < theRatios.size() && (i < 4 || theRatios[i].value > 10); ++i) {
        std::printf("%8.1f  %s\n", theRatios[i].value, theRatios[i].name.c_str());
    }
    const Ratio& heap =
        *std::max_element(theRatios.begin(), theRatios.end(),
                          [](const Ratio& a, const Ratio& b) { return a.heap < b.heap; });
    std::printf("%8.1f  heap bytes a byte: %s\n", heap.heap, heap.name.c_str());
    std::fflush(stdout);
    return theRatios.front().value;
}

void runExport(decltype(WMLEncode)& theExport, bool theTextIsOurs, const std::string& theSource) {
    char* block = nullptr;
    char* text = nullptr;
    unsigned short length = 0;
    theExport(theSource.data(), static_cast<int>(theSource.size()), &block, &length, &text);
    std::free(block);
    if (theTextIsOurs) {
        std::free(text);
    }
}

void encode(const std::string& theSource) {
    runExport(WMLEncode, false, theSource);
}

void compile(const std::string& theSource) {
    runExport(WMLSCompile, true, theSource);
}

void parseDtd(const std::string& theText) {
    DocumentChecker checker(nullptr);
    (void)checker.setDtd(CpsString(std::string_view(theText)));
}

void check(const std::string& theText) {
    DocumentChecker checker(nullptr);
    (void)checker.check(CpsString(std::string_view(theText)), nullptr);
}

// All forms that the command line offers.
void dump(const std::string& theFile) {
    const DumpListing listing = readDump(theFile, std::nullopt);
    (void)printDumpText(listing, theFile);
    (void)printDumpJson(listing, theFile);
    if (listing.format == DumpFormat::wbxml && !listing.fault) {
        (void)printDumpXml(listing);
    }
}

void parseSettings(const std::string& theText) {
    FwSettingsText settings;
    settings.parse(theText);
}

// In both directions, with and without escapes; each charset has an ordinary cost of its own.
double reportConversions(const char* theEntrance, int theDirection, std::size_t theSize) {
    std::vector<Ratio> all;
    std::vector<double> medians;
    for (const CcCodePage& page : CcCharsetConverter::codePages()) {
        const auto convert = [&page, theDirection](const std::string& theText) {
            CcCharsetConverter converter;
            CpsString output;
            if (theDirection == 0) {
                converter.convertToUtf8(theText, output, page.charset);
            } else {
                converter.convertFromUtf8(theText, output, page.charset, theDirection == 2);
            }
        };
        for (Ratio& ratio : measure(convert, ordinaryTexts(theSize), worstTexts(theSize),
                                    medians.emplace_back())) {
            all.push_back({ratio.value, ratio.heap,
                           ratio.name + ", charset " + std::to_string(page.charset)});
        }
    }
    std::sort(medians.begin(), medians.end());
    return report(theEntrance, medians[medians.size() / 2], std::move(all));
}

}  // namespace
}  // namespace lumnis::bench

int main(int theCount, char** theArguments) {
    using namespace lumnis::bench;
    const double limit = theCount > 1 ? std::atof(theArguments[1]) : 0;
    const std::size_t size = theCount > 2 ? std::strtoul(theArguments[2], nullptr, 10) : 65536;
    if (size < 32768) {
        std::fputs("worst_cases: some inputs need 32768 bytes\n", stderr);
        return 2;
    }
    const struct {
        const char* name;
        void (*run)(const std::string&);
        std::vector<WorstInput> (*ordinary)(std::size_t);
        std::vector<WorstInput> (*candidates)(std::size_t);
    } entrances[] = {
        {"encode", encode, ordinaryDecks, worstDecks},
        {"compile", compile, ordinaryScripts, worstScripts},
        {"check", check, ordinaryDecks, worstDecks},
        {"DTD text", parseDtd, ordinaryDtds, worstDtds},
        {"dump", dump, ordinaryFiles, worstFiles},
        {"settings", parseSettings, ordinarySettings, worstSettings},
    };
    double worst = 0;
    for (const auto& each : entrances) {
        double median = 0;
        std::vector<Ratio> ratios =
            measure(each.run, each.ordinary(size), each.candidates(size), median);
        worst = std::max(worst, report(each.name, median, std::move(ratios)));
    }
    const char* const conversions[] = {"to UTF-8", "from UTF-8", "from UTF-8 with escapes"};
    for (int direction = 0; direction < 3; ++direction) {
        worst = std::max(worst, reportConversions(conversions[direction], direction, size));
    }
    std::printf("the worst of all: %.1f\n", worst);
    return limit > 0 && worst > limit ? 1 : 0;
}
