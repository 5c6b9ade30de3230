// Prolog events that wait for an application, and what a run hands back.
#include <gtest/gtest.h>

#include <sstream>

#include "EventPrinter.h"
#include "XaOutput.h"
#include "XaPrologOutput.h"
#include "XpParser.h"

namespace lumnis {
namespace {

TEST(XaPrologOutput, replaysOnceAndInOrder) {
    const CpsString document("<?p a?>\n<!-- c --><?q?> <a/>");
    XaPrologOutput prolog;
    XaPrologOutput::PiActor piActor;
    XaPrologOutput::WhitespaceActor whitespaceActor;
    XpParser parser(&document, &piActor, &whitespaceActor, &prolog);
    parser.parseProlog();

    std::ostringstream events;
    const EventPrinter printer(&events);
    const EventPrinter::Actors& actors = printer.getDtdActors();
    prolog.reproduce(actors.pi, actors.whitespace, nullptr);
    prolog.reproduce(actors.pi, actors.whitespace, nullptr);
    EXPECT_EQ("pi \"p\" \"a\"\nspace \"\\x0a\"\npi \"q\" \"\"\nspace \" \"\n", events.str());
}

TEST(XaPrologOutput, passesOverWhatNobodyWants) {
    const CpsString text("x");
    XaPrologOutput prolog;
    XaPrologOutput::PiActor()(text, text, &prolog);
    XaPrologOutput::WhitespaceActor()(text, &prolog);
    std::ostringstream events;
    const EventPrinter printer(&events);
    prolog.reproduce(printer.getDtdActors().pi, nullptr, nullptr);
    XaPrologOutput::WhitespaceActor()(text, &prolog);
    prolog.reproduce(nullptr, nullptr, nullptr);
    prolog.reproduce(printer.getDtdActors().pi, printer.getDtdActors().whitespace, nullptr);
    EXPECT_EQ("pi \"x\" \"x\"\n", events.str());
}

TEST(XaOutput, keepsMetaDataInOrder) {
    XaOutput output("doctype");
    XaMetaData entry;
    entry.setHttpEquiv("Expires");
    entry.setContent("0");
    output.getMetaDataList().push_back(entry);
    entry.setMetaDataForward();
    output.getMetaDataList().push_back(entry);
    EXPECT_EQ("doctype", output.getDoctype());
    EXPECT_FALSE(output.getMetaDataList().front().isMetaDataForward());
    EXPECT_TRUE(output.getMetaDataList().back().isMetaDataForward());
    EXPECT_EQ("Expires", output.getMetaDataList().back().getHttpEquiv());
    EXPECT_EQ("0", output.getMetaDataList().back().getContent());
}

}  // namespace
}  // namespace lumnis
