#include "XaProducer.h"

#include "FwTraceScope.h"
#include "XaDirector.h"
#include "XaLog.h"
#include "XaPrologOutput.h"
#include "XpInternalError.h"
#include "XpParser.h"

namespace lumnis {

XaProducer& XaProducer::instance() {
    // Never destroyed: a call may come while the process ends.
    static XaProducer& producer = *new XaProducer;
    return producer;
}

XaProducer::NoDirectorException::NoDirectorException(std::optional<CpsString> thePublicId)
    : publicIdM(std::move(thePublicId)) {}

CpsString XaProducer::NoDirectorException::toString() const {
    const CpsString text("could not find an XML application for document");
    return publicIdM ? text + " with public ID " + *publicIdM : text;
}

void XaProducer::registerDirector(XaDirector* theDirector, const CpsString* thePublicId,
                                  int theMediaType) {
    const FwTraceScope scope("XaProducer::registerDirector");
    Key key(theMediaType, thePublicId != nullptr ? *thePublicId : CpsString());
    {
        const std::lock_guard lock(mutexM);
        const auto [place, isNew] = directorsM.try_emplace(std::move(key), theDirector);
        if (isNew || place->second == theDirector) {
            return;
        }
    }
    const char* const text = "A director already registered for given media type and public id.";
    XaLog::trace("", text);
    XaLog::report(text);
    throw DuplicateDirectorException();
}

XaDirector& XaProducer::findDirector(int theMediaType, const CpsString& thePublicId) const {
    const CpsString anyPublicId;
    const std::lock_guard lock(mutexM);
    for (const int mediaType : {theMediaType, theAnyMediaType}) {
        for (const CpsString* publicId : {&thePublicId, &anyPublicId}) {
            const auto place = directorsM.find(Key(mediaType, *publicId));
            if (place != directorsM.end()) {
                return *place->second;
            }
        }
    }
    throw NoDirectorException(thePublicId);
}

std::unique_ptr<XaOutput> XaProducer::process(const CpsString& theDocument, int theMediaType,
                                              HedCharsetId theCharset, int* theOutputMediaType,
                                              CpsString& theOutput) {
    const FwTraceScope scope("XaProducer::process");
    XaPrologOutput prolog;
    XaPrologOutput::PiActor piActor;
    XaPrologOutput::WhitespaceActor whitespaceActor;
    XpParser parser(&theDocument, &piActor, &whitespaceActor, &prolog);
    parser.parseProlog();
    XaDirector& director = findDirector(theMediaType, parser.getPublicIdentifier());
    try {
        return director.process(parser, prolog, theMediaType, theCharset, theOutputMediaType,
                                theOutput);
    } catch (const XpParserError& error) {
        XaLog::trace("", error.toString());
        throw;
    } catch (const XpInternalError& error) {
        XaLog::trace("Fatal internal parser error: ", error.what());
        XaLog::report(error.what());
        throw;
    }
}

}  // namespace lumnis
