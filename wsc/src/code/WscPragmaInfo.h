// The entries of the pragma pool (WMLScript standard, "Pragma Pool").
#pragma once

#include <cstdint>

#include "CpsString.h"

namespace lumnis {

class WscPragmaInfo {
  public:
    virtual ~WscPragmaInfo() = default;

    // Appends the entry: its type and the indices of its constants.
    virtual void writeByteCodeInformation(CpsString& theOutput) const = 0;
};

// "Acess" is the name that is in use everywhere: not to be repaired.
class WscPragmaAcessDomain final : public WscPragmaInfo {
  public:
    explicit WscPragmaAcessDomain(std::uint32_t theDomain) : domainM(theDomain) {}
    void writeByteCodeInformation(CpsString& theOutput) const override;

  private:
    std::uint32_t domainM;
};

class WscPragmaAcessPath final : public WscPragmaInfo {
  public:
    explicit WscPragmaAcessPath(std::uint32_t thePath) : pathM(thePath) {}
    void writeByteCodeInformation(CpsString& theOutput) const override;

  private:
    std::uint32_t pathM;
};

class WscPragmaUserAgentProperty final : public WscPragmaInfo {
  public:
    WscPragmaUserAgentProperty(std::uint32_t thePropertyName, std::uint32_t theContent)
        : propertyNameM(thePropertyName), contentM(theContent) {}
    void writeByteCodeInformation(CpsString& theOutput) const override;

  private:
    std::uint32_t propertyNameM;
    std::uint32_t contentM;
};

class WscPragmaUserAgentPropertyScheme final : public WscPragmaInfo {
  public:
    WscPragmaUserAgentPropertyScheme(std::uint32_t thePropertyName, std::uint32_t theContent,
                                     std::uint32_t theScheme)
        : propertyNameM(thePropertyName), contentM(theContent), schemeM(theScheme) {}
    void writeByteCodeInformation(CpsString& theOutput) const override;

  private:
    std::uint32_t propertyNameM;
    std::uint32_t contentM;
    std::uint32_t schemeM;
};

}  // namespace lumnis
