// The attributes that one start tag gives, with their values, in the order in which the
// attributes were declared or first used.
#pragma once

#include <memory>
#include <set>
#include <vector>

#include "XpDtd.h"

namespace lumnis {

class XpDtd::AttributeMap {
  public:
    struct Entry {
        const Attribute* attribute;
        const AttValue* value;  // the map's own; never null
    };
    using Entries = std::vector<Entry>;

    AttributeMap();
    AttributeMap(const AttributeMap&) = delete;
    AttributeMap& operator=(const AttributeMap&) = delete;
    ~AttributeMap();

    // Null if theAttribute is not there. The value stays the map's.
    const AttValue* find(const Attribute* theAttribute) const {
        if (entriesM.size() > theIndexLimit) {
            return findAmongMany(theAttribute);
        }
        for (const Entry& entry : entriesM) {
            if (entry.attribute == theAttribute) {
                return entry.value;
            }
        }
        return nullptr;
    }
    bool empty() const { return entriesM.empty(); }
    std::size_t size() const { return entriesM.size(); }
    Entries::const_iterator begin() const { return entriesM.begin(); }
    Entries::const_iterator end() const { return entriesM.end(); }

    // Throws DuplicateAttributeException for an attribute that is there, and
    // FixedAttributeException for a value that differs from a fixed one.
    void add(const Attribute& theAttribute, std::unique_ptr<const AttValue> theValue);
    // The same for a value of these types.
    void addCData(const Attribute& theAttribute, std::string_view theText);
    void addNmToken(const Attribute& theAttribute, std::string_view theToken);
    void addId(const Attribute& theAttribute, const Id& theId,
               const std::shared_ptr<const IdTable>& theTable);
    void addEnum(const Attribute& theAttribute, const Enum& theToken);
    // Puts the entries in order, once all are there. The other operations want that, but for add.
    void sort();
    void clear();

  private:
    // Values of the frequent types: those of one tag serve again for the next.
    template <class Value>
    struct Reused {
        std::vector<std::unique_ptr<Value>> values;
        std::size_t used = 0;

        Value& next();
    };

    static constexpr std::size_t theIndexLimit = 16;

    const AttValue* findAmongMany(const Attribute* theAttribute) const;
    // False if it was there already.
    bool isNew(const Attribute& theAttribute);
    void addEntry(const Attribute& theAttribute, const AttValue& theValue);

    Entries entriesM;
    std::vector<std::unique_ptr<const AttValue>> valuesM;
    Reused<AttValueCData> cDataM;
    Reused<AttValueNmToken> nmTokensM;
    Reused<AttValueEnum> enumsM;
    Reused<AttValueId> idsM;
    // The attributes again, when there are so many that looking through them would be slow.
    std::set<const Attribute*> indexM;
};

}  // namespace lumnis
