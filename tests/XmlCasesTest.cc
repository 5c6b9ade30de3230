// Documents and DTDs with the events or the message that must come of them: tests/cases/xml.
//
// The source of a case is a document. Its sections:
//     -- options WORDS     nonvalidating: as makeNonvalidating; external: the texts of the "file"
//                          sections can be read; dtd: the source is not a document but a DTD
//     -- dtd               the text of a DTD that is given to setDtd
//     -- file NAME         an external text with this system identifier
//     -- events            the calls of the actors, in the form of EventPrinter
//     -- error line N      the message, with C escapes; without this section there must be none
#include <gtest/gtest.h>

#include <map>
#include <sstream>
#include <string>

#include "CaseFile.h"
#include "DocumentChecker.h"

namespace lumnis {
namespace {

using test::Case;
using test::CaseSection;

class MapResolver final : public XpEntityResolver {
  public:
    void add(const std::string& theName, const std::string& theText) {
        textsM.emplace(theName, CpsString(std::string_view(theText)));
    }
    const CpsString* fetch(const CpsString* theSystemId, const CpsString*) override {
        const auto found = textsM.find(std::string(theSystemId->view()));
        openM += found != textsM.end();
        return found == textsM.end() ? nullptr : &found->second;
    }
    void release(const CpsString*) override { --openM; }
    int countOpen() const { return openM; }

  private:
    std::map<std::string, CpsString> textsM;
    int openM = 0;
};

std::string join(const CaseSection& theSection) {
    std::string result;
    for (const std::string& line : theSection.lines) {
        result += line + "\n";
    }
    return result;
}

class XmlCases : public testing::TestWithParam<Case> {};

TEST_P(XmlCases, eventsAndMessage) {
    const Case& testCase = GetParam();
    const CaseSection* options = testCase.section("options");
    const auto has = [&](const char* theWord) {
        return options != nullptr && options->arguments.find(theWord) != std::string::npos;
    };
    MapResolver resolver;
    std::ostringstream events;
    {
        DocumentChecker checker(&events);
        std::optional<DocumentChecker::Fault> fault;
        for (const CaseSection& section : testCase.sections) {
            if (section.name == "file") {
                resolver.add(section.arguments, join(section));
            } else if (section.name == "dtd") {
                fault = checker.setDtd(CpsString(std::string_view(join(section))));
                ASSERT_FALSE(fault) << "the DTD: " << fault->message.view();
            }
        }
        const CpsString source{std::string_view(testCase.source)};
        if (has("dtd")) {
            fault = checker.setDtd(source);
        } else {
            checker.setNonvalidating(has("nonvalidating"));
            fault = checker.check(source, has("external") ? &resolver : nullptr);
        }
        if (const CaseSection* error = testCase.section("error")) {
            ASSERT_TRUE(fault) << "no error";
            EXPECT_EQ(test::parseEscaped(error->lines), fault->message.view());
            EXPECT_EQ(error->arguments, "line " + std::to_string(fault->line));
        } else {
            EXPECT_FALSE(fault) << fault->line << ": " << fault->message.view();
        }
    }
    if (const CaseSection* expected = testCase.section("events")) {
        EXPECT_EQ(join(*expected), events.str());
    }
    EXPECT_EQ(0, resolver.countOpen());
}

INSTANTIATE_TEST_SUITE_P(All, XmlCases, testing::ValuesIn(test::readCases("xml")),
                         [](const auto& theInfo) { return test::parameterName(theInfo.param); });

// All messages that some input can cause. "*" is the part that differs.
constexpr const char* theMessages[] = {
    // Scanner
    "syntax error at ?",
    "-- inside comment",
    "unterminated comment",
    "syntax error at <!",
    "syntax error at ]]",
    "unterminated conditional section",
    "syntax error: *",
    "expected processor instruction target",
    "processor instruction syntax error",
    "unterminated processor instruction",
    "unmatched \"",
    "unmatched '",
    "unexpected ]]>",
    "unterminated CDATA section",
    "missing ; following *",
    "illegal token following %",
    "missing ; or illegal character in character entity *",
    "illegal character entity *",
    "syntax error at &",
    "unexpected or illegal character: *",
    "name token expected",
    "entity expansion limit exceeded",
    // Grammar
    "parse error",
    "parser stack overflow",
    "document start expected",
    "end of document, expecting end of file",
    "ID reference(s) undefined: *",
    "PE reference within internal subset markup declaration",
    "version expected",
    "unsupported XML version",
    "yes or no expected",
    "improper nesting of parameter entities",
    "empty element must not contain space",
    "unexpected character data",
    "unexpected CDATA section",
    "unexpected element",
    "* undeclared",
    "element must not be empty",
    "unexpected end of element",
    "element tag mismatch: <*",
    "attribute missing default declaration",
    "attribute missing type and default declaration",
    "illegal default declaration for *",
    "reference to unparsed entity *",
    "circular reference to entity *",
    "entity lt must be character entity like \"&#38;#60;\"",
    "entity gt must be character entity like \"&#62;\"",
    "entity amp must be character entity like  \"&#38;#38;\"",
    "entity apos must be character entity like \"&#39;\"",
    "entity quot must be character entity like \"&#34;\"",
    // DTD
    "duplicate declaration of *",
    "* has more than one ID attribute",
    "* not declared",
    "* undefined",
    "nondeterministic use of *",
    "content model too large",
    "illegal entity reference",
    "* attribute unspecified",
    "* fixed value mismatch",
    "* duplicate specification",
    // Attribute values
    "error parsing ID attribute value",
    "error parsing IDREF attribute value",
    "error parsing ENTITY attribute value",
    "error parsing NMTOKEN attribute value",
    "error parsing NOTATION attribute value",
    "error parsing enumerated attribute value",
    "ID multiply defined: *",
    "Unexpected notation in NOTATION attribute value",
    "Unexpected token in enumerated attribute value",
    "entity * is not NDATA",
    // Driver
    "in external subset: *",
    "merging with external subset: *",
    "doctype error: *",
};

bool matches(const std::string& theMessage, const std::string& thePattern) {
    const std::size_t star = thePattern.find('*');
    if (star == std::string::npos) {
        return theMessage == thePattern;
    }
    const std::string tail = thePattern.substr(star + 1);
    return theMessage.size() >= thePattern.size() &&
           theMessage.compare(0, star, thePattern, 0, star) == 0 &&
           theMessage.compare(theMessage.size() - tail.size(), tail.size(), tail) == 0;
}

// A message that is reworded or cannot be reached any more, and one that nobody has listed.
TEST(XmlMessages, eachIsReachedAndListed) {
    std::map<std::string, int> uses;
    for (const Case& testCase : test::readCases("xml")) {
        const CaseSection* error = testCase.section("error");
        if (error == nullptr) {
            continue;
        }
        const std::string message = test::parseEscaped(error->lines);
        bool isListed = false;
        for (const char* pattern : theMessages) {
            if (matches(message, pattern)) {
                ++uses[pattern];
                isListed = true;
            }
        }
        EXPECT_TRUE(isListed) << message;
    }
    for (const char* pattern : theMessages) {
        EXPECT_NE(0, uses[pattern]) << pattern;
    }
}

}  // namespace
}  // namespace lumnis
