// The named things of a DTD: elements, attributes, entities, notations, enumeration tokens, IDs.
#pragma once

#include <cstdint>
#include <deque>
#include <map>
#include <memory>
#include <string_view>
#include <vector>

#include "CpsNumberTable.h"
#include "XpDtd.h"

namespace lumnis {

class XpDtd::Item {
  public:
    class Beforehand;

    explicit Item(std::string_view theName);
    Item(const Item&) = delete;
    Item& operator=(const Item&) = delete;

    const CpsString& getName() const { return nameM; }
    // The item of the same name in the external subset, once the internal one has been merged
    // with it; null before. Not owned.
    const Item* getBase() const { return baseM; }
    void setBase(const Item* theBase) { baseM = theBase; }
    // Grows with each item of the process: the order of sets and maps of items.
    std::uint64_t getCreation() const { return creationM; }
    static std::uint64_t nextCreation();

  protected:
    ~Item();

  private:
    CpsString nameM;
    const Item* baseM = nullptr;
    std::uint64_t creationM;
};

// What a thread makes while it has one of these counts as made before all that is made without.
// So a DTD of the program can be parsed when the first document needs it, and its attributes stand
// in front of those that the document itself has declared by then.
class XpDtd::Item::Beforehand {
  public:
    Beforehand() noexcept;
    Beforehand(const Beforehand&) = delete;
    Beforehand& operator=(const Beforehand&) = delete;
    ~Beforehand();

  private:
    bool wasActiveM;
};

// An item with a value: a content model, an entity's text or an external identifier.
class XpDtd::ValuedItem : public XpDtd::Item {
  public:
    explicit ValuedItem(std::string_view theName);

    // The own value, else that of the nearest item behind getBase that has one, else null.
    const ItemValue* getValue() const;
    // The first value wins: a later one is dropped.
    void setValue(std::unique_ptr<ItemValue> theValue);
    // Throws DuplicateDeclarationException if there is a value, here or behind getBase.
    void define(std::unique_ptr<ItemValue> theValue);
    // Throws UndeclaredException without a value, NoTextValueException for an external one.
    const CpsString& getTextValue() const;
    // For changes to a value just given; null if there is no own value.
    ItemValue* getOwnValue() { return valueM.get(); }

  protected:
    ~ValuedItem();

  private:
    std::unique_ptr<ItemValue> valueM;
};

class XpDtd::Entity final : public XpDtd::ValuedItem {
  public:
    using ValuedItem::ValuedItem;
};

class XpDtd::Notation final : public XpDtd::ValuedItem {
  public:
    using ValuedItem::ValuedItem;
};

class XpDtd::Enum final : public XpDtd::Item {
  public:
    using Item::Item;
};

class XpDtd::Id final : public XpDtd::Item {
  public:
    using Item::Item;

    bool isDefined() const { return definedM; }
    void setDefined() { definedM = true; }

  private:
    bool definedM = false;  // an ID attribute has had this name, not only an IDREF
};

// The IDs of one parse, each name once.
class XpDtd::IdTable {
  public:
    using Ids = std::deque<Id>;

    IdTable();
    IdTable(const IdTable&) = delete;
    IdTable& operator=(const IdTable&) = delete;
    ~IdTable();

    // Made if there is none of that name.
    Id& obtain(std::string_view theName);
    // In the order in which they were made.
    const Ids& getIds() const { return idsM; }

  private:
    Ids idsM;
    CpsNumberTable<std::string_view> numbersM;  // of idsM, by name
};

class XpDtd::Attribute final : public XpDtd::Item {
  public:
    enum DefaultKind { DEFAULT, REQUIRED, IMPLIED, FIXED };

    // theDefault may be null.
    Attribute(std::string_view theName, std::unique_ptr<const AttValueProcessor> theProcessor,
              DefaultKind theKind, std::unique_ptr<const AttValue> theDefault);
    ~Attribute();

    // Null if there is none.
    const AttValue* getDefault() const { return defaultValueM.get(); }
    const AttValueProcessor& getProcessor() const { return *processorM; }
    DefaultKind getDefaultKind() const { return defaultKindM; }

  private:
    std::unique_ptr<const AttValueProcessor> processorM;
    DefaultKind defaultKindM;
    std::unique_ptr<const AttValue> defaultValueM;
};

class XpDtd::Element final : public XpDtd::ValuedItem {
  public:
    explicit Element(std::string_view theName);
    ~Element();

    void setActor(ElementActor* theActor) { actorM = theActor; }
    // Null if there is none.
    ElementActor* getActor() const { return actorM; }
    // The content model, null if the element is not declared.
    const GrammarUnit* getContent() const;
    // Own or inherited. Throws UndefinedException.
    const Attribute& getAttribute(std::string_view theName) const;
    // The same, null if there is none.
    const Attribute* findAttribute(std::string_view theName) const;
    // Takes the attributes of one ATTLIST declaration, the last one first, that have a new name:
    // the others stay. So the first declaration of a name wins, and inside of one declaration the
    // last definition. Throws MultipleIdException.
    void addAttributes(std::vector<std::unique_ptr<Attribute>>& theAttributes);
    // Adds an attribute whose name is new here.
    const Attribute& implyAttribute(std::unique_ptr<Attribute> theAttribute);
    // Makes theExternal the base and, if asked, inherits its attributes that are not hidden by
    // own ones. Throws DuplicateDeclarationException or MultipleIdException.
    void merge(const Element& theExternal, bool withAttributes);
    // Throws MissingAttributeException for the first required attribute that is not there.
    void checkRequired(const AttributeMap& theAttributes) const;

  private:
    // What the element notes of an attribute that is new to it.
    void noteAttribute(const Attribute& theAttribute);

    std::map<std::string_view, std::unique_ptr<Attribute>> attributesM;
    std::map<std::string_view, const Attribute*> inheritedAttributesM;  // of the external subset
    bool hasIdM = false;
    ElementActor* actorM = nullptr;
    std::vector<const Attribute*> requiredAttributesM;
};

}  // namespace lumnis
