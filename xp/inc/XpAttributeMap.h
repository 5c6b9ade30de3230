// The attributes that one start tag gives, with their values, in the order in which the
// attributes were declared or first used.
#pragma once

#include <map>
#include <memory>

#include "XpDtd.h"

namespace lumnis {

class XpDtd::AttributeMap {
  public:
    // Pairs of const Attribute* and std::unique_ptr<const AttValue>, which is never null.
    using Values = std::map<const Attribute*, std::unique_ptr<const AttValue>, ByCreation>;

    AttributeMap();
    ~AttributeMap();

    // Null if theAttribute is not there. The value stays the map's.
    const AttValue* find(const Attribute* theAttribute) const;
    bool empty() const { return valuesM.empty(); }
    std::size_t size() const { return valuesM.size(); }
    Values::const_iterator begin() const { return valuesM.begin(); }
    Values::const_iterator end() const { return valuesM.end(); }

    // Throws DuplicateAttributeException for an attribute that is there, and
    // FixedAttributeException for a value that differs from a fixed one.
    void add(const Attribute& theAttribute, std::unique_ptr<const AttValue> theValue);
    void clear() { valuesM.clear(); }

  private:
    Values valuesM;
};

}  // namespace lumnis
