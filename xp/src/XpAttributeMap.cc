#include "XpAttributeMap.h"

#include <algorithm>
#include <utility>

namespace lumnis {

namespace {

bool isBefore(const XpDtd::AttributeMap::Entry& theLeft,
              const XpDtd::AttributeMap::Entry& theRight) {
    return XpDtd::ByCreation()(theLeft.attribute, theRight.attribute);
}

}  // namespace

XpDtd::AttributeMap::AttributeMap() = default;

XpDtd::AttributeMap::~AttributeMap() = default;

const XpDtd::AttValue* XpDtd::AttributeMap::findAmongMany(const Attribute* theAttribute) const {
    const auto place = std::lower_bound(entriesM.begin(), entriesM.end(), theAttribute,
                                        [](const Entry& theEntry, const Attribute* theOther) {
                                            return ByCreation()(theEntry.attribute, theOther);
                                        });
    return place != entriesM.end() && place->attribute == theAttribute ? place->value : nullptr;
}

bool XpDtd::AttributeMap::isNew(const Attribute& theAttribute) {
    if (entriesM.size() < theIndexLimit) {
        return std::none_of(entriesM.begin(), entriesM.end(), [&](const Entry& theEntry) {
            return theEntry.attribute == &theAttribute;
        });
    }
    if (indexM.empty()) {
        for (const Entry& entry : entriesM) {
            indexM.insert(entry.attribute);
        }
    }
    return indexM.insert(&theAttribute).second;
}

void XpDtd::AttributeMap::add(const Attribute& theAttribute,
                              std::unique_ptr<const AttValue> theValue) {
    valuesM.push_back(std::move(theValue));
    addEntry(theAttribute, *valuesM.back());
}

template <class Value>
Value& XpDtd::AttributeMap::Reused<Value>::next() {
    if (used == values.size()) {
        values.push_back(std::make_unique<Value>());
    }
    return *values[used++];
}

void XpDtd::AttributeMap::addCData(const Attribute& theAttribute, std::string_view theText) {
    AttValueCData& value = cDataM.next();
    value.setData(theText);
    addEntry(theAttribute, value);
}

void XpDtd::AttributeMap::addNmToken(const Attribute& theAttribute, std::string_view theToken) {
    AttValueNmToken& value = nmTokensM.next();
    value.setToken(theToken);
    addEntry(theAttribute, value);
}

void XpDtd::AttributeMap::addId(const Attribute& theAttribute, const Id& theId,
                                const std::shared_ptr<const IdTable>& theTable) {
    AttValueId& value = idsM.next();
    value.setId(&theId, theTable);
    addEntry(theAttribute, value);
}

void XpDtd::AttributeMap::addEnum(const Attribute& theAttribute, const Enum& theToken) {
    AttValueEnum& value = enumsM.next();
    value.setEnum(&theToken);
    addEntry(theAttribute, value);
}

void XpDtd::AttributeMap::addEntry(const Attribute& theAttribute, const AttValue& theValue) {
    if (!isNew(theAttribute)) {
        throw DuplicateAttributeException(theAttribute);
    }
    entriesM.push_back({&theAttribute, &theValue});
    if (theAttribute.getDefaultKind() == Attribute::FIXED &&
        !(theValue == *theAttribute.getDefault())) {
        throw FixedAttributeException(theAttribute);
    }
}

void XpDtd::AttributeMap::sort() {
    if (entriesM.size() > 1 && !std::is_sorted(entriesM.begin(), entriesM.end(), isBefore)) {
        std::sort(entriesM.begin(), entriesM.end(), isBefore);
    }
}

void XpDtd::AttributeMap::clear() {
    entriesM.clear();
    valuesM.clear();
    cDataM.used = 0;
    nmTokensM.used = 0;
    enumsM.used = 0;
    idsM.used = 0;
    indexM.clear();
}

}  // namespace lumnis
