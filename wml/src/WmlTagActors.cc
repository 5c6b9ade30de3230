#include "WmlTagActors.h"

#include <algorithm>
#include <iterator>

#include "WmlContentActors.h"
#include "WmlDeckActors.h"
#include "WmlTaskActors.h"
#include "WmlTokens.h"

namespace lumnis {
namespace {

using Setup = WmlRuledActor::Setup;
using Actor = std::unique_ptr<XpDtd::ElementActor>;

template <typename T>
Actor make(const Setup& theSetup) {
    return std::make_unique<T>(theSetup);
}

struct ElementRow {
    const char* name;
    Actor (*make)(const Setup& theSetup);
};
constexpr ElementRow theElements[] = {
    {"wml", make<WmlTagActor>},
    {"card", make<CardTagActor>},
    {"p", make<PTagActor>},
    {"timer", make<TimerTagActor>},
    {"do", make<DoTagActor>},
    {"onevent", make<OneventTagActor>},
    {"head", make<HeadTagActor>},
    {"template", make<TemplateTagActor>},
    {"access", make<AccessTagActor>},
    {"meta", make<MetaTagActor>},
    {"go", make<GoTagActor>},
    {"prev", make<PrevTagActor>},
    {"noop", make<NoopTagActor>},
    {"refresh", make<RefreshTagActor>},
    {"postfield", make<PostfieldTagActor>},
    {"setvar", make<SetvarTagActor>},
    {"select", make<SelectTagActor>},
    {"optgroup", make<OptgroupTagActor>},
    {"option", make<OptionTagActor>},
    {"input", make<InputTagActor>},
    {"fieldset", make<FieldsetTagActor>},
    {"img", make<ImgTagActor>},
    {"anchor", make<AnchorTagActor>},
    {"a", make<ATagActor>},
    {"table", make<TableTagActor>},
    {"tr", make<TrTagActor>},
    {"td", make<TdTagActor>},
    {"em", make<LayoutTagActors>},
    {"strong", make<LayoutTagActors>},
    {"b", make<LayoutTagActors>},
    {"i", make<LayoutTagActors>},
    {"u", make<LayoutTagActors>},
    {"big", make<LayoutTagActors>},
    {"small", make<LayoutTagActors>},
    {"br", make<BrTagActor>},
    {"pre", make<PreTagActor>},
    {"wta-wml", make<WtaWmlTagActor>},
};

// Each token has its element, and there are no more elements than tokens.
constexpr auto hasElement = [](const WmlTagToken& theToken) {
    return std::ranges::any_of(
        theElements, [&](const ElementRow& theRow) { return theRow.name == theToken.name; });
};
static_assert(std::ranges::all_of(theWmlTagTokens, hasElement));
static_assert(std::ranges::all_of(theWtaTagTokens, hasElement));
static_assert(std::size(theElements) == theWmlTagTokens.size() + theWtaTagTokens.size());

// No document type has all elements.
bool isDeclared(const XpDtd& theDtd, const char* theName) {
    try {
        return theDtd.obtainElement(theName).getContent() != nullptr;
    } catch (const XpDtd::UndefinedException&) {
        return false;
    }
}

}  // namespace

std::vector<std::unique_ptr<XpDtd::ElementActor>> makeWmlTagActors(XpDtd& theDtd, int theVersion) {
    std::vector<Actor> actors;
    for (const ElementRow& row : theElements) {
        if (isDeclared(theDtd, row.name)) {
            XpDtd::Element& element = theDtd.obtainElement(row.name);
            actors.push_back(row.make({theDtd, element, theVersion}));
            element.setActor(actors.back().get());
        }
    }
    return actors;
}

}  // namespace lumnis
