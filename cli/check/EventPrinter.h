// Actors that print each call that they get, one a line, in a form that is stable:
//
//     prolog.pi "target" "data"
//     prolog.space "text"
//     external none            or: external "public id" "system id", null for one that is missing
//     subset none              or: subset complete, subset incomplete
//     begin "name" KIND "attribute"="value" ...
//     end "name"
//     pcdata "text"
//     cdata "text"
//     space "text"
//     pi "target" "data"
//
// The word begins with "arg." when the actor was an argument of setDtd or makeNonvalidating. In
// quotes, " and the back-slash have a back-slash before them, and each byte outside of 0x20 to 0x7E
// is \xHH in lower case.
#pragma once

#include <memory>
#include <ostream>
#include <string>
#include <string_view>

#include "XpDtd.h"
#include "XpParser.h"

namespace lumnis {

class EventPrinter {
  public:
    // One actor of each kind, of the printer and as long as it.
    struct Actors {
        XpDtd::ElementActor* element;
        XpDtd::PcDataActor* pcData;
        XpDtd::PcDataActor* cdSection;
        XpDtd::WhitespaceActor* whitespace;
        XpDtd::PiActor* pi;
    };

    // Prints to theOutput, which must outlive the printer; nothing if it is null.
    explicit EventPrinter(std::ostream* theOutput);
    ~EventPrinter();

    // To attach to a DTD, to give as arguments, to give for the prolog (text actors unused).
    const Actors& getDtdActors() const;
    const Actors& getArgumentActors() const;
    const Actors& getPrologActors() const;
    // What is known once theParser has read the prolog.
    void printProlog(const XpParser& theParser) const;

    // theText in quotes, with the escapes above.
    static std::string quote(std::string_view theText);

  private:
    struct ActorSet;

    std::ostream* outputM;
    std::unique_ptr<ActorSet> dtdActorsM;
    std::unique_ptr<ActorSet> argumentActorsM;
    std::unique_ptr<ActorSet> prologActorsM;
};

}  // namespace lumnis
