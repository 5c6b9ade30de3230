#include "DeckDocuments.h"

namespace lumnis::bench {

std::string makeDeck(std::size_t theSize) {
    std::string deck =
        "<?xml version=\"1.0\"?>\n"
        "<!DOCTYPE wml PUBLIC \"-//WAPFORUM//DTD WML 1.3//EN\" "
        "\"http://www.wapforum.org/DTD/wml13.dtd\">\n"
        "<wml>\n  <head><meta name=\"generator\" content=\"bench\"/></head>\n";
    for (int i = 0; deck.size() < theSize; ++i) {
        const std::string n = std::to_string(i);
        deck += "  <card id=\"c" + n + "\" title=\"Card " + n +
                "\">\n"
                "    <onevent type=\"onenterforward\"><refresh><setvar name=\"v" +
                n + "\" value=\"$(w" + n +
                ")\"/></refresh></onevent>\n"
                "    <do type=\"accept\" label=\"Next\"><go href=\"#c" +
                n +
                "\" method=\"post\"><postfield name=\"q\" value=\"a&amp;b\"/></go></do>\n"
                "    <p align=\"center\">News of the <b>day</b>, &#169; and <i>more</i> text "
                "that goes on for a while, as text does in a deck.<br/>\n"
                "      <a href=\"http://www.example.com/" +
                n +
                "\">A link</a> <img src=\"i.wbmp\" alt=\"An image\"/><br/>\n"
                "      <select name=\"s\"><option value=\"1\">One</option>"
                "<option value=\"2\">Two</option></select>\n"
                "      <input name=\"i" +
                n +
                "\" type=\"text\" maxlength=\"20\"/>\n"
                "      <table columns=\"2\"><tr><td>left</td><td>right</td></tr></table>\n"
                "    </p>\n  </card>\n";
    }
    return deck + "</wml>\n";
}

}  // namespace lumnis::bench
