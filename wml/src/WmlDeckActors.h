// The actors of a deck's structure: roots, cards, templates, heads and what stands in heads.
//
// Each class is the row of one element: token (that of its name), content, flushes, attributes in
// the order of writing. WmlRuledActor tells what the words mean.
#pragma once

#include "WmlRuledActor.h"

namespace lumnis {

class WmlTagActor final : public WmlRuledActor {
  public:
    explicit WmlTagActor(const Setup& theSetup)
        : WmlRuledActor(theSetup, Content::ALWAYS, Flush::NONE) {
        nmToken("xml:lang");
        core();
    }
};

// The one tag of page 1. Heads, templates and cards go back to page 0 by themselves.
class WtaWmlTagActor final : public WmlRuledActor {
  public:
    explicit WtaWmlTagActor(const Setup& theSetup)
        : WmlRuledActor(theSetup, Content::ALWAYS, Flush::NONE) {
        nmToken("xml:lang");
        core();
    }

  private:
    void enter(WmlCtrl& theCtrl) const override;
    void leave(WmlCtrl& theCtrl) const override;
};

class CardTagActor final : public WmlRuledActor {
  public:
    explicit CardTagActor(const Setup& theSetup)
        : WmlRuledActor(theSetup, Content::OPTIONAL, Flush::NONE, Bit::TAKEN) {
        vdata("title");
        enumeration("newcontext", {"false", "true"});
        enumeration("ordered", {"true", "false"});
        nmToken("xml:lang");
        escapedVdata("onenterforward");
        escapedVdata("onenterbackward");
        escapedVdata("ontimer");
        core();
    }

  private:
    void enter(WmlCtrl& theCtrl) const override { theCtrl.switchTagPage(0); }
    void leave(WmlCtrl& theCtrl) const override { theCtrl.clearDoElementList(); }
};

class TemplateTagActor final : public WmlRuledActor {
  public:
    explicit TemplateTagActor(const Setup& theSetup)
        : WmlRuledActor(theSetup, Content::OPTIONAL, Flush::NONE) {
        escapedVdata("onenterforward");
        escapedVdata("onenterbackward");
        escapedVdata("ontimer");
        core();
    }

  private:
    void enter(WmlCtrl& theCtrl) const override { theCtrl.switchTagPage(0); }
    void leave(WmlCtrl& theCtrl) const override { theCtrl.clearDoElementList(); }
};

class HeadTagActor final : public WmlRuledActor {
  public:
    explicit HeadTagActor(const Setup& theSetup)
        : WmlRuledActor(theSetup, Content::ALWAYS, Flush::NONE) {
        core();
    }

  private:
    void enter(WmlCtrl& theCtrl) const override { theCtrl.switchTagPage(0); }
    void leave(WmlCtrl& theCtrl) const override { theCtrl.setAccessElementDeclaredFlag(false); }
};

// At most one in a head (WML 1.3, 11.3.1).
class AccessTagActor final : public WmlRuledActor {
  public:
    explicit AccessTagActor(const Setup& theSetup)
        : WmlRuledActor(theSetup, Content::NEVER, Flush::NONE) {
        cdata("domain");
        cdata("path");
        core();
    }

  private:
    void enter(WmlCtrl& theCtrl) const override;
};

// Goes into the deck, to the transport, or nowhere. In the deck it always has the token of forua
// "true", and never http-equiv.
class MetaTagActor final : public WmlRuledActor {
  public:
    explicit MetaTagActor(const Setup& theSetup);

    void begin(const XpDtd::Element* theElement, const XpDtd::AttributeMap& theAttributes,
               int theContentKind, void* theContext) override;

  private:
    bool tokenizeSpecial(unsigned char theToken, const XpDtd::Attribute& theAttr,
                         const XpDtd::AttributeMap& theAttributes, WmlCtrl& theCtrl) const override;

    const XpDtd::Attribute* httpEquivAttrM;
    const XpDtd::Attribute* nameAttrM;
    const XpDtd::Attribute* foruaAttrM;
    const XpDtd::Attribute* contentAttrM;
};

class TimerTagActor final : public WmlRuledActor {
  public:
    explicit TimerTagActor(const Setup& theSetup)
        : WmlRuledActor(theSetup, Content::NEVER, Flush::NONE) {
        nmToken("name");
        vdata("value");
        core();
    }
};

}  // namespace lumnis
