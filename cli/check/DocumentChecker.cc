#include "DocumentChecker.h"

#include <utility>

#include "XpDtdParser.h"
#include "XpParser.h"

namespace lumnis {

namespace {

void attachTextActors(XpDtd& theDtd, const EventPrinter::Actors& theActors) {
    theDtd.setPcDataActor(theActors.pcData);
    theDtd.setCdSectionActor(theActors.cdSection);
    theDtd.setWhitespaceActor(theActors.whitespace);
    theDtd.setPiActor(theActors.pi);
}

}  // namespace

DocumentChecker::DocumentChecker(std::ostream* theEvents) : printerM(theEvents) {}

DocumentChecker::~DocumentChecker() = default;

std::optional<DocumentChecker::Fault> DocumentChecker::setDtd(const CpsString& theText) {
    auto dtd = std::make_unique<XpDtd>();
    try {
        XpDtdParser parser(&theText, dtd.get(), nullptr);
        parser.parseDtd();
    } catch (const XpParserError& error) {
        return Fault{error.toString(), error.getLine()};
    }
    dtd->setElementActors(printerM.getDtdActors().element);
    attachTextActors(*dtd, printerM.getDtdActors());
    dtdM = std::move(dtd);
    return std::nullopt;
}

std::optional<DocumentChecker::Fault> DocumentChecker::check(const CpsString& theDocument,
                                                             XpEntityResolver* theResolver) {
    const EventPrinter::Actors& prolog = printerM.getPrologActors();
    const EventPrinter::Actors& argument = printerM.getArgumentActors();
    XpDtd impliedDtd;  // outlives the parser
    try {
        XpParser parser(&theDocument, prolog.pi, prolog.whitespace, nullptr);
        parser.setEntityResolver(theResolver);
        parser.parseProlog();
        printerM.printProlog(parser);
        if (isNonvalidatingM) {
            attachTextActors(impliedDtd, printerM.getDtdActors());
            parser.makeNonvalidating(&impliedDtd, argument.element, nullptr);
        } else {
            parser.setDtd(dtdM.get(), nullptr, argument.element, argument.pcData,
                          argument.cdSection, argument.whitespace, argument.pi);
        }
        parser.parseDocument();
    } catch (const XpParserError& error) {
        return Fault{error.toString(), error.getLine()};
    }
    return std::nullopt;
}

}  // namespace lumnis
