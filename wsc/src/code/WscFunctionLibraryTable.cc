#include "WscFunctionLibraryTable.h"

#include <algorithm>
#include <iterator>

#include "FwTraceScope.h"

namespace lumnis {

namespace {

struct Row {
    std::string_view library;
    std::int32_t libraryId;
    std::string_view function;
    std::int32_t functionId;
    std::int32_t numParams;
};

// The WTA libraries have ids of two bytes, and with them calls of four.
// clang-format off
constexpr Row theFunctions[] = {
    // library, id, function, id, parameters
    {"Lang",           0, "abs",             0, 1},
    {"Lang",           0, "min",             1, 2},
    {"Lang",           0, "max",             2, 2},
    {"Lang",           0, "parseInt",        3, 1},
    {"Lang",           0, "parseFloat",      4, 1},
    {"Lang",           0, "isInt",           5, 1},
    {"Lang",           0, "isFloat",         6, 1},
    {"Lang",           0, "maxInt",          7, 0},
    {"Lang",           0, "minInt",          8, 0},
    {"Lang",           0, "float",           9, 0},
    {"Lang",           0, "exit",           10, 1},
    {"Lang",           0, "abort",          11, 1},
    {"Lang",           0, "random",         12, 1},
    {"Lang",           0, "seed",           13, 1},
    {"Lang",           0, "characterSet",   14, 0},
    {"Float",          1, "int",             0, 1},
    {"Float",          1, "floor",           1, 1},
    {"Float",          1, "ceil",            2, 1},
    {"Float",          1, "pow",             3, 2},
    {"Float",          1, "round",           4, 1},
    {"Float",          1, "sqrt",            5, 1},
    {"Float",          1, "maxFloat",        6, 0},
    {"Float",          1, "minFloat",        7, 0},
    {"String",         2, "length",          0, 1},
    {"String",         2, "isEmpty",         1, 1},
    {"String",         2, "charAt",          2, 2},
    {"String",         2, "subString",       3, 3},
    {"String",         2, "find",            4, 2},
    {"String",         2, "replace",         5, 3},
    {"String",         2, "elements",        6, 2},
    {"String",         2, "elementAt",       7, 3},
    {"String",         2, "removeAt",        8, 3},
    {"String",         2, "replaceAt",       9, 4},
    {"String",         2, "insertAt",       10, 4},
    {"String",         2, "squeeze",        11, 1},
    {"String",         2, "trim",           12, 1},
    {"String",         2, "compare",        13, 2},
    {"String",         2, "toString",       14, 1},
    {"String",         2, "format",         15, 2},
    {"URL",            3, "isValid",         0, 1},
    {"URL",            3, "getScheme",       1, 1},
    {"URL",            3, "getHost",         2, 1},
    {"URL",            3, "getPort",         3, 1},
    {"URL",            3, "getPath",         4, 1},
    {"URL",            3, "getParameters",   5, 1},
    {"URL",            3, "getQuery",        6, 1},
    {"URL",            3, "getFragment",     7, 1},
    {"URL",            3, "getBase",         8, 0},
    {"URL",            3, "getReferer",      9, 0},
    {"URL",            3, "resolve",        10, 2},
    {"URL",            3, "escapeString",   11, 1},
    {"URL",            3, "unescapeString", 12, 1},
    {"URL",            3, "loadString",     13, 2},
    {"WMLBrowser",     4, "getVar",          0, 1},
    {"WMLBrowser",     4, "setVar",          1, 2},
    {"WMLBrowser",     4, "go",              2, 1},
    {"WMLBrowser",     4, "prev",            3, 0},
    {"WMLBrowser",     4, "newContext",      4, 0},
    {"WMLBrowser",     4, "getCurrentCard",  5, 0},
    {"WMLBrowser",     4, "refresh",         6, 0},
    {"Dialogs",        5, "prompt",          0, 2},
    {"Dialogs",        5, "confirm",         1, 3},
    {"Dialogs",        5, "alert",           2, 1},
    {"WTAPublic",    512, "makeCall",        0, 1},
    {"WTAPublic",    512, "sendDTMF",        1, 1},
    {"WTAPublic",    512, "addPBEntry",      2, 2},
    {"WTAVoiceCall", 513, "setup",           0, 2},
    {"WTAVoiceCall", 513, "accept",          1, 2},
    {"WTAVoiceCall", 513, "release",         2, 1},
    {"WTAVoiceCall", 513, "sendDTMF",        3, 2},
    {"WTAVoiceCall", 513, "callStatus",      4, 2},
    {"WTAVoiceCall", 513, "list",            5, 1},
    {"WTANetText",   514, "send",            0, 2},
    {"WTANetText",   514, "list",            1, 2},
    {"WTANetText",   514, "remove",          2, 1},
    {"WTANetText",   514, "getFieldValue",   3, 2},
    {"WTANetText",   514, "markAsRead",      4, 1},
    {"WTAPhoneBook", 515, "write",           0, 3},
    {"WTAPhoneBook", 515, "search",          1, 2},
    {"WTAPhoneBook", 515, "remove",          2, 1},
    {"WTAPhoneBook", 515, "getFieldValue",   3, 2},
    {"WTAPhoneBook", 515, "change",          4, 3},
    {"WTAMisc",      516, "setIndicator",    0, 2},
    {"WTAMisc",      516, "endContext",      1, 0},
    {"WTAMisc",      516, "getProtection",   2, 0},
    {"WTAMisc",      516, "setProtection",   3, 1},
    {"WTAANSI136",   517, "sendFlash",       0, 2},
    {"WTAANSI136",   517, "sendAlert",       1, 2},
    {"WTAGSM",       518, "hold",            0, 1},
    {"WTAGSM",       518, "retrieve",        1, 1},
    {"WTAGSM",       518, "transfer",        2, 2},
    {"WTAGSM",       518, "deflect",         3, 2},
    {"WTAGSM",       518, "multiparty",      4, 0},
    {"WTAGSM",       518, "separate",        5, 1},
    {"WTAGSM",       518, "sendUSSD",        6, 4},
    {"WTAGSM",       518, "netinfo",         7, 1},
    {"WTACallLog",   519, "dialled",         0, 1},
    {"WTACallLog",   519, "missed",          1, 1},
    {"WTACallLog",   519, "received",        2, 1},
    {"WTACallLog",   519, "getFieldValue",   3, 2},
    {"WTAPDC",       520, "hold",            0, 1},
    {"WTAPDC",       520, "retrieve",        1, 1},
    {"WTAPDC",       520, "transfer",        2, 2},
    {"WTAPDC",       520, "deflect",         3, 2},
    {"WTAPDC",       520, "multiparty",      4, 0},
    {"WTAPDC",       520, "separate",        5, 1},
    {"Crypto",         6, "signText",       16, 4},
};
// clang-format on

// What the widest call has room for.
constexpr bool isEncodable(const Row& theRow) {
    return theRow.libraryId >= 0 && theRow.libraryId <= 0xFFFF && theRow.functionId >= 0 &&
           theRow.functionId <= 0xFF;
}
// A library has one id, and in it a function one name, one id and one number of parameters.
constexpr bool areDistinct(const Row& theLeft, const Row& theRight) {
    return theLeft.libraryId == theRight.libraryId
               ? theLeft.library == theRight.library && theLeft.function != theRight.function &&
                     theLeft.functionId != theRight.functionId
               : theLeft.library != theRight.library;
}
constexpr bool isTableConsistent() {
    for (const Row* row = std::begin(theFunctions); row != std::end(theFunctions); ++row) {
        const auto isDistinct = [&](const Row& theOther) { return areDistinct(*row, theOther); };
        if (!isEncodable(*row) || !std::all_of(row + 1, std::end(theFunctions), isDistinct)) {
            return false;
        }
    }
    return true;
}
static_assert(isTableConsistent());

}  // namespace

const WscFunctionLibraryTable& WscFunctionLibraryTable::instance() {
    // Never destroyed: a call may come while the process ends.
    static const WscFunctionLibraryTable& theTable = *new WscFunctionLibraryTable;
    return theTable;
}

WscFunctionLibraryTable::WscFunctionLibraryTable() {
    FwTraceScope scope("WscFunctionLibraryTable::WscFunctionLibraryTable");
    for (const Row& row : theFunctions) {
        librariesM[row.library].emplace(row.function,
                                        FuncLibData(row.libraryId, row.functionId, row.numParams));
    }
}

WscFunctionLibraryTable::Names WscFunctionLibraryTable::findNames(std::int32_t theLibraryId,
                                                                  std::int32_t theFunctionId) {
    Names names;
    for (const Row& row : theFunctions) {
        if (row.libraryId == theLibraryId) {
            names.library = row.library;
            if (row.functionId == theFunctionId) {
                names.function = row.function;
                break;
            }
        }
    }
    return names;
}

void WscFunctionLibraryTable::findLibraryFunction(std::string_view theLibrary,
                                                  std::string_view theFunction,
                                                  std::int32_t theNumParams,
                                                  std::int32_t& theLibraryId,
                                                  std::int32_t& theFunctionId) const {
    theLibraryId = theFunctionId = -1;
    const auto library = librariesM.find(theLibrary);
    if (library == librariesM.end()) {
        return;
    }
    const auto function = library->second.find(theFunction);
    if (function != library->second.end() && function->second.getNumParams() == theNumParams) {
        theLibraryId = function->second.getLibraryId();
        theFunctionId = function->second.getFunctionId();
    }
}

}  // namespace lumnis
