#include "XpDtdItem.h"

#include <atomic>
#include <utility>

#include "XpAttValueProcessor.h"

namespace lumnis {

namespace {

// A byte of the memory that each thread has from its start. In the usual model of a shared library
// the loader takes it at the first use, and ends the process if there is none.
[[gnu::tls_model("initial-exec")]] thread_local bool isMadeBeforehand = false;

}  // namespace

XpDtd::Item::Item(std::string_view theName) : nameM(theName), creationM(nextCreation()) {}

XpDtd::Item::~Item() = default;

// Only the order of two items that one parse sees together counts, and one thread made those one
// after the other, so the sharing of the counter shows nowhere.
std::uint64_t XpDtd::Item::nextCreation() {
    static std::atomic<std::uint64_t> counter{0};
    constexpr std::uint64_t theLaterBit = std::uint64_t{1} << 63;
    return counter.fetch_add(1, std::memory_order_relaxed) | (isMadeBeforehand ? 0 : theLaterBit);
}

XpDtd::Item::Beforehand::Beforehand() noexcept
    : wasActiveM(std::exchange(isMadeBeforehand, true)) {}

XpDtd::Item::Beforehand::~Beforehand() {
    isMadeBeforehand = wasActiveM;
}

XpDtd::ValuedItem::ValuedItem(std::string_view theName) : Item(theName) {}

XpDtd::ValuedItem::~ValuedItem() = default;

const XpDtd::ItemValue* XpDtd::ValuedItem::getValue() const {
    for (const ValuedItem* item = this; item != nullptr;
         item = static_cast<const ValuedItem*>(item->getBase())) {
        if (item->valueM != nullptr) {
            return item->valueM.get();
        }
    }
    return nullptr;
}

void XpDtd::ValuedItem::setValue(std::unique_ptr<ItemValue> theValue) {
    if (valueM == nullptr) {
        valueM = std::move(theValue);
    }
}

void XpDtd::ValuedItem::define(std::unique_ptr<ItemValue> theValue) {
    if (getValue() != nullptr) {
        throw DuplicateDeclarationException(*this);
    }
    setValue(std::move(theValue));
}

const CpsString& XpDtd::ValuedItem::getTextValue() const {
    const ItemValue* value = getValue();
    if (value == nullptr) {
        throw UndeclaredException(*this);
    }
    return value->getText();
}

XpDtd::IdTable::IdTable() = default;

XpDtd::IdTable::~IdTable() = default;

XpDtd::Id& XpDtd::IdTable::obtain(std::string_view theName) {
    const int known = numbersM.find(theName);
    if (known >= 0) {
        return idsM[static_cast<std::size_t>(known)];
    }
    Id& id = idsM.emplace_back(theName);
    numbersM.add(id.getName(), static_cast<int>(idsM.size() - 1));
    return id;
}

XpDtd::Attribute::Attribute(std::string_view theName,
                            std::unique_ptr<const AttValueProcessor> theProcessor,
                            DefaultKind theKind, std::unique_ptr<const AttValue> theDefault)
    : Item(theName),
      processorM(std::move(theProcessor)),
      defaultKindM(theKind),
      defaultValueM(std::move(theDefault)) {}

XpDtd::Attribute::~Attribute() = default;

XpDtd::Element::Element(std::string_view theName) : ValuedItem(theName) {}

XpDtd::Element::~Element() = default;

const XpDtd::GrammarUnit* XpDtd::Element::getContent() const {
    return static_cast<const GrammarUnit*>(getValue());
}

const XpDtd::Attribute* XpDtd::Element::findAttribute(std::string_view theName) const {
    const auto own = attributesM.find(theName);
    if (own != attributesM.end()) {
        return own->second.get();
    }
    const auto inherited = inheritedAttributesM.find(theName);
    return inherited == inheritedAttributesM.end() ? nullptr : inherited->second;
}

const XpDtd::Attribute& XpDtd::Element::getAttribute(std::string_view theName) const {
    const Attribute* attribute = findAttribute(theName);
    if (attribute == nullptr) {
        throw UndefinedException(theName);
    }
    return *attribute;
}

void XpDtd::Element::noteAttribute(const Attribute& theAttribute) {
    if (theAttribute.getProcessor().isId()) {
        if (hasIdM) {
            throw MultipleIdException(*this);
        }
        hasIdM = true;
    }
    if (theAttribute.getDefaultKind() == Attribute::REQUIRED) {
        requiredAttributesM.push_back(&theAttribute);
    }
}

void XpDtd::Element::addAttributes(std::vector<std::unique_ptr<Attribute>>& theAttributes) {
    for (auto attribute = theAttributes.rbegin(); attribute != theAttributes.rend(); ++attribute) {
        const auto [place, isNew] =
            attributesM.try_emplace((*attribute)->getName().view(), nullptr);
        if (isNew) {
            place->second = std::move(*attribute);
            noteAttribute(*place->second);
        }
    }
}

const XpDtd::Attribute& XpDtd::Element::implyAttribute(std::unique_ptr<Attribute> theAttribute) {
    const std::string_view name = theAttribute->getName().view();
    return *(attributesM[name] = std::move(theAttribute));
}

void XpDtd::Element::merge(const Element& theExternal, bool withAttributes) {
    if (getValue() != nullptr && theExternal.getValue() != nullptr) {
        throw DuplicateDeclarationException(*this);
    }
    setBase(&theExternal);
    if (!withAttributes) {
        return;
    }
    for (const auto& [name, attribute] : theExternal.attributesM) {
        if (attributesM.find(name) == attributesM.end()) {
            inheritedAttributesM.emplace(name, attribute.get());
            noteAttribute(*attribute);
        }
    }
}

void XpDtd::Element::checkRequired(const AttributeMap& theAttributes) const {
    for (const Attribute* attribute : requiredAttributesM) {
        if (theAttributes.find(attribute) == nullptr) {
            throw MissingAttributeException(*attribute);
        }
    }
}

}  // namespace lumnis
