#include "XaWbxmlDirector.h"

#include <algorithm>
#include <array>
#include <cstdint>

#include "FwTraceScope.h"
#include "XaProducer.h"
#include "XaWbxmlActor.h"
#include "XaWbxmlCtrl.h"

namespace lumnis {

namespace {

// Of the WSP content type table.
constexpr int theApplicationXml = 39;
constexpr int theTextXml = 40;
constexpr int theApplicationWbxml = 41;

// Public identifiers of WAP documents (WBXML 1.3, 7.2), and the version byte of the WBXML that a
// document of the type needs: the minor number, the major one less 1 being 0 in the high bits.
struct PublicIdRow {
    std::string_view name;  // behind the prefix
    unsigned char number;
    unsigned char version;
};

constexpr std::string_view thePublicIdPrefix = "-//WAPFORUM//DTD ";
constexpr unsigned char theLowestVersion = 1;

constexpr auto thePublicIds = std::to_array<PublicIdRow>({
    {"WML 1.0//EN", 2, 1},
    {"WTA 1.0//EN", 3, 1},
    {"WML 1.1//EN", XaWbxmlPublicId::WML_1_1, 1},
    {"SI 1.0//EN", 5, 2},
    {"SL 1.0//EN", 6, 2},
    {"CO 1.0//EN", 7, 2},
    {"CHANNEL 1.1//EN", 8, 2},
    {"WML 1.2//EN", XaWbxmlPublicId::WML_1_2, 2},
    {"WML 1.3//EN", XaWbxmlPublicId::WML_1_3, 3},
    {"PROV 1.0//EN", 11, 3},
    {"WTA-WML 1.2//EN", XaWbxmlPublicId::WTA_WML_1_2, 3},
    {"CHANNEL 1.2//EN", 13, 3},
});

// Version byte and public identifier; thePublicId may be null.
void addPublicId(const CpsString* thePublicId, CpsString& theProlog, XaWbxmlCtrl& theCtrl) {
    unsigned char number =
        thePublicId == nullptr ? XaWbxmlPublicId::UNKNOWN : XaWbxmlPublicId::IN_STRING_TABLE;
    unsigned char version = theLowestVersion;
    if (thePublicId != nullptr) {
        if (const auto length = XaWbxmlActor::beginsWith(*thePublicId, thePublicIdPrefix)) {
            const std::string_view name = thePublicId->view().substr(length);
            const auto row =
                std::find_if(thePublicIds.begin(), thePublicIds.end(),
                             [name](const PublicIdRow& theRow) { return theRow.name == name; });
            if (row != thePublicIds.end()) {
                number = row->number;
                version = row->version;
            }
        }
    }
    theProlog += static_cast<char>(version);
    theProlog += static_cast<char>(number);
    if (number == XaWbxmlPublicId::IN_STRING_TABLE) {
        theProlog += theCtrl.addStringToStringtable(*thePublicId);
    }
}

}  // namespace

void XaWbxmlDirector::init() {
    // Never destroyed: a call may come while the process ends.
    static const XaWbxmlDirector& director = *new XaWbxmlDirector;
    static_cast<void>(director);
}

XaWbxmlDirector::XaWbxmlDirector() {
    XaProducer& producer = XaProducer::instance();
    producer.registerDirector(this, nullptr, theTextXml);
    producer.registerDirector(this, nullptr, theApplicationXml);
}

XaWbxmlDirector::~XaWbxmlDirector() = default;

std::unique_ptr<XaOutput> XaWbxmlDirector::process(XpParser& theParser, XaPrologOutput& theProlog,
                                                   int, HedCharsetId theCharset,
                                                   int* theOutputMediaType, CpsString& theOutput) {
    const FwTraceScope scope("XaWbxmlDirector::process");
    XaWbxmlCtrl ctrl(theCharset, 0);
    const XpDtd::ExternalId* externalId = theParser.getExternalId();
    const CpsString* publicId = externalId != nullptr ? externalId->getPublicId() : nullptr;
    CpsString prolog;
    addPublicId(publicId, prolog, ctrl);
    prolog += XaWbxmlCtrl::getAsMbUInt(static_cast<std::uint32_t>(theCharset));
    ctrl.addProlog(prolog);

    XaWbxmlCtrl::SimplePcDataActor pcDataActor;
    XaWbxmlCtrl::SimplePiActor piActor;
    XaWbxmlActor elementActor;
    XpDtd dtd;
    dtd.setPcDataActor(&pcDataActor);
    dtd.setPiActor(&piActor);
    theParser.makeNonvalidating(&dtd, &elementActor, &ctrl);
    theProlog.reproduce(&piActor, nullptr, &ctrl);
    parse(theParser);

    auto output = std::make_unique<XaOutput>(publicId != nullptr ? *publicId
                                                                 : CpsString("[unknown doctype]"));
    theOutput = ctrl.makeOutput();
    *theOutputMediaType = theApplicationWbxml;
    return output;
}

}  // namespace lumnis
