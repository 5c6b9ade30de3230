#include "FwProcessTable.h"

#include <algorithm>

#include "FwProcessList.h"

namespace lumnis {

FwProcessTable::FwProcessTable(bool theLoad) {
    if (theLoad) {
        auto last = entriesM.before_begin();
        fwVisitProcesses([&](unsigned theProcessId, std::string_view theName) {
            last = entriesM.insert_after(last, {theProcessId, CpsString(theName)});
        });
    }
}

bool FwProcessTable::find(unsigned theProcessId) {
    const auto found = std::find_if(entriesM.begin(), entriesM.end(), [&](const Entry& theEntry) {
        return theEntry.processId == theProcessId;
    });
    if (found == entriesM.end()) {
        return false;
    }
    cursorM = &*found;
    return true;
}

CpsString FwProcessTable::name() const {
    return cursorM == nullptr ? CpsString() : cursorM->name;
}

}  // namespace lumnis
