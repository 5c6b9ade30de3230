#include "EventPrinter.h"

namespace lumnis {

namespace {

// Where events of one origin go, and what stands in front of them.
struct EventSink {
    std::ostream* output;
    std::string_view prefix;

    bool isSilent() const { return output == nullptr; }
    void print(std::string_view theLine) const { *output << prefix << theLine << '\n'; }
};

class PrintingElementActor final : public XpDtd::ElementActor {
  public:
    explicit PrintingElementActor(const EventSink& theSink) : sinkM(theSink) {}

    void begin(const XpDtd::Element* theElement, const XpDtd::AttributeMap& theAttributes,
               int theContentKind, void*) override {
        if (sinkM.isSilent()) {
            return;
        }
        std::string line = "begin " + EventPrinter::quote(theElement->getName()) + " ";
        line += std::to_string(theContentKind);
        for (const auto& [attribute, value] : theAttributes) {
            line += ' ';
            line += EventPrinter::quote(attribute->getName());
            line += '=';
            line += EventPrinter::quote(value->toString());
        }
        sinkM.print(line);
    }
    void end(const XpDtd::Element* theElement, void*) override {
        if (!sinkM.isSilent()) {
            sinkM.print("end " + EventPrinter::quote(theElement->getName()));
        }
    }

  private:
    EventSink sinkM;
};

// For character data, CDATA sections (as PcDataActor) and white space.
template <typename Base>
class PrintingTextActor final : public Base {
  public:
    PrintingTextActor(const EventSink& theSink, const char* theWord)
        : sinkM(theSink), wordM(theWord) {}

    void operator()(const CpsString& theText, void*) override {
        if (!sinkM.isSilent()) {
            sinkM.print(wordM + EventPrinter::quote(theText));
        }
    }

  private:
    EventSink sinkM;
    const char* wordM;
};

class PrintingPiActor final : public XpDtd::PiActor {
  public:
    explicit PrintingPiActor(const EventSink& theSink) : sinkM(theSink) {}

    void operator()(const CpsString& theTarget, const CpsString& theData, void*) override {
        if (!sinkM.isSilent()) {
            sinkM.print("pi " + EventPrinter::quote(theTarget) + " " +
                        EventPrinter::quote(theData));
        }
    }

  private:
    EventSink sinkM;
};

}  // namespace

struct EventPrinter::ActorSet {
    explicit ActorSet(const EventSink& theSink)
        : element(std::make_unique<PrintingElementActor>(theSink)),
          pcData(std::make_unique<PrintingTextActor<XpDtd::PcDataActor>>(theSink, "pcdata ")),
          cdSection(std::make_unique<PrintingTextActor<XpDtd::PcDataActor>>(theSink, "cdata ")),
          whitespace(
              std::make_unique<PrintingTextActor<XpDtd::WhitespaceActor>>(theSink, "space ")),
          pi(std::make_unique<PrintingPiActor>(theSink)) {}

    std::unique_ptr<XpDtd::ElementActor> element;
    std::unique_ptr<XpDtd::PcDataActor> pcData;
    std::unique_ptr<XpDtd::PcDataActor> cdSection;
    std::unique_ptr<XpDtd::WhitespaceActor> whitespace;
    std::unique_ptr<XpDtd::PiActor> pi;
    Actors actors{element.get(), pcData.get(), cdSection.get(), whitespace.get(), pi.get()};
};

EventPrinter::EventPrinter(std::ostream* theOutput)
    : outputM(theOutput),
      dtdActorsM(std::make_unique<ActorSet>(EventSink{theOutput, ""})),
      argumentActorsM(std::make_unique<ActorSet>(EventSink{theOutput, "arg."})),
      prologActorsM(std::make_unique<ActorSet>(EventSink{theOutput, "prolog."})) {}

EventPrinter::~EventPrinter() = default;

const EventPrinter::Actors& EventPrinter::getDtdActors() const {
    return dtdActorsM->actors;
}

const EventPrinter::Actors& EventPrinter::getArgumentActors() const {
    return argumentActorsM->actors;
}

const EventPrinter::Actors& EventPrinter::getPrologActors() const {
    return prologActorsM->actors;
}

void EventPrinter::printProlog(const XpParser& theParser) const {
    if (outputM == nullptr) {
        return;
    }
    const auto quoteOrNull = [](const CpsString* theText) {
        return theText == nullptr ? std::string("null") : quote(*theText);
    };
    std::string external = "none";
    if (const XpDtd::ExternalId* id = theParser.getExternalId()) {
        external = quoteOrNull(id->getPublicId()) + " " + quoteOrNull(id->getSystemId());
    }
    std::string subset = "none";
    if (const XpDtd* dtd = theParser.getInternalSubset()) {
        subset = dtd->isIncomplete() ? "incomplete" : "complete";
    }
    *outputM << "external " << external << "\nsubset " << subset << '\n';
}

std::string EventPrinter::quote(std::string_view theText) {
    constexpr char theDigits[] = "0123456789abcdef";
    std::string result("\"");
    for (const char c : theText) {
        const auto byte = static_cast<unsigned char>(c);
        if (c == '"' || c == '\\') {
            result += '\\';
            result += c;
        } else if (byte < 0x20 || byte > 0x7E) {
            result += "\\x";
            result += theDigits[byte >> 4];
            result += theDigits[byte & 15];
        } else {
            result += c;
        }
    }
    result += '"';
    return result;
}

}  // namespace lumnis
