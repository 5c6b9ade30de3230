// The choice of a director.
#include <gtest/gtest.h>

#include "XaDirector.h"
#include "XaProducer.h"

namespace lumnis {
namespace {

constexpr int theMediaType = 2000;
constexpr int theOtherMediaType = 2001;

// Gives its name as the result.
class NamedDirector final : public XaDirector {
  public:
    explicit NamedDirector(const char* theName) : nameM(theName) {}

    std::unique_ptr<XaOutput> process(XpParser&, XaPrologOutput&, int, HedCharsetId, int*,
                                      CpsString& theOutput) override {
        theOutput = nameM;
        return std::make_unique<XaOutput>(nameM);
    }

  private:
    CpsString nameM;
};

std::string chosen(int theType, const std::string& thePublicId) {
    CpsString output;
    int outputMediaType = 0;
    const std::string doctype =
        thePublicId.empty() ? "" : "<!DOCTYPE a PUBLIC \"" + thePublicId + "\" \"s\">";
    try {
        XaProducer::instance().process(CpsString(doctype + "<a/>"), theType, theUtf8Charset,
                                       &outputMediaType, output);
    } catch (const XaException& error) {
        return error.what();
    }
    return std::string(output.view());
}

TEST(XaProducer, choosesTheNarrowestRegistration) {
    static NamedDirector both("media type and identifier");
    static NamedDirector type("media type");
    static NamedDirector identifier("identifier");
    static NamedDirector any("any");
    const CpsString id("id");
    const CpsString otherId("other id");
    XaProducer& producer = XaProducer::instance();
    producer.registerDirector(&both, &id, theMediaType);
    producer.registerDirector(&type, nullptr, theMediaType);
    producer.registerDirector(&identifier, &otherId, XaProducer::theAnyMediaType);

    EXPECT_EQ(chosen(theMediaType, "id"), "media type and identifier");
    EXPECT_EQ(chosen(theMediaType, "ID"), "media type");
    EXPECT_EQ(chosen(theMediaType, ""), "media type");
    EXPECT_EQ(chosen(theMediaType, "other id"), "media type");
    EXPECT_EQ(chosen(theOtherMediaType, "other id"), "identifier");
    const std::string nobody = "could not find an XML application for document";
    EXPECT_EQ(chosen(theOtherMediaType, "id"), nobody + " with public ID id");
    EXPECT_EQ(chosen(theOtherMediaType, ""), nobody + " with public ID ");
    EXPECT_EQ(XaProducer::NoDirectorException(std::nullopt).toString(), nobody);

    producer.registerDirector(&any, nullptr, XaProducer::theAnyMediaType);
    EXPECT_EQ(chosen(theOtherMediaType, "id"), "any");
    EXPECT_EQ(chosen(theOtherMediaType, ""), "any");
}

TEST(XaProducer, refusesASecondDirectorForAKey) {
    static NamedDirector first("first");
    static NamedDirector second("second");
    constexpr int mediaType = 2002;
    XaProducer& producer = XaProducer::instance();
    producer.registerDirector(&first, nullptr, mediaType);
    producer.registerDirector(&first, nullptr, mediaType);
    try {
        producer.registerDirector(&second, nullptr, mediaType);
        ADD_FAILURE() << "registered";
    } catch (const XaProducer::DuplicateDirectorException& error) {
        EXPECT_STREQ(error.what(), "XML application error");
    }
    EXPECT_EQ(chosen(mediaType, ""), "first");
}

TEST(XaDirector, passesFaultsOfADtdOn) {
    XpDtd dtd;
    try {
        XaDirector::setupDtd("<!ELEMENT a EMPTY>\n<!ELEMENT a EMPTY>", dtd);
        ADD_FAILURE() << "parsed";
    } catch (const XpParserError& error) {
        EXPECT_EQ(error.toString(), "duplicate declaration of a");
        EXPECT_EQ(error.getLine(), 2u);
    }
}

}  // namespace
}  // namespace lumnis
