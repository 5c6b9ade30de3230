// The actors of what a card shows. Each class is the row of one element, as in WmlDeckActors.h.
#pragma once

#include "WmlRuledActor.h"

namespace lumnis {

// ---- Text

class PTagActor final : public WmlRuledActor {
  public:
    explicit PTagActor(const Setup& theSetup)
        : WmlRuledActor(theSetup, Content::OPTIONAL, Flush::END, Bit::TAKEN) {
        enumeration("align", {"left", "right", "center"});
        enumeration("mode", {"wrap", "nowrap"});
        nmToken("xml:lang");
        core();
    }
};

// em, strong, b, i, u, big and small.
class LayoutTagActors final : public WmlRuledActor {
  public:
    explicit LayoutTagActors(const Setup& theSetup)
        : WmlRuledActor(theSetup, Content::OPTIONAL, Flush::BOTH) {
        nmToken("xml:lang");
        core();
    }
};

class BrTagActor final : public WmlRuledActor {
  public:
    explicit BrTagActor(const Setup& theSetup)
        : WmlRuledActor(theSetup, Content::NEVER, Flush::BEGIN) {
        if (theSetup.version == 1) {
            nmToken("xml:lang");
        }
        core();
    }
};

// Text keeps its white space only where xml:space is stated: the fixed value of the DTD is not an
// attribute of the tag.
class PreTagActor final : public WmlRuledActor {
  public:
    explicit PreTagActor(const Setup& theSetup)
        : WmlRuledActor(theSetup, Content::PAIRED, Flush::END) {
        special("xml:space");
        core();
    }

  private:
    bool tokenizeSpecial(unsigned char theToken, const XpDtd::Attribute& theAttr,
                         const XpDtd::AttributeMap& theAttributes, WmlCtrl& theCtrl) const override;
    void leave(WmlCtrl& theCtrl) const override { theCtrl.setPreserveWhiteSpaceFlag(false); }
};

// ---- Choice and input

class SelectTagActor final : public WmlRuledActor {
  public:
    explicit SelectTagActor(const Setup& theSetup)
        : WmlRuledActor(theSetup, Content::ALWAYS, Flush::BEGIN, Bit::TAKEN) {
        vdata("title");
        nmToken("name");
        vdata("value");
        nmToken("iname");
        vdata("ivalue");
        enumeration("multiple", {"false", "true"});
        number("tabindex");
        nmToken("xml:lang");
        core();
    }
};

class OptgroupTagActor final : public WmlRuledActor {
  public:
    explicit OptgroupTagActor(const Setup& theSetup)
        : WmlRuledActor(theSetup, Content::ALWAYS, Flush::NONE) {
        vdata("title");
        nmToken("xml:lang");
        core();
    }
};

class OptionTagActor final : public WmlRuledActor {
  public:
    explicit OptionTagActor(const Setup& theSetup)
        : WmlRuledActor(theSetup, Content::OPTIONAL, Flush::END) {
        vdata("value");
        vdata("title");
        escapedVdata("onpick");
        nmToken("xml:lang");
        core();
    }
};

class InputTagActor final : public WmlRuledActor {
  public:
    explicit InputTagActor(const Setup& theSetup)
        : WmlRuledActor(theSetup, Content::NEVER, Flush::BEGIN) {
        nmToken("name");
        enumeration("type", {"text", "password"});
        vdata("value");
        cdata("format");
        enumeration("emptyok", {"true", "false"});
        number("size");
        number("maxlength");
        number("tabindex");
        vdata("title");
        if (theSetup.version > 1) {
            vdata("accesskey");
        }
        nmToken("xml:lang");
        core();
    }
};

class FieldsetTagActor final : public WmlRuledActor {
  public:
    explicit FieldsetTagActor(const Setup& theSetup)
        : WmlRuledActor(theSetup, Content::OPTIONAL, Flush::BOTH) {
        vdata("title");
        nmToken("xml:lang");
        core();
    }
};

// ---- Images and links

class ImgTagActor final : public WmlRuledActor {
  public:
    explicit ImgTagActor(const Setup& theSetup)
        : WmlRuledActor(theSetup, Content::NEVER, Flush::BEGIN) {
        vdata("alt");
        escapedPrefixedVdata("src", {"http://", "https://"});
        vdata("localsrc");
        length("vspace");
        length("hspace");
        enumeration("align", {"top", "middle", "bottom"});
        length("height");
        length("width");
        nmToken("xml:lang");
        core();
    }
};

class AnchorTagActor final : public WmlRuledActor {
  public:
    explicit AnchorTagActor(const Setup& theSetup)
        : WmlRuledActor(theSetup, Content::OPTIONAL, Flush::BOTH) {
        vdata("title");
        if (theSetup.version > 1) {
            vdata("accesskey");
        }
        nmToken("xml:lang");
        core();
    }
};

class ATagActor final : public WmlRuledActor {
  public:
    explicit ATagActor(const Setup& theSetup)
        : WmlRuledActor(theSetup, Content::PAIRED, Flush::BOTH) {
        pagedEscapedVdata("href", {"http://", "https://"});
        vdata("title");
        if (theSetup.version > 1) {
            vdata("accesskey");
        }
        nmToken("xml:lang");
        core();
    }
};

// ---- Tables

class TableTagActor final : public WmlRuledActor {
  public:
    explicit TableTagActor(const Setup& theSetup)
        : WmlRuledActor(theSetup, Content::ALWAYS, Flush::BEGIN) {
        vdata("title");
        cdata("align");
        special("columns");
        nmToken("xml:lang");
        core();
    }

  private:
    bool tokenizeSpecial(unsigned char theToken, const XpDtd::Attribute& theAttr,
                         const XpDtd::AttributeMap& theAttributes, WmlCtrl& theCtrl) const override;
};

class TrTagActor final : public WmlRuledActor {
  public:
    explicit TrTagActor(const Setup& theSetup)
        : WmlRuledActor(theSetup, Content::ALWAYS, Flush::NONE) {
        core();
    }
};

class TdTagActor final : public WmlRuledActor {
  public:
    explicit TdTagActor(const Setup& theSetup)
        : WmlRuledActor(theSetup, Content::OPTIONAL, Flush::END) {
        nmToken("xml:lang");
        core();
    }
};

}  // namespace lumnis
