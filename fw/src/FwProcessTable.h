// The processes of the system by number and name.
#pragma once

#include <forward_list>

#include "CpsString.h"

namespace lumnis {

class FwProcessTable {
  public:
    // Lists the processes that run now if theLoad is set; without it, or where the system gives
    // no list, the table is empty.
    explicit FwProcessTable(bool theLoad);

    // Whether the process is listed; if so, name gives its name.
    bool find(unsigned theProcessId);
    // Of the process that find has found last; empty before.
    CpsString name() const;

  private:
    struct Entry {
        unsigned processId;
        CpsString name;
    };

    std::forward_list<Entry> entriesM;  // in the system's order
    const Entry* cursorM = nullptr;
};

}  // namespace lumnis
