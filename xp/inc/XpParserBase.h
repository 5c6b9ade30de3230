// What the parsers of documents and of DTDs have in common: the state of a parse and the actions
// of the grammar, which the generated parser calls. Users see XpParser and XpDtdParser.
#pragma once

#include <memory>
#include <optional>
#include <set>
#include <string_view>
#include <vector>

#include "XpDtd.h"
#include "XpEntityResolver.h"

namespace lumnis {

class XpLexer;
class XpLookupCache;
class XpModelSize;
struct XpPseudoElements;

class XpParserBase {
  public:
    XpParserBase(const XpParserBase&) = delete;
    XpParserBase& operator=(const XpParserBase&) = delete;

    // External subsets and entities are read by theResolver from now on. Not owned, may be null.
    void setEntityResolver(XpEntityResolver* theResolver) { resolverM = theResolver; }

    // The frame of the generated parser.

    XpLexer& getLexer() { return *lexerM; }
    // theMessage is the generated parser's own. Throws XpParserError.
    [[noreturn]] void failToParse(std::string_view theMessage);
    [[noreturn]] void fail(CpsString theMessage) const;
    void* allocateStack(std::size_t theSize);
    void freeStack(void* theBlock);

    // The actions of the grammar, by the file that holds them. Any may throw an XpException.

    // The document as a whole: XpParserBase.cc.
    void endProlog(bool hasLookahead);
    void endDtd(bool isAtEnd);
    void endDocument(bool isAtEnd);
    void freeStrings(bool hasLookahead);
    CpsString* keyword(std::string_view theText);
    void declareVersion(const CpsString& theName, const CpsString& theVersion);
    void declareStandalone(const CpsString& theValue);
    void setDoctypeName(const CpsString& theName);
    void beginInternalSubset();
    void endInternalSubset();
    void setExternalId();

    // Text and processing instructions: XpContentActions.cc, with the elements.
    void addSpace(std::string_view theText);
    void addCharData(std::string_view theText);
    void addCharacter(std::size_t theCodePoint);
    void addCdSection();
    void flushCharData();
    void processInstruction(const CpsString& theTarget, const CpsString& theData);

    void beginElement(std::string_view theName);
    void addAttribute(const CpsString& theName, const CpsString& theLiteral);
    // The same for a literal without references and without white space other than blanks.
    void addPlainAttribute(std::string_view theName, std::string_view theLiteral);
    void endStartTag();
    void beginWithoutContent(bool hasSpace);
    void beginWithContent();
    void endEmptyElement();
    void endElement(std::string_view theName);
    const XpDtd::Element& getCurrentElement() const { return *currentElementM; }

    // References and the texts of literals: XpEntityActions.cc, with the declarations of
    // entities and notations.
    void enterEntity();
    void leaveEntity();
    void leaveExternalEntity();
    void expandParameterEntity();
    void enterParameterEntity();
    void leaveParameterEntity();
    void releaseExternalText();
    void setEntityText(const CpsString& theLiteral);
    void setUnparsed(const CpsString& theNotation);
    void setSystemId(const CpsString& theSystemId);
    void setPublicId(const CpsString& thePublicId, const CpsString& theSystemId);
    void setPublicId(const CpsString& thePublicId);
    void declareEntity(const CpsString& theName);
    void declareParameterEntity(const CpsString& theName);
    void declareNotation(const CpsString& theName);

    // Declarations of elements and attributes: XpDeclarationActions.cc.
    void beginNesting();
    void endNesting();
    void beginIgnored();
    void endIgnored();
    void declareElement(const CpsString& theName);
    void specifyEmpty();
    void specifyAny();
    void specifyMixed();
    void specifyChildren();
    void finishModel(std::size_t theModifier);
    void addName(const CpsString& theName, std::size_t theModifier);
    void modifyGroup(std::size_t theModifier);
    void choiceToUnit();
    void seqToUnit();
    void beginChoice();
    void addToChoice();
    void beginSeq();
    void addToSeq();
    void mixText(bool isOptional);
    void mixFirstElement(const CpsString& theName);
    void mixElement(const CpsString& theName);
    void closeMixed();
    void declareAttributes(const CpsString& theElement);
    void defineAttribute(const CpsString& theName);
    void typeCData();
    void typeId();
    void typeIdRef();
    void typeIdRefs();
    void typeEntity();
    void typeEntities();
    void typeNmToken();
    void typeNmTokens();
    void typeNotation();
    void typeEnum();
    void chooseFirstNotation(const CpsString& theName);
    void chooseNotation(const CpsString& theName);
    void chooseFirstEnum(const CpsString& theToken);
    void chooseEnum(const CpsString& theToken);
    void defaultRequired();
    void defaultImplied();
    void defaultFixed(const CpsString& theLiteral);
    void defaultValue(const CpsString& theLiteral);

  protected:
    // theInput must outlive the parser.
    XpParserBase(const CpsString* theInput, void* theContext);
    virtual ~XpParserBase();

    // Runs the generated parser. Whatever it or an actor throws as an XpException leaves as
    // XpParserError with the line up to which has been read.
    void parse();

    // A text of the resolver, given back at the end of its use.
    struct Release {
        XpEntityResolver* resolver;
        void operator()(const CpsString* theText) const { resolver->release(theText); }
    };
    using ExternalText = std::unique_ptr<const CpsString, Release>;
    // Null if there is no text to be had. Terminated.
    ExternalText fetch(const XpDtd::ExternalId& theId) const;
    // Gives an element without content model that of ANY, and the default actor.
    void imply(XpDtd::Element& theElement);

    const XpDtd* activeDtdM = nullptr;  // the one that validates
    // The one that declarations and implied items go into; null in a validating document parse.
    XpDtd* buildingDtdM = nullptr;
    std::unique_ptr<XpLexer> lexerM;
    void* contextM;
    XpEntityResolver* resolverM = nullptr;
    const XpDtd::ContentNode* currentNodeM = nullptr;  // null in the prolog
    std::unique_ptr<CpsString> doctypeNameM;
    std::unique_ptr<XpDtd::ExternalId> externalIdM;  // of the DOCTYPE declaration
    XpDtd::PiActor* prologPiActorM = nullptr;
    XpDtd::WhitespaceActor* prologWhitespaceActorM = nullptr;
    XpDtd::ElementActor* defaultActorM = nullptr;  // of elements that are implied
    std::unique_ptr<XpDtd> internalSubsetM;

  private:
    const XpDtd::Attribute& obtainAttribute(std::string_view theName);
    void addValue(const XpDtd::Attribute& theAttribute, std::string_view theText);
    void takeText(const char* theMessage);
    bool takeOptionalText();
    void takeEnd(const char* theMessage);
    void callBegin(int theKind);
    void finishElement();
    // The entity of a general reference. In a parse that implies, one that is not known stands
    // for its own reference.
    const XpDtd::Entity& obtainReferenced(std::string_view theName);
    // Reads theText, which must be terminated, as the replacement of a reference.
    void expand(const CpsString& theText, int theEndToken);
    void markInProgress(const XpDtd::Entity& theEntity);
    // The text of an attribute's literal: references expanded, white space made blanks.
    CpsString processAttValue(const CpsString& theLiteral);
    // The text of an entity's literal: references to general entities stay.
    CpsString processEntityValue(const CpsString& theLiteral);
    void testRedeclaration(const CpsString& theName);
    std::unique_ptr<XpDtd::Choice> closeTokens();
    void dropRepeatedDefinitions();
    void countMixed(bool isNew);

    std::vector<std::unique_ptr<char[]>> parserStacksM;

    // Each expansion of a parameter entity has a number; 0 is outside of all.
    std::size_t peCounterM = 0;
    std::size_t currentPeM = 0;
    std::vector<std::size_t> peStackM;
    std::vector<std::size_t> peNestStackM;  // currentPeM at the open of a group or declaration
    std::vector<ExternalText> externalTextsM;
    std::set<const XpDtd::Entity*> entitiesInProgressM;
    std::vector<const XpDtd::Entity*> entityStackM;
    CpsString dummyTextM;  // stands for an external entity that cannot be read

    std::vector<const XpDtd::ContentNode*> nodeStackM;  // where to go on behind each open element
    const XpDtd::Element* currentElementM = nullptr;
    XpDtd::Element* impliedElementM = nullptr;  // of buildingDtdM, behind the present start tag
    std::vector<const XpDtd::Element*> elementStackM;
    std::unique_ptr<XpLookupCache> lookupCacheM;
    const XpPseudoElements& pseudoM;
    XpDtd::AttributeMap attributesM;  // of the present start tag
    CpsString textM;                  // character data not yet reported
    bool textHasDataM = false;        // more than white space
    CpsString cdSectionM;

    // Declarations under construction.
    std::unique_ptr<XpModelSize> modelSizeM;
    std::unique_ptr<XpDtd::GrammarUnit> contentSpecM;
    std::unique_ptr<XpDtd::Choice> currentChoiceM;
    std::vector<std::unique_ptr<XpDtd::Fsm>> unitStackM;  // finished parts
    std::vector<std::unique_ptr<XpDtd::ChoiceFsm>> choiceStackM;
    std::vector<std::unique_ptr<XpDtd::SeqFsm>> seqStackM;
    static constexpr std::size_t theAttDefsLimit = 1000;
    std::vector<std::unique_ptr<XpDtd::Attribute>> attDefsM;  // the newest last
    std::size_t attDefsLimitM = theAttDefsLimit;              // where repeated ones are looked for
    std::unique_ptr<XpDtd::AttValueProcessor> attProcessorM;
    XpDtd::Attribute::DefaultKind attDefaultKindM = XpDtd::Attribute::IMPLIED;
    std::optional<CpsString> attDefaultTextM;
    std::unique_ptr<XpDtd::ItemValue> pendingValueM;  // of an entity or notation
    bool inInternalSubsetM = false;                   // once set, never cleared
    bool standaloneM = false;
};

}  // namespace lumnis
