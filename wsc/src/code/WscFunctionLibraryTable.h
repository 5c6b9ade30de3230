// Which number a standard library function has, and how many parameters: WMLScript Standard
// Libraries, WTAI and the WMLScript Crypto library.
#pragma once

#include <cstdint>
#include <map>
#include <string_view>

#include "CpsString.h"

namespace lumnis {

class WscFunctionLibraryTable {
  public:
    static const WscFunctionLibraryTable& instance();

    // Names match exactly. Both ids are -1 when there is no such library, no such function in it
    // or none with theNumParams parameters.
    void findLibraryFunction(std::string_view theLibrary, std::string_view theFunction,
                             std::int32_t theNumParams, std::int32_t& theLibraryId,
                             std::int32_t& theFunctionId) const;

    struct Names {
        std::string_view library;   // empty when there is no library of that id
        std::string_view function;  // empty when it has no function of that id
    };
    // The other way round, for readers of byte code.
    static Names findNames(std::int32_t theLibraryId, std::int32_t theFunctionId);

  private:
    class FuncLibData {
      public:
        FuncLibData(std::int32_t theLibraryId, std::int32_t theFunctionId,
                    std::int32_t theNumParams)
            : libraryIdM(theLibraryId), functionIdM(theFunctionId), numParamsM(theNumParams) {}
        std::int32_t getLibraryId() const noexcept { return libraryIdM; }
        std::int32_t getFunctionId() const noexcept { return functionIdM; }
        std::int32_t getNumParams() const noexcept { return numParamsM; }

      private:
        std::int32_t libraryIdM;
        std::int32_t functionIdM;
        std::int32_t numParamsM;
    };

    WscFunctionLibraryTable();

    std::map<std::string_view, std::map<std::string_view, FuncLibData>> librariesM;
};

}  // namespace lumnis
