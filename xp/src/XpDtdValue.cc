#include "XpDtdValue.h"

#include <utility>

#include "XpContentNode.h"

namespace lumnis {

XpDtd::ItemValue::~ItemValue() = default;

const CpsString& XpDtd::ItemValue::getText() const {
    throw NoTextValueException();
}

XpDtd::GrammarUnit::GrammarUnit(std::unique_ptr<ContentNode> theFirst)
    : firstM(std::move(theFirst)) {}

XpDtd::GrammarUnit::~GrammarUnit() = default;

XpDtd::EntityValue::EntityValue(CpsString theText) : textM(std::move(theText)) {
    // Written now: later on several threads may read the text.
    textM.c_str();
}

XpDtd::ExternalId::ExternalId(std::unique_ptr<CpsString> theSystemId)
    : systemIdM(std::move(theSystemId)) {}

XpDtd::PublicId::PublicId(std::unique_ptr<CpsString> thePublicId,
                          std::unique_ptr<CpsString> theSystemId)
    : ExternalId(std::move(theSystemId)), publicIdM(std::move(thePublicId)) {}

}  // namespace lumnis
