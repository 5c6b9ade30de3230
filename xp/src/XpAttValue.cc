#include "XpAttValue.h"

#include <typeinfo>

namespace lumnis {

namespace {

// theOther as a value of the class of theSelf, or null.
template <typename T>
const T* likeSelf(const T& theSelf, const XpDtd::AttValue& theOther) {
    return typeid(theSelf) == typeid(theOther) ? static_cast<const T*>(&theOther) : nullptr;
}

CpsString joinNames(const auto& theItems) {
    CpsString result;
    for (const auto& item : theItems) {
        if (&item != &theItems.front()) {
            result.appendPiece(" ");
        }
        result.appendPiece(item->getName());
    }
    return result;
}

}  // namespace

XpDtd::AttValue::~AttValue() = default;

CpsString XpDtd::AttValue::toString() const {
    return "unknown";
}

bool XpDtd::AttValueCData::operator==(const AttValue& theOther) const {
    const auto* other = likeSelf(*this, theOther);
    return other != nullptr && dataM == other->dataM;
}

bool XpDtd::AttValueId::operator==(const AttValue& theOther) const {
    const auto* other = likeSelf(*this, theOther);
    return other != nullptr && idM == other->idM;
}

CpsString XpDtd::AttValueId::toString() const {
    return idM->getName();
}

bool XpDtd::AttValueIdRef::operator==(const AttValue& theOther) const {
    const auto* other = likeSelf(*this, theOther);
    return other != nullptr && idM == other->idM;
}

CpsString XpDtd::AttValueIdRef::toString() const {
    return idM->getName();
}

bool XpDtd::AttValueIdRefs::operator==(const AttValue& theOther) const {
    const auto* other = likeSelf(*this, theOther);
    return other != nullptr && idsM == other->idsM;
}

CpsString XpDtd::AttValueIdRefs::toString() const {
    return joinNames(idsM);
}

bool XpDtd::AttValueEntity::operator==(const AttValue& theOther) const {
    const auto* other = likeSelf(*this, theOther);
    return other != nullptr && entityM == other->entityM;
}

CpsString XpDtd::AttValueEntity::toString() const {
    return entityM->getName();
}

bool XpDtd::AttValueEntities::operator==(const AttValue& theOther) const {
    const auto* other = likeSelf(*this, theOther);
    return other != nullptr && entitiesM == other->entitiesM;
}

CpsString XpDtd::AttValueEntities::toString() const {
    return joinNames(entitiesM);
}

bool XpDtd::AttValueNmToken::operator==(const AttValue& theOther) const {
    const auto* other = likeSelf(*this, theOther);
    return other != nullptr && tokenM == other->tokenM;
}

bool XpDtd::AttValueNmTokens::operator==(const AttValue& theOther) const {
    const auto* other = likeSelf(*this, theOther);
    return other != nullptr && tokensM == other->tokensM;
}

bool XpDtd::AttValueNotation::operator==(const AttValue& theOther) const {
    const auto* other = likeSelf(*this, theOther);
    return other != nullptr && notationM == other->notationM;
}

CpsString XpDtd::AttValueNotation::toString() const {
    return notationM->getName();
}

bool XpDtd::AttValueEnum::operator==(const AttValue& theOther) const {
    const auto* other = likeSelf(*this, theOther);
    return other != nullptr && enumTokenM == other->enumTokenM;
}

CpsString XpDtd::AttValueEnum::toString() const {
    return enumTokenM->getName();
}

}  // namespace lumnis
