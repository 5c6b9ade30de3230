// Turns the text of an attribute into a value of its declared type.
//
// The tokenised types are read through the scanner, so that names and name tokens obey its rules.
#pragma once

#include <memory>
#include <string_view>

#include "XpDtd.h"

namespace lumnis {

class XpLexer;

class XpDtd::AttValueProcessor {
  public:
    AttValueProcessor() = default;
    AttValueProcessor(const AttValueProcessor&) = delete;
    AttValueProcessor& operator=(const AttValueProcessor&) = delete;
    virtual ~AttValueProcessor();

    // What a parse gives to the reading of its values.
    struct Environment {
        XpLexer& lexer;
        const XpDtd& activeDtd;  // the one to look in
        XpDtd* buildingDtd;      // may be extended; null if the DTD is complete
    };

    // theText has passed the text step: references expanded, white space made blanks. Throws an
    // XpException.
    virtual std::unique_ptr<const AttValue> process(std::string_view theText,
                                                    const Environment& theEnvironment) const = 0;
    // Adds the value to theAttributes, where the frequent types need no object of their own for
    // each.
    virtual void add(AttributeMap& theAttributes, const Attribute& theAttribute,
                     std::string_view theText, const Environment& theEnvironment) const;
    // True if an attribute of this type may be declared with theValue, which may be null.
    virtual bool checkDefault(const AttValue* theValue, Attribute::DefaultKind theKind) const;
    virtual bool isId() const { return false; }
};

// Takes the text as it is.
class XpCDataProcessor final : public XpDtd::AttValueProcessor {
  public:
    void add(XpDtd::AttributeMap& theAttributes, const XpDtd::Attribute& theAttribute,
             std::string_view theText, const Environment& theEnvironment) const override;
    std::unique_ptr<const XpDtd::AttValue> process(
        std::string_view theText, const Environment& theEnvironment) const override;
};

// Enters the name in the scanner's table of IDs as defined; once for each name.
class XpIdProcessor final : public XpDtd::AttValueProcessor {
  public:
    std::unique_ptr<const XpDtd::AttValue> process(
        std::string_view theText, const Environment& theEnvironment) const override;
    void add(XpDtd::AttributeMap& theAttributes, const XpDtd::Attribute& theAttribute,
             std::string_view theText, const Environment& theEnvironment) const override;
    bool checkDefault(const XpDtd::AttValue* theValue,
                      XpDtd::Attribute::DefaultKind theKind) const override;
    bool isId() const override { return true; }
};

// Enters the name in the table, defined or not.
class XpIdRefProcessor final : public XpDtd::AttValueProcessor {
  public:
    std::unique_ptr<const XpDtd::AttValue> process(
        std::string_view theText, const Environment& theEnvironment) const override;
};

class XpIdRefsProcessor final : public XpDtd::AttValueProcessor {
  public:
    std::unique_ptr<const XpDtd::AttValue> process(
        std::string_view theText, const Environment& theEnvironment) const override;
};

// Wants the name of an unparsed entity.
class XpEntityProcessor final : public XpDtd::AttValueProcessor {
  public:
    std::unique_ptr<const XpDtd::AttValue> process(
        std::string_view theText, const Environment& theEnvironment) const override;
};

class XpEntitiesProcessor final : public XpDtd::AttValueProcessor {
  public:
    std::unique_ptr<const XpDtd::AttValue> process(
        std::string_view theText, const Environment& theEnvironment) const override;
};

class XpNmTokenProcessor final : public XpDtd::AttValueProcessor {
  public:
    std::unique_ptr<const XpDtd::AttValue> process(
        std::string_view theText, const Environment& theEnvironment) const override;
    void add(XpDtd::AttributeMap& theAttributes, const XpDtd::Attribute& theAttribute,
             std::string_view theText, const Environment& theEnvironment) const override;
};

class XpNmTokensProcessor final : public XpDtd::AttValueProcessor {
  public:
    std::unique_ptr<const XpDtd::AttValue> process(
        std::string_view theText, const Environment& theEnvironment) const override;
};

// Wants one of the notations that the declaration lists.
class XpNotationProcessor final : public XpDtd::AttValueProcessor {
  public:
    explicit XpNotationProcessor(std::unique_ptr<XpDtd::Choice> theChoice);
    ~XpNotationProcessor() override;
    std::unique_ptr<const XpDtd::AttValue> process(
        std::string_view theText, const Environment& theEnvironment) const override;

  private:
    std::unique_ptr<const XpDtd::Choice> choiceM;
};

// Wants one of the tokens that the declaration lists.
class XpEnumProcessor final : public XpDtd::AttValueProcessor {
  public:
    explicit XpEnumProcessor(std::unique_ptr<XpDtd::Choice> theChoice);
    ~XpEnumProcessor() override;
    std::unique_ptr<const XpDtd::AttValue> process(
        std::string_view theText, const Environment& theEnvironment) const override;
    void add(XpDtd::AttributeMap& theAttributes, const XpDtd::Attribute& theAttribute,
             std::string_view theText, const Environment& theEnvironment) const override;

  private:
    const XpDtd::Enum& read(std::string_view theText, const Environment& theEnvironment) const;

    std::unique_ptr<const XpDtd::Choice> choiceM;
};

}  // namespace lumnis
