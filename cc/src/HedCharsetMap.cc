#include "HedCharsetMap.h"

namespace lumnis {

namespace {

// clang-format off

// The canonical names. The number is the MIBenum value of the IANA registry; the negative ones
// are ours, for sets that the registry does not list.
constexpr std::array theCanonicalCharsets{
    HedNameRow{"unknown charset",        -1},
    HedNameRow{"utf-8",                 106},
    HedNameRow{"utf-7",                1012},
    HedNameRow{"iso-10646-ucs-2",      1000},
    HedNameRow{"utf-16",               1015},
    HedNameRow{"utf-16le",             1014},
    HedNameRow{"utf-16be",             1013},
    HedNameRow{"iso-10646-ucs-4",      1001},
    HedNameRow{"us-ascii",                3},
    HedNameRow{"iso-8859-1",              4},
    HedNameRow{"ks_c_5601-1987",         36},
    HedNameRow{"iso-2022-kr",            37},
    HedNameRow{"euc-kr",                 38},
    HedNameRow{"johab",                -401},
    HedNameRow{"big5",                 2026},
    HedNameRow{"gb2312",               2025},
    HedNameRow{"gbk",                  -402},
    HedNameRow{"hz-gb-2312",           2085},
    HedNameRow{"euc-cn",               -403},
    HedNameRow{"x-chinese-cns",        -404},
    HedNameRow{"x-chinese-eten",       -405},
    HedNameRow{"iso-2022-jp",            39},
    HedNameRow{"shift_jis",              17},
    HedNameRow{"euc-jp",                 18},
    HedNameRow{"jis_x0201",              15},
    HedNameRow{"jis_encoding",           16},
    HedNameRow{"iso-8859-7",             10},
    HedNameRow{"windows-1253",         2253},
    HedNameRow{"iso-8859-2",              5},
    HedNameRow{"windows-1250",         2250},
    HedNameRow{"cp1252",               2252},
    HedNameRow{"iso-8859-15",           111},
    HedNameRow{"x-europa",              -10},
    HedNameRow{"din_66003",              24},
    HedNameRow{"ns_4551",                25},
    HedNameRow{"sen_850200_b",           35},
    HedNameRow{"x-ia5",                 -14},
    HedNameRow{"iso-8859-9",             12},
    HedNameRow{"iso-8859-3",              6},
    HedNameRow{"iso-8859-6",              9},
    HedNameRow{"asmo-708",              -20},
    HedNameRow{"iso-8859-8",             11},
    HedNameRow{"iso-8859-8-i",          -30},
    HedNameRow{"iso-8859-4",              7},
    HedNameRow{"koi8-r",               2084},
    HedNameRow{"koi8-u",               2088},
    HedNameRow{"iso-8859-5",              8},
    HedNameRow{"windows-1251",         2251},
    HedNameRow{"iso-10646-ucs-basic",  1002},
    HedNameRow{"jis_c6226-1983",         63},
    HedNameRow{"jis_x0212-1990",         98},
    HedNameRow{"windows-31j",          2024},
    HedNameRow{"ibm850",               2009},
    HedNameRow{"ibm852",               2010},
    HedNameRow{"ibm437",               2011},
    HedNameRow{"ibm862",               2013},
    HedNameRow{"ibm905",               2016},
    HedNameRow{"ibm037",               2028},
    HedNameRow{"ibm273",               2030},
    HedNameRow{"ibm277",               2033},
    HedNameRow{"ibm278",               2034},
    HedNameRow{"ibm280",               2035},
    HedNameRow{"ibm284",               2037},
    HedNameRow{"ibm285",               2038},
    HedNameRow{"ibm297",               2040},
    HedNameRow{"ibm420",               2041},
    HedNameRow{"ibm424",               2043},
    HedNameRow{"ibm500",               2044},
    HedNameRow{"ibm855",               2046},
    HedNameRow{"ibm857",               2047},
    HedNameRow{"ibm860",               2048},
    HedNameRow{"ibm861",               2049},
    HedNameRow{"ibm863",               2050},
    HedNameRow{"ibm864",               2051},
    HedNameRow{"ibm865",               2052},
    HedNameRow{"ibm868",               2053},
    HedNameRow{"ibm869",               2054},
    HedNameRow{"ibm870",               2055},
    HedNameRow{"ibm871",               2056},
    HedNameRow{"ibm918",               2062},
    HedNameRow{"ibm1026",              2063},
    HedNameRow{"ibm866",               2086},
    HedNameRow{"ibm775",               2087},
    HedNameRow{"windows-1254",         2254},
    HedNameRow{"windows-1255",         2255},
    HedNameRow{"windows-1256",         2256},
    HedNameRow{"windows-1257",         2257},
    HedNameRow{"windows-1258",         2258},
    HedNameRow{"*",                       0},
};

// Further names of the sets above.
constexpr std::array theCharsetAliases{
    HedNameRow{"unicode-1-1-utf8",                                106},
    HedNameRow{"unicode-2-0-utf8",                                106},
    HedNameRow{"x-unicode-2-0-utf8",                              106},
    HedNameRow{"unicode-1-1-utf-7",                              1012},
    HedNameRow{"x-unicode-1-1-utf-7",                            1012},
    HedNameRow{"csunicode",                                      1000},
    HedNameRow{"csucs4",                                         1001},
    HedNameRow{"cp819",                                             4},
    HedNameRow{"csisolatin1",                                       4},
    HedNameRow{"ibm819",                                            4},
    HedNameRow{"iso_8859-1",                                        4},
    HedNameRow{"iso8859-1",                                         4},
    HedNameRow{"iso-ir-100",                                        4},
    HedNameRow{"l1",                                                4},
    HedNameRow{"latin1",                                            4},
    HedNameRow{"iso-ir-149",                                       36},
    HedNameRow{"ks_c_5601-1989",                                   36},
    HedNameRow{"ksc_5601",                                         36},
    HedNameRow{"korean",                                           36},
    HedNameRow{"csksc56011987",                                    36},
    HedNameRow{"csiso2022kr",                                      37},
    HedNameRow{"cseuckr",                                          38},
    HedNameRow{"csgb2312",                                       2025},
    HedNameRow{"csbig5",                                         2026},
    HedNameRow{"x-euc-cn",                                       -403},
    HedNameRow{"ms_kanji",                                         17},
    HedNameRow{"csshiftjis",                                       17},
    HedNameRow{"extended_unix_code_packed_format_for_japanese",    18},
    HedNameRow{"cseucpkdfmtjapanese",                              18},
    HedNameRow{"csiso2022jp",                                      39},
    HedNameRow{"csisolatingreek",                                  10},
    HedNameRow{"ecma-118",                                         10},
    HedNameRow{"elot_928",                                         10},
    HedNameRow{"greek",                                            10},
    HedNameRow{"greek8",                                           10},
    HedNameRow{"iso_8859-7",                                       10},
    HedNameRow{"iso-ir-126",                                       10},
    HedNameRow{"csisolatin2",                                       5},
    HedNameRow{"iso_8859-2",                                        5},
    HedNameRow{"iso8859-2",                                         5},
    HedNameRow{"iso-ir-101",                                        5},
    HedNameRow{"l2",                                                5},
    HedNameRow{"latin2",                                            5},
    HedNameRow{"iso_8859-15",                                     111},
    HedNameRow{"iso-ir-21",                                        24},
    HedNameRow{"de",                                               24},
    HedNameRow{"iso646-de",                                        24},
    HedNameRow{"csiso21german",                                    24},
    HedNameRow{"x-ia5-german",                                     24},
    HedNameRow{"x-ia5-norwegian",                                  25},
    HedNameRow{"iso-ir-60",                                        25},
    HedNameRow{"iso646-no",                                        25},
    HedNameRow{"no",                                               25},
    HedNameRow{"iso-ir-10",                                        35},
    HedNameRow{"fi",                                               35},
    HedNameRow{"iso646-fi",                                        35},
    HedNameRow{"iso646-se",                                        35},
    HedNameRow{"se",                                               35},
    HedNameRow{"cssio10swedish",                                   35},
    HedNameRow{"x-ia5-swedish",                                    35},
    HedNameRow{"windows-1252",                                   2252},
    HedNameRow{"csisolatin5",                                      12},
    HedNameRow{"iso_8859-9",                                       12},
    HedNameRow{"l5",                                               12},
    HedNameRow{"latin5",                                           12},
    HedNameRow{"iso-ir-148",                                       12},
    HedNameRow{"csisolatin3",                                       6},
    HedNameRow{"iso_8859-3",                                        6},
    HedNameRow{"iso-ir-109",                                        6},
    HedNameRow{"l3",                                                6},
    HedNameRow{"latin3",                                            6},
    HedNameRow{"arabic",                                            9},
    HedNameRow{"csisolatinarabic",                                  9},
    HedNameRow{"ecma-114",                                          9},
    HedNameRow{"iso_8859-6",                                        9},
    HedNameRow{"iso-ir-127",                                        9},
    HedNameRow{"csisolatinhebrew",                                 11},
    HedNameRow{"hebrew",                                           11},
    HedNameRow{"iso_8859-8",                                       11},
    HedNameRow{"iso-ir-138",                                       11},
    HedNameRow{"visual",                                           11},
    HedNameRow{"logical",                                         -30},
    HedNameRow{"csisolatin4",                                       7},
    HedNameRow{"iso_8859-4",                                        7},
    HedNameRow{"iso-ir-110",                                        7},
    HedNameRow{"l4",                                                7},
    HedNameRow{"latin4",                                            7},
    HedNameRow{"cskoi8r",                                        2084},
    HedNameRow{"koi",                                            2084},
    HedNameRow{"koi8",                                           2084},
    HedNameRow{"koi8r",                                          2084},
    HedNameRow{"koi8-ru",                                        2088},
    HedNameRow{"csisolatincyrillic",                                8},
    HedNameRow{"cyrillic",                                          8},
    HedNameRow{"iso_8859-5",                                        8},
    HedNameRow{"iso-ir-144",                                        8},
    HedNameRow{"ansi_x3.4-1968",                                    3},
    HedNameRow{"ansi_x3.4-1986",                                    3},
    HedNameRow{"ascii",                                             3},
    HedNameRow{"cp367",                                             3},
    HedNameRow{"csascii",                                           3},
    HedNameRow{"ibm367",                                            3},
    HedNameRow{"iso646-us",                                         3},
    HedNameRow{"iso-ir-6",                                          3},
    HedNameRow{"us",                                                3},
};

// clang-format on

consteval auto withAliases() {
    std::array<HedNameRow, theCanonicalCharsets.size() + theCharsetAliases.size()> all{};
    std::copy(theCanonicalCharsets.begin(), theCanonicalCharsets.end(), all.begin());
    std::copy(theCharsetAliases.begin(), theCharsetAliases.end(),
              all.begin() + theCanonicalCharsets.size());
    return all;
}

// An alias of nothing would answer with a number that has no name.
static_assert(std::all_of(theCharsetAliases.begin(), theCharsetAliases.end(),
                          [](const HedNameRow& theAlias) {
                              return std::any_of(theCanonicalCharsets.begin(),
                                                 theCanonicalCharsets.end(),
                                                 [&](const HedNameRow& theRow) {
                                                     return theRow.number == theAlias.number;
                                                 });
                          }));

}  // namespace

// The sorted tables are made here, where the sorting of the base can be reached.
HedCharsetMap::HedCharsetMap()
    : HedNameMap(
          [] {
              static constexpr auto theNames = sortedByName(withAliases());
              static_assert(haveUniqueNames(theNames));
              return std::span<const HedNameRow>(theNames);
          }(),
          [] {
              static constexpr auto theNumbers = sortedByNumber(theCanonicalCharsets);
              static_assert(haveUniqueNumbers(theNumbers));
              return std::span<const HedNameRow>(theNumbers);
          }()) {}

const HedCharsetMap& HedCharsetMap::instance() {
    // Never destroyed: a call may come while the process ends.
    static const HedCharsetMap& theMap = *new HedCharsetMap;
    return theMap;
}

}  // namespace lumnis
