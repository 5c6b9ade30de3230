#include "XpDtdExceptions.h"

namespace lumnis {

XpDtd::DuplicateDeclarationException::DuplicateDeclarationException(const Item& theItem)
    : nameM(theItem.getName()) {}

CpsString XpDtd::DuplicateDeclarationException::toString() const {
    return "duplicate declaration of " + nameM;
}

XpDtd::MultipleIdException::MultipleIdException(const Element& theElement)
    : nameM(theElement.getName()) {}

CpsString XpDtd::MultipleIdException::toString() const {
    return nameM + " has more than one ID attribute";
}

XpDtd::UndeclaredException::UndeclaredException(const Item& theItem) : nameM(theItem.getName()) {}

CpsString XpDtd::UndeclaredException::toString() const {
    return nameM + " not declared";
}

XpDtd::UndefinedException::UndefinedException(std::string_view theName) : nameM(theName) {}

CpsString XpDtd::UndefinedException::toString() const {
    return nameM + " undefined";
}

XpDtd::NondeterministicException::NondeterministicException(const Item& theItem)
    : nameM(theItem.getName()) {}

CpsString XpDtd::NondeterministicException::toString() const {
    return "nondeterministic use of " + nameM;
}

CpsString XpDtd::NoTextValueException::toString() const {
    return "illegal entity reference";
}

XpDtd::MissingAttributeException::MissingAttributeException(const Attribute& theAttribute)
    : nameM(theAttribute.getName()) {}

CpsString XpDtd::MissingAttributeException::toString() const {
    return nameM + " attribute unspecified";
}

XpDtd::FixedAttributeException::FixedAttributeException(const Attribute& theAttribute)
    : nameM(theAttribute.getName()) {}

CpsString XpDtd::FixedAttributeException::toString() const {
    return nameM + " fixed value mismatch";
}

XpDtd::DuplicateAttributeException::DuplicateAttributeException(const Attribute& theAttribute)
    : nameM(theAttribute.getName()) {}

CpsString XpDtd::DuplicateAttributeException::toString() const {
    return nameM + " duplicate specification";
}

}  // namespace lumnis
