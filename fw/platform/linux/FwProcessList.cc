#include "FwProcessList.h"

#include <dirent.h>

#include <charconv>
#include <cstring>
#include <fstream>
#include <memory>
#include <string>

namespace lumnis {

void fwVisitProcesses(const std::function<void(unsigned, std::string_view)>& theVisitor) {
    const std::unique_ptr<DIR, int (*)(DIR*)> folder(::opendir("/proc"), ::closedir);
    if (folder == nullptr) {
        return;
    }
    while (const dirent* entry = ::readdir(folder.get())) {
        unsigned id = 0;
        const char* const end = entry->d_name + std::strlen(entry->d_name);
        const auto parsed = std::from_chars(entry->d_name, end, id);
        if (parsed.ec != std::errc() || parsed.ptr != end) {
            continue;
        }
        std::ifstream stream("/proc/" + std::string(entry->d_name) + "/comm");
        std::string name;
        // A name may hold a line end, the file ends with one.
        std::getline(stream, name, '\0');
        if (!name.empty() && name.back() == '\n') {
            name.pop_back();
        }
        theVisitor(id, name.empty() ? std::string_view("unknown") : std::string_view(name));
    }
}

}  // namespace lumnis
