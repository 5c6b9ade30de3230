// What an item of a DTD stands for.
#pragma once

#include <memory>

#include "XpDtd.h"

namespace lumnis {

class XpDtd::ItemValue {
  public:
    ItemValue() = default;
    ItemValue(const ItemValue&) = delete;
    ItemValue& operator=(const ItemValue&) = delete;
    virtual ~ItemValue();

    virtual bool isExternal() const { return false; }
    // The replacement text. Throws NoTextValueException where there is none.
    virtual const CpsString& getText() const;
    // Stands in for an entity that is not known.
    virtual bool isDummy() const { return false; }
};

// The content model of an element, as an automaton.
class XpDtd::GrammarUnit : public XpDtd::ItemValue {
  public:
    explicit GrammarUnit(std::unique_ptr<ContentNode> theFirst);
    ~GrammarUnit() override;

    const ContentNode* getFirst() const { return firstM.get(); }

  protected:
    ContentNode* getFirstNode() { return firstM.get(); }

  private:
    std::unique_ptr<ContentNode> firstM;  // the start node
};

class XpDtd::EntityValue : public XpDtd::ItemValue {
  public:
    explicit EntityValue(CpsString theText);

    // A terminator stands behind the text, so that scanners can read it in place.
    const CpsString& getText() const override { return textM; }

  private:
    CpsString textM;
};

class XpDtd::DummyEntityValue final : public XpDtd::EntityValue {
  public:
    using EntityValue::EntityValue;
    bool isDummy() const override { return true; }
};

class XpDtd::ExternalId : public XpDtd::ItemValue {
  public:
    // theSystemId may be null.
    explicit ExternalId(std::unique_ptr<CpsString> theSystemId);

    bool isExternal() const override { return true; }
    virtual const CpsString* getPublicId() const { return nullptr; }
    const CpsString* getSystemId() const { return systemIdM.get(); }
    // An entity with a notation is unparsed. Null if there is none; not owned.
    const Notation* getNotation() const { return notationM; }
    void setNotation(const Notation* theNotation) { notationM = theNotation; }

  private:
    std::unique_ptr<CpsString> systemIdM;
    const Notation* notationM = nullptr;
};

class XpDtd::SystemId final : public XpDtd::ExternalId {
  public:
    using ExternalId::ExternalId;
};

class XpDtd::PublicId final : public XpDtd::ExternalId {
  public:
    PublicId(std::unique_ptr<CpsString> thePublicId, std::unique_ptr<CpsString> theSystemId);

    const CpsString* getPublicId() const override { return publicIdM.get(); }

  private:
    std::unique_ptr<CpsString> publicIdM;
};

}  // namespace lumnis
