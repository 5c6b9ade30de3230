// The typed value of an attribute. Its class follows from the declared type of the attribute.
#pragma once

#include <memory>
#include <string_view>
#include <utility>
#include <vector>

#include "XpDtd.h"

namespace lumnis {

class XpDtd::AttValue {
  public:
    AttValue() = default;
    AttValue(const AttValue&) = delete;
    AttValue& operator=(const AttValue&) = delete;
    virtual ~AttValue();

    // Values of different classes differ.
    virtual bool operator==(const AttValue& theOther) const = 0;
    virtual CpsString toString() const;
    // The same without a copy where the value holds its text; theBuffer is for the others. Valid
    // as long as both.
    virtual std::string_view text(CpsString& theBuffer) const {
        theBuffer = toString();
        return theBuffer;
    }
    bool operator!=(const AttValue& theOther) const { return !(*this == theOther); }
};

class XpDtd::AttValueCData final : public XpDtd::AttValue {
  public:
    AttValueCData() = default;
    explicit AttValueCData(std::string_view theData) : dataM(theData) {}

    const CpsString& getData() const { return dataM; }
    void setData(std::string_view theData) { dataM.assign(theData); }
    bool operator==(const AttValue& theOther) const override;
    CpsString toString() const override { return dataM; }
    std::string_view text(CpsString&) const override { return dataM; }

  private:
    CpsString dataM;
};

// IDs belong to the table of one parse. The values keep that table alive beyond it, so that the
// default of a finished DTD can still be printed, and never equals an ID of another parse.
class XpDtd::AttValueId final : public XpDtd::AttValue {
  public:
    AttValueId() = default;
    AttValueId(const Id* theId, std::shared_ptr<const IdTable> theTable)
        : idM(theId), tableM(std::move(theTable)) {}

    const Id* getId() const { return idM; }
    void setId(const Id* theId, const std::shared_ptr<const IdTable>& theTable) {
        idM = theId;
        tableM = theTable;
    }
    bool operator==(const AttValue& theOther) const override;
    CpsString toString() const override;

  private:
    const Id* idM = nullptr;
    std::shared_ptr<const IdTable> tableM;
};

class XpDtd::AttValueIdRef final : public XpDtd::AttValue {
  public:
    AttValueIdRef(const Id* theId, std::shared_ptr<const IdTable> theTable)
        : idM(theId), tableM(std::move(theTable)) {}

    const Id* getId() const { return idM; }
    bool operator==(const AttValue& theOther) const override;
    CpsString toString() const override;

  private:
    const Id* idM;
    std::shared_ptr<const IdTable> tableM;
};

class XpDtd::AttValueIdRefs final : public XpDtd::AttValue {
  public:
    using Ids = std::vector<const Id*>;

    AttValueIdRefs(Ids theIds, std::shared_ptr<const IdTable> theTable)
        : idsM(std::move(theIds)), tableM(std::move(theTable)) {}

    const Ids& getIds() const { return idsM; }
    bool operator==(const AttValue& theOther) const override;
    CpsString toString() const override;

  private:
    Ids idsM;
    std::shared_ptr<const IdTable> tableM;
};

class XpDtd::AttValueEntity final : public XpDtd::AttValue {
  public:
    explicit AttValueEntity(const Entity* theEntity) : entityM(theEntity) {}

    const Entity* getEntity() const { return entityM; }
    bool operator==(const AttValue& theOther) const override;
    CpsString toString() const override;

  private:
    const Entity* entityM;
};

class XpDtd::AttValueEntities final : public XpDtd::AttValue {
  public:
    using Entities = std::vector<const Entity*>;

    explicit AttValueEntities(Entities theEntities) : entitiesM(std::move(theEntities)) {}

    const Entities& getEntities() const { return entitiesM; }
    bool operator==(const AttValue& theOther) const override;
    CpsString toString() const override;

  private:
    Entities entitiesM;
};

class XpDtd::AttValueNmToken final : public XpDtd::AttValue {
  public:
    AttValueNmToken() = default;
    explicit AttValueNmToken(std::string_view theToken) : tokenM(theToken) {}

    const CpsString& getToken() const { return tokenM; }
    void setToken(std::string_view theToken) { tokenM.assign(theToken); }
    bool operator==(const AttValue& theOther) const override;
    CpsString toString() const override { return tokenM; }
    std::string_view text(CpsString&) const override { return tokenM; }

  private:
    CpsString tokenM;
};

class XpDtd::AttValueNmTokens final : public XpDtd::AttValue {
  public:
    // One blank stands between two tokens, and none at the ends. A string for each token would
    // take fifty times the space.
    explicit AttValueNmTokens(CpsString theTokens) : tokensM(std::move(theTokens)) {}

    const CpsString& getTokens() const { return tokensM; }
    bool operator==(const AttValue& theOther) const override;
    CpsString toString() const override { return tokensM; }

  private:
    CpsString tokensM;
};

class XpDtd::AttValueNotation final : public XpDtd::AttValue {
  public:
    explicit AttValueNotation(const Notation* theNotation) : notationM(theNotation) {}

    const Notation* getNotation() const { return notationM; }
    bool operator==(const AttValue& theOther) const override;
    CpsString toString() const override;

  private:
    const Notation* notationM;
};

class XpDtd::AttValueEnum final : public XpDtd::AttValue {
  public:
    AttValueEnum() = default;
    explicit AttValueEnum(const Enum* theEnum) : enumTokenM(theEnum) {}

    const Enum* getEnum() const { return enumTokenM; }
    void setEnum(const Enum* theEnum) { enumTokenM = theEnum; }
    bool operator==(const AttValue& theOther) const override;
    CpsString toString() const override;

  private:
    const Enum* enumTokenM = nullptr;
};

}  // namespace lumnis
