// The constants of a unit (WMLScript standard, "Constant Pool"). Each stands once in the file.
#pragma once

#include <cstdint>
#include <memory>
#include <string_view>

#include "CpsString.h"

namespace lumnis {

class CcCharsetConverter;

class WscLiteralInfo {
  public:
    // As they stand in the file. 5, the empty string, is an instruction of its own instead.
    enum Type : std::uint8_t {
        Int8 = 0,
        Int16 = 1,
        Int32 = 2,
        Float = 3,
        StringUtf8 = 4,
        StringExtern = 6
    };

    virtual ~WscLiteralInfo() = default;

    virtual Type getTypeNbr() const noexcept = 0;
    // Appends type and value.
    virtual void writeByteCodeInformation(CpsString& theOutput) const = 0;
};

class WscLiteralInt8 final : public WscLiteralInfo {
  public:
    explicit WscLiteralInt8(std::int8_t theValue) : valueM(theValue) {}
    Type getTypeNbr() const noexcept override { return Int8; }
    void writeByteCodeInformation(CpsString& theOutput) const override;

  private:
    std::int8_t valueM;
};

class WscLiteralInt16 final : public WscLiteralInfo {
  public:
    explicit WscLiteralInt16(std::int16_t theValue) : valueM(theValue) {}
    Type getTypeNbr() const noexcept override { return Int16; }
    void writeByteCodeInformation(CpsString& theOutput) const override;

  private:
    std::int16_t valueM;
};

class WscLiteralInt32 final : public WscLiteralInfo {
  public:
    explicit WscLiteralInt32(std::int32_t theValue) : valueM(theValue) {}
    Type getTypeNbr() const noexcept override { return Int32; }
    void writeByteCodeInformation(CpsString& theOutput) const override;

  private:
    std::int32_t valueM;
};

// IEEE 754, single precision.
class WscLiteralFloat final : public WscLiteralInfo {
  public:
    explicit WscLiteralFloat(float theValue) : valueM(theValue) {}
    Type getTypeNbr() const noexcept override { return Float; }
    void writeByteCodeInformation(CpsString& theOutput) const override;

  private:
    float valueM;
};

// A string that stays UTF-8 whatever the unit's charset: the name of a function elsewhere.
class WscLiteralStringUtf8 final : public WscLiteralInfo {
  public:
    // theText must stay where it is; so for the next class.
    explicit WscLiteralStringUtf8(std::string_view theText) : textM(theText) {}
    Type getTypeNbr() const noexcept override { return StringUtf8; }
    void writeByteCodeInformation(CpsString& theOutput) const override;

    std::string_view getText() const noexcept { return textM; }

  private:
    std::string_view textM;
};

// A string that goes out in the unit's selected charset.
class WscLiteralStringExtern final : public WscLiteralInfo {
  public:
    explicit WscLiteralStringExtern(std::string_view theText) : textM(theText) {}
    Type getTypeNbr() const noexcept override { return StringExtern; }
    // Writes the text of the charset that was set: the one with escapes where that is the
    // charset in which it was made, else the transcoded one.
    void writeByteCodeInformation(CpsString& theOutput) const override;

    // Charsets are MIBenum numbers, unsigned here as in the file.

    // Converts the text; false when the charset lacks one of its characters or cannot be written.
    // What was transcoded before then stays.
    bool transcode(CcCharsetConverter& theConverter, std::uint32_t theCharset);
    // Converts the text with escapes for what the charset lacks: the last resort.
    void transcode(CcCharsetConverter& theConverter, std::uint32_t theHighPrioCharset,
                   bool useEscape);
    // The charset that is written; UTF-8 at first, in which the text goes out as it came.
    void setCharset(std::uint32_t theCharset) noexcept { charsetM = theCharset; }

    // As it came, in UTF-8.
    std::string_view getText() const noexcept { return textM; }

  private:
    static constexpr std::uint32_t theUtf8Charset = 106;

    std::string_view textM;
    // Null until the first conversion: most units go out in UTF-8 and have none.
    std::unique_ptr<CpsString> highPriorityTextM;
    std::unique_ptr<CpsString> transcodedTextM;
    std::uint32_t charsetM = theUtf8Charset;
    std::uint32_t highPriorityCharsetM = 0;
};

}  // namespace lumnis
