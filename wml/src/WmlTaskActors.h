// The actors of events, tasks and what stands in tasks. Each class is the row of one element, as in
// WmlDeckActors.h.
#pragma once

#include "ChConfigData.h"
#include "WmlRuledActor.h"

namespace lumnis {

class DoTagActor final : public WmlRuledActor {
  public:
    // With validation two do elements of one card must differ in their names; one without a name
    // has its type as name (WML 1.3, 9.7).
    explicit DoTagActor(const Setup& theSetup,
                        bool theValidation = ChConfigData::instance().chWmlDoElementValidation())
        : WmlRuledActor(theSetup, Content::ALWAYS, Flush::BEGIN),
          nameAttrM(&theSetup.element.getAttribute("name")),
          typesM(makePrefixTable("type",
                                 {"accept", "prev", "help", "reset", "options", "delete", "vnd."})),
          validationM(theValidation) {
        vdata("label");
        special("name");
        special("type");
        enumeration("optional", {"false", "true"});
        nmToken("xml:lang");
        core();
    }

  private:
    bool tokenizeSpecial(unsigned char theToken, const XpDtd::Attribute& theAttr,
                         const XpDtd::AttributeMap& theAttributes, WmlCtrl& theCtrl) const override;
    void declare(const CpsString& theName, WmlCtrl& theCtrl) const;

    const XpDtd::Attribute* nameAttrM;
    PrefixTable typesM;
    bool validationM;
};

class OneventTagActor final : public WmlRuledActor {
  public:
    explicit OneventTagActor(const Setup& theSetup)
        : WmlRuledActor(theSetup, Content::ALWAYS, Flush::BEGIN) {
        pagedCdata("type", {"ontimer", "onenterforward", "onenterbackward", "onpick"});
        core();
    }
};

class GoTagActor final : public WmlRuledActor {
  public:
    explicit GoTagActor(const Setup& theSetup)
        : WmlRuledActor(theSetup, Content::OPTIONAL, Flush::BEGIN) {
        pagedEscapedVdata("href", {"http://", "https://"});
        enumeration("sendreferer", {"false", "true"});
        enumeration("method", {"post", "get"});
        if (theSetup.version > 1) {
            prefixedVdata("enctype", {"application/x-www-form-urlencoded", "multipart/form-data"});
        }
        if (theSetup.version > 2) {
            enumeration("cache-control", {"no-cache"});
        }
        cdata("accept-charset");
        core();
    }
};

class PrevTagActor final : public WmlRuledActor {
  public:
    explicit PrevTagActor(const Setup& theSetup)
        : WmlRuledActor(theSetup, Content::OPTIONAL, Flush::BEGIN) {
        core();
    }
};

class RefreshTagActor final : public WmlRuledActor {
  public:
    explicit RefreshTagActor(const Setup& theSetup)
        : WmlRuledActor(theSetup, Content::OPTIONAL, Flush::BEGIN) {
        core();
    }
};

class NoopTagActor final : public WmlRuledActor {
  public:
    explicit NoopTagActor(const Setup& theSetup)
        : WmlRuledActor(theSetup, Content::NEVER, Flush::NONE) {
        core();
    }
};

class PostfieldTagActor final : public WmlRuledActor {
  public:
    explicit PostfieldTagActor(const Setup& theSetup)
        : WmlRuledActor(theSetup, Content::NEVER, Flush::NONE, Bit::FIXED) {
        vdata("name");
        vdata("value");
        core();
    }
};

// In a wta-wml deck the value may name the parameters of an event by their numbers.
class SetvarTagActor final : public WmlRuledActor {
  public:
    explicit SetvarTagActor(const Setup& theSetup)
        : WmlRuledActor(theSetup, Content::NEVER, Flush::NONE) {
        vdata("name");
        special("value");
        core();
    }

  private:
    bool tokenizeSpecial(unsigned char theToken, const XpDtd::Attribute& theAttr,
                         const XpDtd::AttributeMap& theAttributes, WmlCtrl& theCtrl) const override;
};

}  // namespace lumnis
