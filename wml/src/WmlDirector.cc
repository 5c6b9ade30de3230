#include "WmlDirector.h"

#include "FwTraceScope.h"
#include "WmlDtdTexts.h"
#include "WmlTagActors.h"
#include "WtaWmlCtrl.h"
#include "XaProducer.h"

namespace lumnis {

// What a public identifier decides. The version byte of WBXML is that of its first version that
// has a number for the identifier; with an internal subset a document is not of the known type
// any more, and its identifier is 1, the unknown one (WBXML 1.3, 5.4 and 7.2). Version 1 suffices
// for that, but WTA-WML keeps its own.
struct WmlDirector::DocumentType {
    unsigned char version;
    unsigned char versionWithSubset;
    unsigned char publicId;
    const XpDtd* dtd;  // null: not a known type
};

void WmlDirector::init() {
    // Never destroyed: a call may come while the process ends.
    static const WmlDirector& director = *new WmlDirector;
    static_cast<void>(director);
}

WmlDirector::WmlDirector()
    : wml11IdM("-//WAPFORUM//DTD WML 1.1//EN"),
      wml12IdM("-//WAPFORUM//DTD WML 1.2//EN"),
      wml13IdM("-//WAPFORUM//DTD WML 1.3//EN"),
      wtaWml12IdM("-//WAPFORUM//DTD WTA-WML 1.2//EN"),
      wmlTokenizerM(false) {
    const FwTraceScope scope("WmlDirector::WmlDirector");
    // Last, so that another thread never finds a half-made director in the registry.
    XaProducer::instance().registerDirector(this, nullptr, theWmlMediaType);
    XaProducer::instance().registerDirector(this, nullptr, theWtaWmlMediaType);
}

WmlDirector::~WmlDirector() = default;

void WmlDirector::setupWml11Actors(KnownType& theType) {
    setupActors(theType, 1, wmlTokenizerM);
}
void WmlDirector::setupWml12Actors(KnownType& theType) {
    setupActors(theType, 2, wmlTokenizerM);
}
void WmlDirector::setupWml13Actors(KnownType& theType) {
    setupActors(theType, 3, wmlTokenizerM);
}
void WmlDirector::setupWtaWml12Actors(KnownType& theType) {
    setupActors(theType, 2, wtaWmlTokenizer());
}

void WmlDirector::setupActors(KnownType& theType, int theVersion, WmlTokenizer& theTokenizer) {
    theType.actors = makeWmlTagActors(theType.dtd, theVersion);
    theType.dtd.setPcDataActor(&pcDataActorM);
    theType.dtd.setCdSectionActor(&cdSectionActorM);
    theType.dtd.setPiActor(&theTokenizer);
}

const XpDtd& WmlDirector::obtainDtd(LazyType& theType, std::string_view theText,
                                    void (WmlDirector::*theSetup)(KnownType& theType)) {
    return theType
        .get([&] {
            auto type = std::make_unique<KnownType>();
            setupDtd(theText, type->dtd);
            (this->*theSetup)(*type);
            return type;
        })
        .dtd;
}

WmlTokenizer& WmlDirector::wtaWmlTokenizer() {
    return wtaWmlTokenizerM.get([] { return std::make_unique<WmlTokenizer>(true); });
}

WmlDirector::DocumentType WmlDirector::findDocumentType(std::string_view thePublicId) {
    if (thePublicId.empty()) {
        return {1, 1, XaWbxmlPublicId::UNKNOWN, nullptr};
    }
    if (wml11IdM == thePublicId) {
        return {1, 1, XaWbxmlPublicId::WML_1_1,
                &obtainDtd(wml11DtdM, theWml11DtdText, &WmlDirector::setupWml11Actors)};
    }
    if (wml12IdM == thePublicId) {
        return {2, 1, XaWbxmlPublicId::WML_1_2,
                &obtainDtd(wml12DtdM, theWml12DtdText, &WmlDirector::setupWml12Actors)};
    }
    if (wml13IdM == thePublicId) {
        return {3, 1, XaWbxmlPublicId::WML_1_3,
                &obtainDtd(wml13DtdM, theWml13DtdText, &WmlDirector::setupWml13Actors)};
    }
    if (wtaWml12IdM == thePublicId) {
        return {3, 3, XaWbxmlPublicId::WTA_WML_1_2,
                &obtainDtd(wtaWml12DtdM, theWtaWml12DtdText, &WmlDirector::setupWtaWml12Actors)};
    }
    return {1, 1, XaWbxmlPublicId::IN_STRING_TABLE, nullptr};
}

std::unique_ptr<XaOutput> WmlDirector::process(XpParser& theParser, XaPrologOutput& theProlog,
                                               int theMediaType, HedCharsetId theCharset,
                                               int* theOutputMediaType, CpsString& theOutput) {
    const FwTraceScope scope("WmlDirector::process");
    const CpsString publicId = theParser.getPublicIdentifier();
    const bool hasSubset = theParser.getInternalSubset() != nullptr;
    auto output = std::make_unique<XaOutput>(hasSubset ? CpsString() : publicId);

    const bool isWta = theMediaType == theWtaWmlMediaType;
    std::unique_ptr<WmlCtrl> ctrl;
    if (isWta) {
        ctrl = std::make_unique<WtaWmlCtrl>(theCharset, output->getMetaDataList());
        ctrl->setUsingWtaWmlDtd(true);
    } else {
        ctrl = std::make_unique<WmlCtrl>(theCharset, output->getMetaDataList());
    }
    *theOutputMediaType = isWta ? theWtaWmlcMediaType : theWmlcMediaType;
    XaWbxmlCtrl* const context = ctrl.get();
    WmlTokenizer& tokenizer = isWta ? wtaWmlTokenizer() : wmlTokenizerM;

    const DocumentType type = findDocumentType(publicId);
    const bool isInTable = type.publicId == XaWbxmlPublicId::IN_STRING_TABLE;
    CpsString prolog;
    prolog += static_cast<char>(hasSubset ? type.versionWithSubset : type.version);
    prolog += static_cast<char>(hasSubset && !isInTable ? XaWbxmlPublicId::UNKNOWN : type.publicId);
    if (isInTable) {
        prolog += ctrl->addStringToStringtable(publicId);
    }

    theParser.setDtd(type.dtd, context, &tokenizer, &pcDataActorM, &cdSectionActorM, nullptr,
                     &tokenizer);
    theProlog.reproduce(&tokenizer, nullptr, context);
    parse(theParser);

    // 0 is an unknown charset: WBXML has no number for one of ours.
    prolog +=
        XaWbxmlCtrl::getAsMbUInt(static_cast<std::uint32_t>(theCharset >= 0 ? theCharset : 0));
    ctrl->addProlog(prolog);
    theOutput = ctrl->makeOutput();
    return output;
}

}  // namespace lumnis
