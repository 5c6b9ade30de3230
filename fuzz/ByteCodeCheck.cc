#include "ByteCodeCheck.h"

#include <cstddef>
#include <cstdint>
#include <set>
#include <vector>

#include "WscOpcode.h"

namespace lumnis::fuzz {

namespace {

struct Fault {
    const char* text;
};

void check(bool isTrue, const char* theText) {
    if (!isTrue) {
        throw Fault{theText};
    }
}

constexpr std::uint32_t theUtf8Charset = 106;  // IANA MIBenum

// Constant types of the file.
constexpr std::uint8_t theUtf8String = 4;
constexpr std::uint8_t theExternString = 6;

class Reader {
  public:
    explicit Reader(std::string_view theBytes) : bytesM(theBytes) {}

    bool isAtEnd() const { return positionM == bytesM.size(); }
    std::size_t position() const { return positionM; }
    std::size_t rest() const { return bytesM.size() - positionM; }
    std::uint8_t byte() {
        check(!isAtEnd(), "bytes are missing");
        return static_cast<std::uint8_t>(bytesM[positionM++]);
    }
    std::uint32_t word() {
        const std::uint32_t high = byte();
        return high << 8 | byte();
    }
    std::uint32_t multiByte() {
        std::uint64_t value = 0;
        for (int i = 0; i < 5; ++i) {
            const std::uint8_t group = byte();
            check(i != 0 || group != 0x80, "a multi-byte integer has leading zeros");
            value = value << 7 | (group & 0x7Fu);
            if ((group & 0x80) == 0) {
                check(value <= 0xFFFFFFFF, "a multi-byte integer is too large");
                return static_cast<std::uint32_t>(value);
            }
        }
        throw Fault{"a multi-byte integer is too long"};
    }
    std::string_view take(std::uint32_t theCount) {
        check(theCount <= rest(), "bytes are missing");
        positionM += theCount;
        return bytesM.substr(positionM - theCount, theCount);
    }

  private:
    std::string_view bytesM;
    std::size_t positionM = 0;
};

class FileCheck {
  public:
    explicit FileCheck(std::string_view theFile) : readerM(theFile) {}

    void run() {
        check(readerM.byte() == 0x01, "the version is not 1.1");
        const std::uint32_t size = readerM.multiByte();
        check(size == readerM.rest(), "the size field is not the size of the rest");
        constants();
        pragmas();
        functionsM = readerM.byte();
        check(functionsM != 0, "there is no function");
        names();
        for (unsigned i = 0; i < functionsM; ++i) {
            function();
        }
        check(readerM.isAtEnd(), "bytes are left over");
    }

  private:
    void constants() {
        const std::uint32_t count = readerM.multiByte();
        check(count <= 65535, "there are too many constants");
        check(readerM.multiByte() == theUtf8Charset, "the charset is not UTF-8");
        for (std::uint32_t i = 0; i < count; ++i) {
            const std::uint8_t type = readerM.byte();
            check(type <= theUtf8String || type == theExternString, "a constant's type is unknown");
            constexpr std::uint8_t theSizes[] = {1, 2, 4, 4};
            readerM.take(type < theUtf8String ? theSizes[type] : readerM.multiByte());
            typesM.push_back(type);
        }
    }

    void requireConstant(std::uint32_t theIndex, bool isOfType) const {
        check(theIndex < typesM.size(), "a constant is not there");
        check(isOfType, "a constant has the wrong type");
    }
    std::uint8_t typeOf(std::uint32_t theIndex) const {
        return theIndex < typesM.size() ? typesM[theIndex] : std::uint8_t{0xFF};
    }
    void requireString(std::uint32_t theIndex) const {
        requireConstant(theIndex, typeOf(theIndex) == theExternString);
    }

    void pragmas() {
        for (std::uint32_t count = readerM.multiByte(); count != 0; --count) {
            const std::uint8_t type = readerM.byte();
            check(type <= 3, "a pragma's type is unknown");
            for (unsigned i = type < 2 ? 1 : type; i != 0; --i) {
                requireString(readerM.multiByte());
            }
        }
    }

    void names() {
        const unsigned count = readerM.byte();
        check(count <= functionsM, "there are more names than functions");
        int last = -1;
        std::set<std::string_view> known;
        for (unsigned i = 0; i < count; ++i) {
            const int number = readerM.byte();
            check(number > last && number < static_cast<int>(functionsM),
                  "a name's function is not there or out of order");
            last = number;
            const std::string_view name = readerM.take(readerM.byte());
            check(!name.empty() && known.insert(name).second, "a name is empty or there twice");
        }
    }

    void function() {
        const unsigned arguments = readerM.byte();
        variablesM = arguments + readerM.byte();
        check(variablesM <= 256, "there are too many variables");
        Reader code(readerM.take(readerM.multiByte()));
        std::vector<std::size_t> targets;
        std::vector<bool> isStart;
        while (!code.isAtEnd()) {
            isStart.resize(code.position() + 1);
            isStart.back() = true;
            instruction(code, targets);
        }
        isStart.resize(code.position() + 1);
        isStart.back() = true;
        for (const std::size_t target : targets) {
            check(target < isStart.size() && isStart[target], "a jump goes nowhere");
        }
    }

    void instruction(Reader& theCode, std::vector<std::size_t>& theTargets) {
        const std::size_t start = theCode.position();
        const std::uint8_t first = theCode.byte();
        const WscOpcodeInfo* info = findOpcode(first);
        check(info != nullptr && info->operands != WscOperands::Pseudo, "an opcode is unknown");
        const std::uint32_t inside = first - static_cast<std::uint32_t>(valueOf(info->opcode));
        switch (info->operands) {
            case WscOperands::None:
            case WscOperands::Pseudo:
                return;
            case WscOperands::Short:
                return index(info->opcode, inside, 0);
            case WscOperands::Byte:
                return index(info->opcode, theCode.byte(), shortLimit(info->opcode));
            case WscOperands::Word:
                return index(info->opcode, theCode.word(), 256);
            case WscOperands::JumpShort:
                return jump(info->opcode, start, theCode.position(), inside, 0, theTargets);
            case WscOperands::JumpByte: {
                const std::uint32_t offset = theCode.byte();
                const std::uint32_t least = info->opcode == WscOpcode::TjumpBw ? 0 : 32;
                return jump(info->opcode, start, theCode.position(), offset, least, theTargets);
            }
            case WscOperands::JumpWord: {
                const std::uint32_t offset = theCode.word();
                return jump(info->opcode, start, theCode.position(), offset, 256, theTargets);
            }
            case WscOperands::LibraryShort:
                return library(theCode.byte());
            case WscOperands::LibraryByte:
                check(theCode.byte() > 7, "a library call has a shorter form");
                return library(theCode.byte());
            case WscOperands::LibraryWord:
                theCode.byte();
                return library(theCode.word());
            case WscOperands::UrlByte: {
                const std::uint32_t url = theCode.byte();
                const std::uint32_t name = theCode.byte();
                theCode.byte();  // number of arguments
                return external(url, name);
            }
            case WscOperands::UrlWord: {
                const std::uint32_t url = theCode.word();
                const std::uint32_t name = theCode.word();
                check(url > 255 || name > 255, "an external call has a shorter form");
                theCode.byte();
                return external(url, name);
            }
        }
    }

    // The least index for which the form of two bytes is the shortest.
    static std::uint32_t shortLimit(WscOpcode theOpcode) {
        switch (theOpcode) {
            case WscOpcode::Call:
            case WscOpcode::IncrVar:
                return 8;
            case WscOpcode::LoadVar:
                return 32;
            case WscOpcode::StoreVar:
            case WscOpcode::LoadConst:
                return 16;
            default:
                return 0;
        }
    }

    void index(WscOpcode theOpcode, std::uint32_t theIndex, std::uint32_t theLeast) const {
        check(theIndex >= theLeast, "an instruction has a shorter form");
        switch (theOpcode) {
            case WscOpcode::Call:
            case WscOpcode::CallS:
                return check(theIndex < functionsM, "a call's function is not there");
            case WscOpcode::LoadConst:
            case WscOpcode::LoadConstS:
            case WscOpcode::LoadConstW:
                return requireConstant(theIndex, typeOf(theIndex) != theUtf8String);
            default:
                return check(theIndex < variablesM, "a variable is not there");
        }
    }

    // Forward from the end of the instruction, backward from its start.
    static void jump(WscOpcode theOpcode, std::size_t theStart, std::size_t theEnd,
                     std::uint32_t theOffset, std::uint32_t theLeast,
                     std::vector<std::size_t>& theTargets) {
        check(theOffset >= theLeast, "a jump has a shorter form");
        switch (theOpcode) {
            case WscOpcode::JumpBw:
            case WscOpcode::JumpBwW:
            case WscOpcode::JumpBwS:
            case WscOpcode::TjumpBw:
            case WscOpcode::TjumpBwW:
                check(theOffset <= theStart, "a jump goes in front of the code");
                return theTargets.push_back(theStart - theOffset);
            default:
                return theTargets.push_back(theEnd + theOffset);
        }
    }

    static void library(std::uint32_t theLibrary) {
        check(theLibrary <= 6 || (theLibrary >= 512 && theLibrary <= 520),
              "a library is not there");
    }

    void external(std::uint32_t theUrl, std::uint32_t theName) const {
        requireString(theUrl);
        requireConstant(theName, typeOf(theName) == theUtf8String);
    }

    Reader readerM;
    std::vector<std::uint8_t> typesM;  // of the constants, by index
    unsigned functionsM = 0;
    unsigned variablesM = 0;  // of the function at hand, parameters included
};

}  // namespace

const char* findByteCodeFault(std::string_view theFile) {
    try {
        FileCheck(theFile).run();
    } catch (const Fault& fault) {
        return fault.text;
    }
    return nullptr;
}

}  // namespace lumnis::fuzz
