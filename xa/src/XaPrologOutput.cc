#include "XaPrologOutput.h"

#include <utility>

namespace lumnis {

XaPrologOutput::XaPrologOutput() = default;

XaPrologOutput::~XaPrologOutput() = default;

XaPrologOutput::Event::Event(const CpsString& theTarget, const CpsString& theString)
    : kindM(PROCESSING_INSTRUCTION),
      targetM(std::make_unique<CpsString>(theTarget)),
      stringM(std::make_unique<CpsString>(theString)) {}

XaPrologOutput::Event::Event(const CpsString& theSpace)
    : kindM(WHITESPACE), spaceM(std::make_unique<CpsString>(theSpace)) {}

void XaPrologOutput::PiActor::operator()(const CpsString& theTarget, const CpsString& theString,
                                         void* theContext) {
    static_cast<XaPrologOutput*>(theContext)
        ->eventsM.push(std::make_unique<Event>(theTarget, theString));
}

void XaPrologOutput::WhitespaceActor::operator()(const CpsString& theSpace, void* theContext) {
    static_cast<XaPrologOutput*>(theContext)->eventsM.push(std::make_unique<Event>(theSpace));
}

void XaPrologOutput::reproduce(XpDtd::PiActor* thePiActor,
                               XpDtd::WhitespaceActor* theWhitespaceActor, void* theContext) {
    while (!eventsM.empty()) {
        const std::unique_ptr<Event> event = std::move(eventsM.front());
        eventsM.pop();
        if (event->getKind() == Event::PROCESSING_INSTRUCTION) {
            if (thePiActor != nullptr) {
                (*thePiActor)(*event->getTarget(), *event->getString(), theContext);
            }
        } else if (theWhitespaceActor != nullptr) {
            (*theWhitespaceActor)(*event->getSpace(), theContext);
        }
    }
}

}  // namespace lumnis
