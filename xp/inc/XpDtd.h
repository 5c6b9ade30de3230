// A document type definition in memory.
//
// The parser fills one from DTD text, an application attaches its actors to the elements, and
// later documents are validated against it, each calling the actors. Once filled it is only read,
// by any number of threads, unless a parse is told to imply what it lacks.
//
// An application sets one up in this order: parse the text with XpDtdParser; call obtainElement
// for each element that it handles and setActor on it; set the actors of text and of processing
// instructions. Elements without actor are validated and raise no event.
//
// Names are byte strings in UTF-8, compared byte for byte. The nested classes are declared in the
// headers that are included at the end, so this one is all that a user needs.
#pragma once

#include <map>
#include <memory>
#include <string_view>

#include "CpsString.h"

namespace lumnis {

class XpDtd {
  public:
    // Items: XpDtdItem.h.
    class Item;
    class ValuedItem;
    class Element;
    class Entity;
    class Notation;
    class Attribute;
    class Id;
    class IdTable;
    class Enum;
    // Values of items: XpDtdValue.h.
    class ItemValue;
    class GrammarUnit;
    class EntityValue;
    class DummyEntityValue;
    class ExternalId;
    class SystemId;
    class PublicId;
    // What an application gives: XpDtdActors.h.
    class ElementActor;
    class PcDataActor;
    class WhitespaceActor;
    class PiActor;
    // Attributes of a start tag: XpAttributeMap.h and XpAttValue.h.
    class AttributeMap;
    class AttValue;
    class AttValueCData;
    class AttValueId;
    class AttValueIdRef;
    class AttValueIdRefs;
    class AttValueEntity;
    class AttValueEntities;
    class AttValueNmToken;
    class AttValueNmTokens;
    class AttValueNotation;
    class AttValueEnum;
    // Faults of a DTD or of a document against it: XpDtdExceptions.h.
    class GrammarException;
    class AttributeException;
    class DuplicateDeclarationException;
    class MultipleIdException;
    class UndeclaredException;
    class UndefinedException;
    class NondeterministicException;
    class NoTextValueException;
    class MissingAttributeException;
    class FixedAttributeException;
    class DuplicateAttributeException;
    class ActorException;
    // Inside of the parser.
    class ContentNode;
    class FsmNode;
    class AnyNode;
    class EmptyNode;
    class Choice;
    class Fsm;
    class ChoiceFsm;
    class SeqFsm;
    class AttValueProcessor;

    // Order of creation, wherever a set or map of items or nodes has an order that can be seen.
    struct ByCreation {
        template <typename T>
        bool operator()(const T* theLeft, const T* theRight) const noexcept {
            return theLeft->getCreation() < theRight->getCreation();
        }
    };

    // Holds the five entities that XML predefines, and nothing else.
    XpDtd();
    XpDtd(const XpDtd&) = delete;
    XpDtd& operator=(const XpDtd&) = delete;
    virtual ~XpDtd();

    // The creating forms make the item if there is none of that name. An element that is only
    // named, not declared, has no content model.
    Element& obtainElement(std::string_view theName);
    Entity& obtainEntity(std::string_view theName);
    Entity& obtainParameterEntity(std::string_view theName);
    Notation& obtainNotation(std::string_view theName);
    Enum& obtainEnum(std::string_view theToken);
    // The reading forms throw UndefinedException if there is none.
    const Element& obtainElement(std::string_view theName) const;
    const Entity& obtainEntity(std::string_view theName) const;
    const Entity& obtainParameterEntity(std::string_view theName) const;
    const Notation& obtainNotation(std::string_view theName) const;
    std::size_t countParameterEntities() const { return parameterEntitiesM.size(); }
    // The identity of an enumeration token, to compare with AttValueEnum::getEnum.
    const Enum& obtainEnum(std::string_view theToken) const;

    // Actors are not owned and may be null.
    void setPiActor(PiActor* theActor) { piActorM = theActor; }
    void setPcDataActor(PcDataActor* theActor) { pcDataActorM = theActor; }
    void setCdSectionActor(PcDataActor* theActor) { cdSectionActorM = theActor; }
    void setWhitespaceActor(WhitespaceActor* theActor) { whitespaceActorM = theActor; }
    PiActor* getPiActor() const { return piActorM; }
    PcDataActor* getPcDataActor() const { return pcDataActorM; }
    PcDataActor* getCdSectionActor() const { return cdSectionActorM; }
    WhitespaceActor* getWhitespaceActor() const { return whitespaceActorM; }
    // Gives theActor to every element that is there now.
    void setElementActors(ElementActor* theActor);

    // Set when an external parameter entity could not be read: the DTD may lack declarations.
    void setIncomplete(bool theFlag) { incompleteM = theFlag; }
    bool isIncomplete() const { return incompleteM; }

    // When enabled, throws UndeclaredException for the first notation, in name order, that is
    // used and never declared.
    void checkNotations(bool theEnabled) const;
    // Makes this DTD, that of an internal subset, reach everything of theExternal. Nothing is
    // copied: theExternal must outlive this object. Throws DuplicateDeclarationException or
    // MultipleIdException.
    void mergeWith(const XpDtd& theExternal, bool withAttributes);

  private:
    // By name, in byte order; the key is the name inside the item.
    template <typename T>
    using ItemMap = std::map<std::string_view, std::unique_ptr<T>>;

    template <typename T>
    static const T& obtainRead(const ItemMap<T>& theItems, std::string_view theName);
    template <typename T>
    static T& obtainReadWrite(ItemMap<T>& theItems, std::string_view theName);
    template <typename T>
    static void mergeItems(ItemMap<T>& theItems, const ItemMap<T>& theExternal);

    ItemMap<Element> elementsM;
    ItemMap<Entity> entitiesM;  // general ones
    ItemMap<Entity> parameterEntitiesM;
    ItemMap<Notation> notationsM;
    ItemMap<Enum> enumsM;  // each token of an enumerated type once
    PiActor* piActorM = nullptr;
    PcDataActor* pcDataActorM = nullptr;
    PcDataActor* cdSectionActorM = nullptr;
    WhitespaceActor* whitespaceActorM = nullptr;
    bool incompleteM = false;
};

}  // namespace lumnis

#include "XpAttValue.h"
#include "XpAttributeMap.h"
#include "XpDtdActors.h"
#include "XpDtdExceptions.h"
#include "XpDtdItem.h"
#include "XpDtdValue.h"
