// The texts of a file in UTF-8, and the name and the terminator of its charset.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace lumnis {

class CcCharsetConverter;

class DumpCharset {
  public:
    static constexpr std::uint32_t theUtf8 = 106;

    // theNumber is an IANA MIBenum; 0 stands for an unknown charset.
    explicit DumpCharset(std::uint32_t theNumber);
    DumpCharset(DumpCharset&&) noexcept;
    DumpCharset& operator=(DumpCharset&&) noexcept;
    ~DumpCharset();

    // "utf-8", or "unknown" with the number.
    static std::string nameOf(std::uint32_t theNumber);
    static bool isKnown(std::uint32_t theNumber);

    // How many zero bytes end a string: 1, 2 or 4.
    std::uint32_t terminatorWidth() const noexcept { return terminatorWidthM; }
    // Well-formed UTF-8. What the charset does not allow, and all bytes outside of ASCII of a
    // charset that cannot be converted, come out as \xHH.
    std::string decode(std::string_view theBytes);

  private:
    std::uint32_t numberM;
    std::uint32_t terminatorWidthM;
    std::unique_ptr<CcCharsetConverter> converterM;
};

}  // namespace lumnis
