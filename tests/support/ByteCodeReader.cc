#include "ByteCodeReader.h"

#include <cstdint>
#include <cstdio>
#include <stdexcept>

namespace lumnis::test {

namespace {

class Reader {
  public:
    explicit Reader(std::string_view theFile) : fileM(theFile) {}

    std::size_t left() const { return fileM.size() - atM; }

    [[noreturn]] void fail(const std::string& theWhat) const {
        throw std::runtime_error("byte code at " + std::to_string(atM) + ": " + theWhat);
    }

    std::string_view take(std::size_t theCount) {
        if (left() < theCount) {
            fail(std::to_string(theCount) + " bytes wanted, " + std::to_string(left()) + " left");
        }
        atM += theCount;
        return fileM.substr(atM - theCount, theCount);
    }

    // Most significant byte first.
    std::uint32_t number(std::size_t theBytes) {
        std::uint32_t result = 0;
        for (const char c : take(theBytes)) {
            result = result << 8 | static_cast<unsigned char>(c);
        }
        return result;
    }

    std::uint32_t multiByte() {
        std::uint32_t byte = number(1);
        if (byte == 0x80) {
            fail("multi-byte integer with leading zeros");
        }
        std::uint32_t result = byte & 0x7F;
        for (int count = 1; (byte & 0x80) != 0; ++count) {
            if (count == 5) {
                fail("multi-byte integer too long");
            }
            byte = number(1);
            result = result << 7 | (byte & 0x7F);
        }
        return result;
    }

  private:
    std::string_view fileM;
    std::size_t atM = 0;
};

std::string hex(std::uint32_t theValue, int theDigits) {
    char text[16];
    std::snprintf(text, sizeof text, "%0*X", theDigits, theValue);
    return text;
}

std::string quoted(std::string_view theText) {
    std::string result = "\"";
    for (const char c : theText) {
        const auto byte = static_cast<unsigned char>(c);
        if (c == '"' || c == '\\') {
            result += std::string("\\") + c;
        } else if (byte < 0x20 || byte > 0x7E) {
            result += "\\x" + hex(byte, 2);
        } else {
            result += c;
        }
    }
    return result + '"';
}

std::string readConstant(Reader& theReader) {
    switch (const std::uint32_t type = theReader.number(1)) {
        case 0:
            return "int8 " + std::to_string(static_cast<std::int8_t>(theReader.number(1)));
        case 1:
            return "int16 " + std::to_string(static_cast<std::int16_t>(theReader.number(2)));
        case 2:
            return "int32 " + std::to_string(static_cast<std::int32_t>(theReader.number(4)));
        case 3:
            return "float " + hex(theReader.number(4), 8);
        case 4:
            return "utf8 " + quoted(theReader.take(theReader.multiByte()));
        case 6:
            return "extern " + quoted(theReader.take(theReader.multiByte()));
        default:
            theReader.fail("constant of type " + std::to_string(type));
    }
}

std::string readPragma(Reader& theReader, std::size_t theConstants) {
    static const char* const theNames[] = {"domain", "path", "property", "property"};
    static const int theOperands[] = {1, 1, 2, 3};
    const std::uint32_t type = theReader.number(1);
    if (type > 3) {
        theReader.fail("pragma of type " + std::to_string(type));
    }
    std::string result = theNames[type];
    for (int i = 0; i < theOperands[type]; ++i) {
        const std::uint32_t index = theReader.multiByte();
        if (index >= theConstants) {
            theReader.fail("no constant " + std::to_string(index));
        }
        result += " " + std::to_string(index);
    }
    return result;
}

}  // namespace

ByteCodeFile readByteCode(std::string_view theFile) {
    Reader reader(theFile);
    ByteCodeFile file;
    if (reader.number(1) != 0x01) {
        reader.fail("not version 1.1");
    }
    if (reader.multiByte() != reader.left()) {
        reader.fail("wrong size field");
    }
    const std::uint32_t constants = reader.multiByte();
    file.charset = reader.multiByte();
    for (std::uint32_t i = 0; i < constants; ++i) {
        file.constants.push_back(readConstant(reader));
    }
    for (std::uint32_t count = reader.multiByte(); count != 0; --count) {
        file.pragmas.push_back(readPragma(reader, file.constants.size()));
    }
    file.functions.resize(reader.number(1));
    std::size_t next = 0;
    for (std::uint32_t count = reader.number(1); count != 0; --count) {
        const std::uint32_t number = reader.number(1);
        if (number < next || number >= file.functions.size()) {
            reader.fail("name of function " + std::to_string(number));
        }
        file.functions[number].hasName = true;
        file.functions[number].name = reader.take(reader.number(1));
        next = number + 1;
    }
    for (ByteCodeFunction& function : file.functions) {
        function.arguments = reader.number(1);
        function.locals = reader.number(1);
        function.code = reader.take(reader.multiByte());
    }
    if (reader.left() != 0) {
        reader.fail(std::to_string(reader.left()) + " bytes left over");
    }
    return file;
}

}  // namespace lumnis::test
