// Keeps the processing instructions and the white space of a document's prolog. They arrive
// before an application has been chosen, and wait here until it replays them to its own actors.
#pragma once

#include <memory>
#include <queue>

#include "CpsString.h"
#include "XpDtd.h"

namespace lumnis {

class XaPrologOutput {
  public:
    class Event;
    class PiActor;
    class WhitespaceActor;

    XaPrologOutput();
    XaPrologOutput(const XaPrologOutput&) = delete;
    XaPrologOutput& operator=(const XaPrologOutput&) = delete;
    ~XaPrologOutput();

    // Calls the actors in the order of arrival, and empties the queue. Either actor may be null;
    // its events are passed over. When an actor throws, the events behind that one stay.
    void reproduce(XpDtd::PiActor* thePiActor, XpDtd::WhitespaceActor* theWhitespaceActor,
                   void* theContext);

  private:
    std::queue<std::unique_ptr<Event>> eventsM;
};

// One call of an actor.
class XaPrologOutput::Event {
  public:
    enum Kind { PROCESSING_INSTRUCTION, WHITESPACE };

    Event(const CpsString& theTarget, const CpsString& theString);
    explicit Event(const CpsString& theSpace);

    Kind getKind() const { return kindM; }
    // Of a processing instruction; null for white space.
    const CpsString* getTarget() const { return targetM.get(); }
    const CpsString* getString() const { return stringM.get(); }
    // Null for a processing instruction.
    const CpsString* getSpace() const { return spaceM.get(); }

  private:
    Kind kindM;
    std::unique_ptr<CpsString> targetM;
    std::unique_ptr<CpsString> stringM;
    std::unique_ptr<CpsString> spaceM;
};

// The actors to give to the parser. The context of their calls is an XaPrologOutput.

class XaPrologOutput::PiActor final : public XpDtd::PiActor {
  public:
    void operator()(const CpsString& theTarget, const CpsString& theString,
                    void* theContext) override;
};

class XaPrologOutput::WhitespaceActor final : public XpDtd::WhitespaceActor {
  public:
    void operator()(const CpsString& theSpace, void* theContext) override;
};

}  // namespace lumnis
