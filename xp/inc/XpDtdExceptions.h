// Faults of a DTD, or of a document against its DTD. They carry a message and no place: the parser
// turns them into XpParserError.
#pragma once

#include "XpDtd.h"
#include "XpException.h"

namespace lumnis {

class XpDtd::GrammarException : public XpException {};
class XpDtd::AttributeException : public XpException {};
// The root of what the actors of an application throw.
class XpDtd::ActorException : public XpException {};

class XpDtd::DuplicateDeclarationException : public XpDtd::GrammarException {
  public:
    explicit DuplicateDeclarationException(const Item& theItem);
    CpsString toString() const override;

  private:
    CpsString nameM;
};

class XpDtd::MultipleIdException : public XpDtd::GrammarException {
  public:
    explicit MultipleIdException(const Element& theElement);
    CpsString toString() const override;

  private:
    CpsString nameM;
};

class XpDtd::UndeclaredException : public XpDtd::GrammarException {
  public:
    explicit UndeclaredException(const Item& theItem);
    CpsString toString() const override;

  private:
    CpsString nameM;
};

class XpDtd::UndefinedException : public XpDtd::GrammarException {
  public:
    explicit UndefinedException(std::string_view theName);
    CpsString toString() const override;

  private:
    CpsString nameM;
};

class XpDtd::NondeterministicException : public XpDtd::GrammarException {
  public:
    explicit NondeterministicException(const Item& theItem);
    CpsString toString() const override;

  private:
    CpsString nameM;
};

class XpDtd::NoTextValueException : public XpDtd::GrammarException {
  public:
    CpsString toString() const override;
};

class XpDtd::MissingAttributeException : public XpDtd::AttributeException {
  public:
    explicit MissingAttributeException(const Attribute& theAttribute);
    CpsString toString() const override;

  private:
    CpsString nameM;
};

class XpDtd::FixedAttributeException : public XpDtd::AttributeException {
  public:
    explicit FixedAttributeException(const Attribute& theAttribute);
    CpsString toString() const override;

  private:
    CpsString nameM;
};

class XpDtd::DuplicateAttributeException : public XpDtd::AttributeException {
  public:
    explicit DuplicateAttributeException(const Attribute& theAttribute);
    CpsString toString() const override;

  private:
    CpsString nameM;
};

}  // namespace lumnis
