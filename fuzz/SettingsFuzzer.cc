// The text form of the settings: the first line is the key and the name to look for.
#include <algorithm>
#include <cstdint>
#include <string>
#include <string_view>

#include "FwSettingsText.h"
#include "Require.h"

using lumnis::fuzz::require;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* theData, std::size_t theSize) {
    std::string_view text(reinterpret_cast<const char*>(theData), theSize);
    const std::string_view query = text.substr(0, text.find('\n'));
    text.remove_prefix(query.size());
    const std::string_view key = query.substr(0, query.find(' '));
    const std::string_view name = query.substr(key.size() + (key.size() < query.size() ? 1 : 0));

    lumnis::FwSettingsText settings;
    const std::size_t line = settings.parse(text);
    lumnis::FwSettingsText twin;
    require(twin.parse(text) == line);
    const auto* section = settings.findKey(key);
    if (line != 0) {
        // The line is there, and a refused text has nothing.
        require(line <= static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n')) + 1);
        require(section == nullptr);
        return 0;
    }
    const std::string* value = section != nullptr ? settings.findValue(*section, name) : nullptr;
    if (value != nullptr) {
        require(*twin.findValue(*twin.findKey(key), name) == *value);
        require(text.find(*value) != std::string_view::npos);
        // A later line holds, and a section may be continued.
        std::string more(text);
        more += "\n[" + std::string(key) + "]\n" + std::string(name) + " = \"later\"\n";
        lumnis::FwSettingsText again;
        require(again.parse(more) == 0);
        require(*again.findValue(*again.findKey(key), name) == "later");
    }
    return 0;
}
