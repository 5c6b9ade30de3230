#include "HedMediaTypeMap.h"

namespace lumnis {

namespace {

// clang-format off

// 0 to 0x36 as WSP assigns them; the negative ones are ours.
constexpr std::array theMediaTypes{
    HedNameRow{"*/*",                                           0},
    HedNameRow{"text/*",                                        1},
    HedNameRow{"text/html",                                     2},
    HedNameRow{"text/plain",                                    3},
    HedNameRow{"text/x-hdml",                                   4},
    HedNameRow{"text/x-ttml",                                   5},
    HedNameRow{"text/x-vcalendar",                              6},
    HedNameRow{"text/x-vcard",                                  7},
    HedNameRow{"text/vnd.wap.wml",                              8},
    HedNameRow{"text/vnd.wap.wmlscript",                        9},
    HedNameRow{"text/vnd.wap.channel",                         10},
    HedNameRow{"multipart/*",                                  11},
    HedNameRow{"multipart/mixed",                              12},
    HedNameRow{"multipart/form-data",                          13},
    HedNameRow{"multipart/byteranges",                         14},
    HedNameRow{"multipart/alternative",                        15},
    HedNameRow{"application/*",                                16},
    HedNameRow{"application/java-vm",                          17},
    HedNameRow{"application/x-www-form-urlencoded",            18},
    HedNameRow{"application/x-hdmlc",                          19},
    HedNameRow{"application/vnd.wap.wmlc",                     20},
    HedNameRow{"application/vnd.wap.wmlscriptc",               21},
    HedNameRow{"application/vnd.wap.channelc",                 22},
    HedNameRow{"application/vnd.wap.uaprof",                   23},
    HedNameRow{"application/vnd.wap.wtls-ca-certificate",      24},
    HedNameRow{"application/vnd.wap.wtls-user-certificate",    25},
    HedNameRow{"application/x-x509-ca-cert",                   26},
    HedNameRow{"application/x-x509-user-cert",                 27},
    HedNameRow{"image/*",                                      28},
    HedNameRow{"image/gif",                                    29},
    HedNameRow{"image/jpeg",                                   30},
    HedNameRow{"image/tiff",                                   31},
    HedNameRow{"image/png",                                    32},
    HedNameRow{"image/vnd.wap.wbmp",                           33},
    HedNameRow{"application/vnd.wap.multipart.*",              34},
    HedNameRow{"application/vnd.wap.multipart.mixed",          35},
    HedNameRow{"application/vnd.wap.multipart.form-data",      36},
    HedNameRow{"application/vnd.wap.multipart.byteranges",     37},
    HedNameRow{"application/vnd.wap.multipart.alternative",    38},
    HedNameRow{"application/xml",                              39},
    HedNameRow{"text/xml",                                     40},
    HedNameRow{"application/vnd.wap.wbxml",                    41},
    HedNameRow{"application/xx968crosscert",                   42},
    HedNameRow{"application/xx968cacert",                      43},
    HedNameRow{"application/xx968usercert",                    44},
    HedNameRow{"text/vnd.wap.si",                              45},
    HedNameRow{"application/vnd.wap.sic",                      46},
    HedNameRow{"text/vnd.wap.sl",                              47},
    HedNameRow{"application/vnd.wap.slc",                      48},
    HedNameRow{"text/vnd.wap.co",                              49},
    HedNameRow{"application/vnd.wap.coc",                      50},
    HedNameRow{"application/vnd.wap.multipart.related",        51},
    HedNameRow{"application/vnd.wap.sia",                      52},
    HedNameRow{"text/vnd.wap.connectivity-xml",                53},
    HedNameRow{"application/vnd.wap.connectivity-wbxml",       54},
    HedNameRow{"unknown Media-Type",                           -1},
    HedNameRow{"multipart/related",                            -4},
    HedNameRow{"application/x-wap-wta-wmlc",                   -5},
    HedNameRow{"text/x-wap-wta-wml",                           -6},
};

// clang-format on

constexpr auto theMediaTypesByName = sortedBy<&HedNameRow::name>(theMediaTypes);
constexpr auto theMediaTypesByNumber = sortedBy<&HedNameRow::number>(theMediaTypes);

}  // namespace

HedMediaTypeMap::HedMediaTypeMap() : HedNameMap(theMediaTypesByName, theMediaTypesByNumber) {}

const HedMediaTypeMap& HedMediaTypeMap::instance() {
    // Never destroyed: a call may come while the process ends.
    static const HedMediaTypeMap& theMap = *new HedMediaTypeMap;
    return theMap;
}

}  // namespace lumnis
