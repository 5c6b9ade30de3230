#include "CcCharsetConverter.h"

#include <algorithm>
#include <atomic>
#include <bit>
#include <mutex>
#include <vector>

#include "CCException.h"
#include "CcCharsetConversion.h"
#include "CcCharsetIso88591.h"
#include "CcCharsetUcs2.h"
#include "CcCharsetUcs4.h"
#include "CcCharsetUsascii.h"
#include "CcCharsetUtf16.h"
#include "ChConfigData.h"
#include "FwApplicationLog.h"
#include "FwLog.h"
#include "FwLogManager.h"
#include "FwTraceScope.h"
#include "HedCharsetMap.h"

namespace lumnis {

namespace {

constexpr std::uint32_t theUtf8CodePage = 65001;

// clang-format off

// Charset number and code page, by number. US-ASCII goes through code page 1252, so bytes above
// 127 pass as Latin characters and are not refused.
constexpr CcCodePage theCodePages[] = {
    {-402,   936},  // gbk
    {   3,  1252},  // us-ascii
    {   4, 28591},  // iso-8859-1
    {   5, 28592},  // iso-8859-2
    {   9, 28596},  // iso-8859-6
    {  10, 28597},  // iso-8859-7
    {  12, 28599},  // iso-8859-9
    {  17,   932},  // shift_jis
    {  18, 51932},  // euc-jp
    {  36,   949},  // ks_c_5601-1987
    {  37, 50225},  // iso-2022-kr
    {  38,   949},  // euc-kr
    {  39, 50221},  // iso-2022-jp
    {2025,   936},  // gb2312
    {2026,   950},  // big5
    {2250,  1250},  // windows-1250
    {2252,  1252},  // cp1252
    {2253,  1253},  // windows-1253
};

// clang-format on

constexpr bool isBelow(const CcCodePage& theLeft, const CcCodePage& theRight) {
    return theLeft.charset < theRight.charset;
}
static_assert(std::is_sorted(std::begin(theCodePages), std::end(theCodePages), isBelow));
static_assert(std::adjacent_find(std::begin(theCodePages), std::end(theCodePages),
                                 [](const CcCodePage& theLeft, const CcCodePage& theRight) {
                                     return theLeft.charset == theRight.charset;
                                 }) == std::end(theCodePages));

// 0 when the set does not go through the code-page service.
std::uint32_t codePageOf(HedCharsetId theCharset) {
    const auto found = std::lower_bound(std::begin(theCodePages), std::end(theCodePages),
                                        CcCodePage{theCharset, 0}, isBelow);
    return found != std::end(theCodePages) && found->charset == theCharset ? found->codePage : 0;
}

// The bytes of the character that begins with theLead; 0 when no character begins so.
std::size_t sequenceLength(char theLead) {
    const int ones = std::countl_one(static_cast<unsigned char>(theLead));
    if (ones == 0) {
        return 1;
    }
    return ones >= 2 && ones <= 6 ? static_cast<std::size_t>(ones) : 0;
}

constexpr std::size_t thePoolSize = 10;
// At most four bytes for a byte of input suffice for every pair of code pages.
constexpr std::size_t theGrowth = 4;
// The bytes that one character may become; what needs more is written as its ENTITY token.
constexpr std::size_t theCharacterRoom = 7;

// The event of a conversion that cannot be set up.
constexpr int theEventId = 137628;
constexpr unsigned theEventCode = 0xC0000CBF;
constexpr char theCreateFailure[] = "Failed to create MLANG conversion object";

std::unique_ptr<FwCodePageConverter> createConversionObject() {
    auto object = FwCodePageConverter::create();
    if (object != nullptr) {
        FwApplicationLog::instance().debug("Conversion object created");
        return object;
    }
    FwApplicationLog::instance().debug(
        "CcCharsetConverter::getConversionObject(): Failed to create conversion object");
    FwLogManager::instance().getLog("Orrel")->report(theEventId, theEventCode, "");
    return nullptr;
}

}  // namespace

// What all converters share. The two locks are never held together.
struct CcCharsetConverter::Shared {
    std::atomic<bool> isInitialisedM{false};
    bool entityTokenizationM = false;  // written once, in front of isInitialisedM
    std::vector<std::unique_ptr<FwCodePageConverter>> objectPoolM;
    std::mutex initSectionM;  // guards init
    std::mutex poolSectionM;  // guards objectPoolM
};

CcCharsetConverter::Shared& CcCharsetConverter::shared() {
    // Never destroyed: a call may come while the process ends.
    static Shared& theShared = *new Shared;
    return theShared;
}

CcCharsetConverter::CcCharsetConverter() : sourceM(theUtf8CodePage), destinationM(theUtf8CodePage) {
    FwTraceScope scope("CcCharsetConverter::CcCharsetConverter");
    if (!shared().isInitialisedM.load(std::memory_order_acquire)) {
        init();
    }
    if (!getConversionObject()) {
        conversionObjectM = createConversionObject();
        if (conversionObjectM == nullptr) {
            errorMessageM = "Failed create conversion object, class not registered";
            throw CCException(theCreateFailure);
        }
    }
    // The object may come from another converter; this one believes it at UTF-8 both ways.
    conversionObjectM->initialize(sourceM, destinationM);
}

CcCharsetConverter::~CcCharsetConverter() {
    FwTraceScope scope("CcCharsetConverter::~CcCharsetConverter");
    putConversionObject();
}

void CcCharsetConverter::init() {
    FwTraceScope scope("CcCharsetConverter::init");
    const std::lock_guard lock(shared().initSectionM);
    if (!shared().isInitialisedM.load(std::memory_order_relaxed)) {
        shared().entityTokenizationM = ChConfigData::instance().chWbxmlEntityTokenization();
        createObjectPool();
        shared().isInitialisedM.store(true, std::memory_order_release);
    }
}

void CcCharsetConverter::createObjectPool() {
    FwTraceScope scope("CcCharsetConverter::createObjectPool");
    // Filled aside: a start-up that fails half-way leaves nothing for the next one to add to.
    std::vector<std::unique_ptr<FwCodePageConverter>> pool;
    pool.reserve(thePoolSize);
    for (std::size_t i = 0; i < thePoolSize; ++i) {
        auto object = createConversionObject();
        if (object == nullptr) {
            throw CCException(theCreateFailure);
        }
        pool.push_back(std::move(object));
    }
    shared().objectPoolM.swap(pool);
}

bool CcCharsetConverter::getConversionObject() {
    const std::lock_guard lock(shared().poolSectionM);
    auto& pool = shared().objectPoolM;
    if (pool.empty()) {
        conversionObjectM = nullptr;
        return false;
    }
    conversionObjectM = std::move(pool.back());
    pool.pop_back();
    return true;
}

void CcCharsetConverter::putConversionObject() {
    if (conversionObjectM == nullptr) {
        return;
    }
    {
        const std::lock_guard lock(shared().poolSectionM);
        if (shared().objectPoolM.size() < thePoolSize) {
            shared().objectPoolM.push_back(std::move(conversionObjectM));
        }
    }
    conversionObjectM = nullptr;
}

bool CcCharsetConverter::isValidUtf8(std::string_view theInput) {
    for (std::size_t at = 0; at < theInput.size();) {
        const std::size_t length = sequenceLength(theInput[at]);
        if (length == 0 || length > theInput.size() - at) {
            return false;
        }
        for (const char further : theInput.substr(at + 1, length - 1)) {
            if ((static_cast<unsigned char>(further) & 0xC0) != 0x80) {
                return false;
            }
        }
        at += length;
    }
    return true;
}

CpsString CcCharsetConverter::getAsUtf8(std::uint32_t theValue) {
    CpsString result;
    if (theValue < 0x80) {
        result += static_cast<char>(theValue);
        return result;
    }
    // The first value that needs more bytes than the form of 2, 3, ... has.
    constexpr std::uint32_t theEnds[] = {0x800, 0x10000, 0x200000, 0x4000000, 0x80000000};
    for (unsigned length = 2; length <= 6; ++length) {
        if (theValue < theEnds[length - 2]) {
            unsigned shift = 6 * (length - 1);
            result += static_cast<char>((0xFF00u >> length & 0xFF) | theValue >> shift);
            while (shift != 0) {
                shift -= 6;
                result += static_cast<char>(0x80 | (theValue >> shift & 0x3F));
            }
            break;
        }
    }
    return result;
}

std::uint32_t CcCharsetConverter::getElementAsInt(std::string_view theElement) {
    std::uint32_t result = 0;
    for (const char byte : theElement) {
        result = result << 8 | static_cast<unsigned char>(byte);
    }
    return result;
}

bool CcCharsetConverter::getAsUtf8(std::string_view theInput, std::uint32_t theSize,
                                   CpsString& theOutput) {
    if (theInput.empty() || theSize == 0 || theInput.size() % theSize != 0) {
        return false;
    }
    for (std::size_t at = 0; at < theInput.size(); at += theSize) {
        theOutput += getAsUtf8(getElementAsInt(theInput.substr(at, theSize)));
    }
    return true;
}

bool CcCharsetConverter::convertToUtf8(std::string_view theInput, CpsString& theOutput,
                                       HedCharsetId theCharset) {
    FwTraceScope scope("CcCharsetConverter::convertToUtf8");
    theOutput.clear();
    if (theInput.empty()) {
        errorMessageM = "There was no input character data to process.";
        return false;
    }
    switch (theCharset) {
        case theUtf8Charset:
            theOutput = theInput;
            return true;
        case theUcs2Charset:
        case theUtf16FormCharset:
            if (getAsUtf8(theInput, 2, theOutput)) {
                return true;
            }
            break;
        case theUcs4Charset:
            if (getAsUtf8(theInput, 4, theOutput)) {
                return true;
            }
            break;
        default:
            if (const std::uint32_t codePage = codePageOf(theCharset); codePage != 0) {
                return convert(codePage, theUtf8CodePage, theInput, theOutput, false);
            }
            fail("CcCharsetConverter::convert(): Not allowed charset.",
                 "Charset conversion from " + HedCharsetMap::instance().getName(theCharset) +
                     " is not supported.");
            return false;
    }
    errorMessageM = "Bit format of input character data does not conform to " +
                    HedCharsetMap::instance().getName(theCharset) + ".";
    return false;
}

bool CcCharsetConverter::convertFromUtf8(std::string_view theInput, CpsString& theOutput,
                                         HedCharsetId theCharset, bool useEscape) {
    FwTraceScope scope("CcCharsetConverter::convertFromUtf8");
    if (theInput.empty()) {
        errorMessageM = "There was no input character data to process.";
        return false;
    }
    const bool useEntities = useEscape && shared().entityTokenizationM;
    switch (theCharset) {
        case theUnknownCharset:
            fail("CcCharsetConverter::convertFromUtf8(): Unknown charset.",
                 "Unknown charset declared for output string.");
            theOutput.clear();
            return false;
        case theUtf8Charset:
        case thePassedUtf8Charset:
            theOutput = theInput;
            return true;
        case theUcs4Charset:
            theOutput = CcCharsetUcs4(theInput).getWbxmlValue();
            return true;
        case theUcs2Charset:
            theOutput = CcCharsetUcs2(theInput).getWbxmlValue();
            return true;
        case theUtf16FormCharset:
            theOutput = CcCharsetUtf16(theInput).getWbxmlValue();
            return true;
        case theUsAsciiCharset:
            if (useEntities) {
                theOutput = CcCharsetUsascii(theInput).getWbxmlValue();
                return true;
            }
            break;
        case theIso88591Charset:
            if (useEntities) {
                theOutput = CcCharsetIso88591(theInput).getWbxmlValue();
                return true;
            }
            break;
        default:
            break;
    }
    if (const std::uint32_t codePage = codePageOf(theCharset); codePage != 0) {
        return convert(theUtf8CodePage, codePage, theInput, theOutput, useEscape);
    }
    fail("CcCharsetConverter::convertFromUtf8(): Unsupported charset.",
         "Unsupported charset declared for output string.");
    theOutput.clear();
    return false;
}

bool CcCharsetConverter::convert(std::uint32_t theSource, std::uint32_t theDestination,
                                 std::string_view theInput, CpsString& theOutput, bool useEscape) {
    using Result = FwCodePageConverter::Result;
    FwTraceScope scope("CcCharsetConverter::convert");
    errorMessageM.clear();
    if (theSource != sourceM || theDestination != destinationM) {
        sourceM = theSource;
        destinationM = theDestination;
        const Result result = conversionObjectM->initialize(theSource, theDestination);
        if (result != Result::converted) {
            fail("CcCharsetConverter::getAsUtf8(): Failed to initialize conversion object",
                 result == Result::unsupported
                     ? "- the specified set of source/destination code pages is not supported"
                     : "Internal error; Failed to initialize conversion object");
            // The pair stays stored: the object refuses by itself until another pair comes.
            return false;
        }
    }
    const std::size_t capacity = theGrowth * theInput.size();
    const auto destination = std::make_unique_for_overwrite<char[]>(capacity);
    std::size_t size = 0;
    const Result result = conversionObjectM->convert(theInput, {destination.get(), capacity}, size);
    const std::string_view converted(destination.get(), std::min(size, capacity));
    if (result == Result::converted) {
        theOutput = converted;
        return true;
    }
    if (size > 0 && size <= capacity) {
        if (!useEscape) {
            errorMessageM = "Unsupported character(s) in destination character set";
            return false;
        }
        if (shared().entityTokenizationM) {
            theOutput = getWbxmlString(theInput);
        } else {
            theOutput = converted;
        }
        return true;
    }
    fail("CcCharsetConverter::convert(): conversion failed",
         result == Result::unsupported ? "Code page not supported"
                                       : "Internal error (E_FAIL); Conversion failed");
    return false;
}

CpsString CcCharsetConverter::getWbxmlString(std::string_view theInput) {
    FwTraceScope scope("CcCharsetConverter::getWbxmlString");
    CpsString result;
    for (std::size_t at = 0; at < theInput.size();) {
        const std::size_t length = sequenceLength(theInput[at]);
        if (length == 0 || length > theInput.size() - at) {
            break;
        }
        const std::string_view character = theInput.substr(at, length);
        char bytes[theCharacterRoom];
        std::size_t size = 0;
        if (conversionObjectM->convert(character, bytes, size) ==
            FwCodePageConverter::Result::converted) {
            result += std::string_view(bytes, size);
        } else {
            result += CcCharsetConversion::getEntityToken(character);
        }
        at += length;
    }
    return result;
}

void CcCharsetConverter::fail(const char* theTrace, std::string_view theMessage, int theLine) {
    FwApplicationLog::instance().debug(theTrace, __FILE__, theLine);
    errorMessageM = theMessage;
}

bool CcCharsetConverter::canConvert(HedCharsetId theCharset) {
    return theCharset == theUtf8Charset || theCharset == theUcs2Charset ||
           theCharset == theUcs4Charset || codePageOf(theCharset) != 0;
}

std::span<const CcCodePage> CcCharsetConverter::codePages() {
    return theCodePages;
}

}  // namespace lumnis
