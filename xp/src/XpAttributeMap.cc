#include "XpAttributeMap.h"

#include <utility>

namespace lumnis {

XpDtd::AttributeMap::AttributeMap() = default;

XpDtd::AttributeMap::~AttributeMap() = default;

const XpDtd::AttValue* XpDtd::AttributeMap::find(const Attribute* theAttribute) const {
    const auto found = valuesM.find(theAttribute);
    return found == valuesM.end() ? nullptr : found->second.get();
}

void XpDtd::AttributeMap::add(const Attribute& theAttribute,
                              std::unique_ptr<const AttValue> theValue) {
    const auto [place, isNew] = valuesM.try_emplace(&theAttribute, std::move(theValue));
    if (!isNew) {
        throw DuplicateAttributeException(theAttribute);
    }
    if (theAttribute.getDefaultKind() == Attribute::FIXED &&
        !(*place->second == *theAttribute.getDefault())) {
        throw FixedAttributeException(theAttribute);
    }
}

}  // namespace lumnis
