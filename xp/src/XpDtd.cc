#include "XpDtd.h"

#include "XpContentNode.h"

namespace lumnis {

XpDtd::XpDtd() {
    // "lt" and "amp" stand for character references that are read again when they are expanded.
    static constexpr std::string_view thePredefined[][2] = {
        {"lt", "&#60;"}, {"gt", ">"}, {"amp", "&#38;"}, {"apos", "'"}, {"quot", "\""}};
    for (const auto& [name, text] : thePredefined) {
        obtainEntity(name).setValue(std::make_unique<EntityValue>(text));
    }
}

XpDtd::~XpDtd() = default;

void XpDtd::ElementActor::end(const Element*, void*) {}

template <typename T>
const T& XpDtd::obtainRead(const ItemMap<T>& theItems, std::string_view theName) {
    const auto found = theItems.find(theName);
    if (found == theItems.end()) {
        throw UndefinedException(theName);
    }
    return *found->second;
}

template <typename T>
T& XpDtd::obtainReadWrite(ItemMap<T>& theItems, std::string_view theName) {
    const auto place = theItems.lower_bound(theName);
    if (place != theItems.end() && place->first == theName) {
        return *place->second;
    }
    auto item = std::make_unique<T>(theName);
    const std::string_view name = item->getName().view();
    return *theItems.emplace_hint(place, name, std::move(item))->second;
}

XpDtd::Element& XpDtd::obtainElement(std::string_view theName) {
    return obtainReadWrite(elementsM, theName);
}

XpDtd::Entity& XpDtd::obtainEntity(std::string_view theName) {
    return obtainReadWrite(entitiesM, theName);
}

XpDtd::Entity& XpDtd::obtainParameterEntity(std::string_view theName) {
    return obtainReadWrite(parameterEntitiesM, theName);
}

XpDtd::Notation& XpDtd::obtainNotation(std::string_view theName) {
    return obtainReadWrite(notationsM, theName);
}

XpDtd::Enum& XpDtd::obtainEnum(std::string_view theToken) {
    return obtainReadWrite(enumsM, theToken);
}

const XpDtd::Element& XpDtd::obtainElement(std::string_view theName) const {
    return obtainRead(elementsM, theName);
}

const XpDtd::Entity& XpDtd::obtainEntity(std::string_view theName) const {
    return obtainRead(entitiesM, theName);
}

const XpDtd::Entity& XpDtd::obtainParameterEntity(std::string_view theName) const {
    return obtainRead(parameterEntitiesM, theName);
}

const XpDtd::Notation& XpDtd::obtainNotation(std::string_view theName) const {
    return obtainRead(notationsM, theName);
}

const XpDtd::Enum& XpDtd::obtainEnum(std::string_view theToken) const {
    return obtainRead(enumsM, theToken);
}

void XpDtd::setElementActors(ElementActor* theActor) {
    for (const auto& [name, element] : elementsM) {
        element->setActor(theActor);
    }
}

void XpDtd::checkNotations(bool theEnabled) const {
    if (!theEnabled) {
        return;
    }
    for (const auto& [name, notation] : notationsM) {
        if (notation->getValue() == nullptr) {
            throw UndeclaredException(*notation);
        }
    }
}

template <typename T>
void XpDtd::mergeItems(ItemMap<T>& theItems, const ItemMap<T>& theExternal) {
    for (const auto& [name, item] : theExternal) {
        obtainReadWrite(theItems, name).setBase(item.get());
    }
}

void XpDtd::mergeWith(const XpDtd& theExternal, bool withAttributes) {
    for (const auto& [name, element] : theExternal.elementsM) {
        obtainElement(name).merge(*element, withAttributes);
    }
    mergeItems(entitiesM, theExternal.entitiesM);
    mergeItems(parameterEntitiesM, theExternal.parameterEntitiesM);
    mergeItems(notationsM, theExternal.notationsM);
    mergeItems(enumsM, theExternal.enumsM);
}

}  // namespace lumnis
