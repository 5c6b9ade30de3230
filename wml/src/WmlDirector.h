// The XML application for WML and WTA-WML.
//
// It holds the known document types as parsed DTDs, with an actor on every element, and two
// table-driven actors for documents of other types. All of it is made once and then only read, by
// any number of threads. A DTD is made for the first document of its type: most processes see one
// type, and a DTD takes as long as a deck of 20 KB.
#pragma once

#include <memory>
#include <vector>

#include "WmlLazy.h"
#include "WmlTextActors.h"
#include "WmlTokenizer.h"
#include "XaDirector.h"

namespace lumnis {

class WmlDirector final : public XaDirector {
  public:
    // Media types, as in HedMediaTypeMap.
    static constexpr int theWmlMediaType = 8;       // text/vnd.wap.wml
    static constexpr int theWtaWmlMediaType = -6;   // text/x-wap-wta-wml
    static constexpr int theWmlcMediaType = 20;     // application/vnd.wap.wmlc
    static constexpr int theWtaWmlcMediaType = -5;  // application/x-wap-wta-wmlc

    // Makes the one object, which registers itself, if there is none. Any number of threads.
    static void init();

    // The DTD is that of the document's public identifier, if it is a known one. Throws
    // WmlActorException for a bad variable in a processing instruction of the prolog, which has no
    // line, beside what XaProducer::process names.
    std::unique_ptr<XaOutput> process(XpParser& theParser, XaPrologOutput& theProlog,
                                      int theMediaType, HedCharsetId theCharset,
                                      int* theOutputMediaType, CpsString& theOutput) override;

  private:
    struct DocumentType;
    // A DTD and the actors of its elements.
    struct KnownType {
        XpDtd dtd;
        std::vector<std::unique_ptr<XpDtd::ElementActor>> actors;
    };
    using LazyType = WmlLazy<KnownType>;

    WmlDirector();
    ~WmlDirector() override;

    void setupWml11Actors(KnownType& theType);
    void setupWml12Actors(KnownType& theType);
    void setupWml13Actors(KnownType& theType);
    void setupWtaWml12Actors(KnownType& theType);
    void setupActors(KnownType& theType, int theVersion, WmlTokenizer& theTokenizer);
    const XpDtd& obtainDtd(LazyType& theType, std::string_view theText,
                           void (WmlDirector::*theSetup)(KnownType& theType));
    DocumentType findDocumentType(std::string_view thePublicId);
    WmlTokenizer& wtaWmlTokenizer();

    const CpsString wml11IdM;
    const CpsString wml12IdM;
    const CpsString wml13IdM;
    const CpsString wtaWml12IdM;
    LazyType wml11DtdM;
    LazyType wml12DtdM;
    LazyType wml13DtdM;
    LazyType wtaWml12DtdM;
    WmlTokenizer wmlTokenizerM;              // code page 0
    WmlLazy<WmlTokenizer> wtaWmlTokenizerM;  // code pages 0 and 1
    WmlPcDataActor pcDataActorM;
    WmlCdataSectionActor cdSectionActorM;
};

}  // namespace lumnis
