#include "DumpByteCodeReader.h"

#include <bit>
#include <charconv>

#include "PrintableText.h"
#include "WscFunctionLibraryTable.h"

namespace lumnis {

namespace {

// Types of constants.
enum ConstantType : std::uint8_t {
    theInt8 = 0,
    theInt16 = 1,
    theInt32 = 2,
    theFloat32 = 3,
    theUtf8String = 4,
    theEmptyString = 5,
    theExternString = 6
};

constexpr std::string_view theConstantNames[] = {"int8",         "int16",        "int32", "float32",
                                                 "utf-8 string", "empty string", "string"};

struct PragmaRow {
    std::string_view name;
    unsigned operands;  // constant indices
};
constexpr PragmaRow thePragmas[] = {
    {"access domain", 1},
    {"access path", 1},
    {"user agent property", 2},
    {"user agent property", 3},  // with a scheme
};

std::string floatText(std::uint32_t theBits) {
    char text[32];
    const auto result = std::to_chars(text, text + sizeof text, std::bit_cast<float>(theBits));
    return {text, result.ptr};
}

std::string counted(std::uint32_t theCount, const char* theThing) {
    return std::to_string(theCount) + " " + theThing + (theCount == 1 ? "" : "s");
}

bool isJump(WscOperands theOperands) {
    return theOperands == WscOperands::JumpShort || theOperands == WscOperands::JumpByte ||
           theOperands == WscOperands::JumpWord;
}

bool isBackwardJump(WscOpcode theOpcode) {
    switch (theOpcode) {
        case WscOpcode::JumpBw:
        case WscOpcode::JumpBwS:
        case WscOpcode::JumpBwW:
        case WscOpcode::TjumpBw:
        case WscOpcode::TjumpBwW:
            return true;
        default:
            return false;
    }
}

// The operands of a jump are its label; this is for the others.
std::string operandText(WscOperands theForm, const std::uint32_t (&theOperands)[3]) {
    std::size_t count = 1;
    switch (theForm) {
        case WscOperands::None:
        case WscOperands::Pseudo:
            count = 0;
            break;
        case WscOperands::LibraryShort:
        case WscOperands::LibraryByte:
        case WscOperands::LibraryWord:
            count = 2;
            break;
        case WscOperands::UrlByte:
        case WscOperands::UrlWord:
            count = 3;
            break;
        default:
            break;
    }
    std::string text;
    for (std::size_t i = 0; i < count; ++i) {
        text += (i == 0 ? "" : " ") + std::to_string(theOperands[i]);
    }
    return text;
}

}  // namespace

DumpListing DumpByteCodeReader::read(std::string_view theFile) {
    DumpByteCodeReader reader(theFile);
    reader.listingM.format = DumpFormat::script;
    try {
        reader.run();
    } catch (DumpFault& fault) {
        reader.listingM.fault = std::move(fault);
    }
    return std::move(reader.listingM);
}

void DumpByteCodeReader::fail(std::string theMessage) const {
    throw DumpFault{startM, std::move(theMessage)};
}

DumpPiece& DumpByteCodeReader::add(DumpKind theKind, std::string theToken, std::string theText,
                                   std::string theName) {
    textSizeM += theText.size() + theName.size();
    if (textSizeM > theTextLimit) {
        fail("the code refers to more than 16 MiB of text");
    }
    DumpPiece& piece = listingM.pieces.emplace_back();
    piece.kind = theKind;
    piece.offset = startM;
    piece.length = cursorM.position() - startM;
    piece.token = std::move(theToken);
    piece.text = std::move(theText);
    piece.name = std::move(theName);
    startM = cursorM.position();
    return piece;
}

void DumpByteCodeReader::run() {
    header();
    constants();
    pragmas();
    names();
    for (unsigned i = 0; i < namesM.size(); ++i) {
        function(i);
    }
    if (!cursorM.isAtEnd()) {
        fail(counted(cursorM.rest(), "byte") + " behind the last function");
    }
}

void DumpByteCodeReader::header() {
    const unsigned version = cursorM.byte("the version");
    const unsigned major = (version >> 4) + 1;
    if (major != 1) {
        fail("not byte code of version 1: the version byte says " + std::to_string(major) + "." +
             std::to_string(version & 15));
    }
    add(DumpKind::header, "version", "WMLScript 1." + std::to_string(version & 15));
    const std::uint32_t size = cursorM.multiByte("the code size");
    if (size != cursorM.rest()) {
        fail("the code size is " + std::to_string(size) + ", but " +
             counted(cursorM.rest(), "byte") + " follow");
    }
    add(DumpKind::header, "code size", counted(size, "byte"));
}

void DumpByteCodeReader::constants() {
    const std::uint32_t count = cursorM.multiByte("the number of constants");
    add(DumpKind::header, "constants", std::to_string(count));
    const std::uint32_t charset = cursorM.multiByte("the charset");
    charsetM = DumpCharset(charset);
    add(DumpKind::header, "charset", DumpCharset::nameOf(charset));
    for (std::uint32_t i = 0; i < count; ++i) {
        constant(i);
    }
}

void DumpByteCodeReader::constant(std::uint32_t theIndex) {
    constexpr const char* what = "a constant";
    const std::uint8_t type = cursorM.byte(what);
    if (type > theExternString) {
        fail("constant " + std::to_string(theIndex) + " has the unknown type " +
             std::to_string(type));
    }
    std::string text;
    switch (type) {
        case theInt8:
            text = std::to_string(static_cast<std::int8_t>(cursorM.byte(what)));
            break;
        case theInt16:
            text = std::to_string(static_cast<std::int16_t>(cursorM.word(what)));
            break;
        case theInt32:
        case theFloat32: {
            const std::uint32_t high = cursorM.word(what);
            const std::uint32_t bits = high << 16 | cursorM.word(what);
            text = type == theFloat32 ? floatText(bits)
                                      : std::to_string(static_cast<std::int32_t>(bits));
            break;
        }
        case theUtf8String:
            text = DumpCharset(DumpCharset::theUtf8)
                       .decode(cursorM.take(cursorM.multiByte(what), what));
            break;
        case theExternString:
            text = charsetM.decode(cursorM.take(cursorM.multiByte(what), what));
            break;
        default:
            break;
    }
    constantsM.push_back({type, text});
    add(DumpKind::constant, std::string(theConstantNames[type]), std::move(text)).value = theIndex;
}

std::string DumpByteCodeReader::constantText(std::uint32_t theIndex) {
    if (theIndex >= constantsM.size()) {
        fail("there is no constant " + std::to_string(theIndex));
    }
    const Constant& constant = constantsM[theIndex];
    return constant.type >= theUtf8String ? '"' + constant.text + '"' : constant.text;
}

void DumpByteCodeReader::pragmas() {
    const std::uint32_t count = cursorM.multiByte("the number of pragmas");
    add(DumpKind::header, "pragmas", std::to_string(count));
    for (std::uint32_t i = 0; i < count; ++i) {
        const std::uint8_t type = cursorM.byte("a pragma");
        if (type >= std::size(thePragmas)) {
            fail("a pragma of the unknown type " + std::to_string(type));
        }
        std::string indices;
        std::string texts;
        for (unsigned k = 0; k < thePragmas[type].operands; ++k) {
            const std::uint32_t index = cursorM.multiByte("a pragma");
            indices += (k == 0 ? "" : " ") + std::to_string(index);
            texts += (k == 0 ? "" : " ") + constantText(index);
        }
        add(DumpKind::pragma, std::string(thePragmas[type].name), std::move(indices),
            std::move(texts));
    }
}

void DumpByteCodeReader::names() {
    const unsigned functions = cursorM.byte("the number of functions");
    add(DumpKind::header, "functions", std::to_string(functions));
    namesM.resize(functions);
    const unsigned count = cursorM.byte("the number of function names");
    add(DumpKind::header, "function names", std::to_string(count));
    for (unsigned i = 0; i < count; ++i) {
        const unsigned number = cursorM.byte("a function name");
        if (number >= functions) {
            fail("a name for function " + std::to_string(number) + ", which is not there");
        }
        const unsigned length = cursorM.byte("a function name");
        std::string name =
            DumpCharset(DumpCharset::theUtf8).decode(cursorM.take(length, "a function name"));
        namesM[number] = name;
        add(DumpKind::functionName, "function " + std::to_string(number), {}, std::move(name))
            .value = number;
    }
}

void DumpByteCodeReader::function(unsigned theNumber) {
    const unsigned arguments = cursorM.byte("a function");
    add(DumpKind::function, "arguments", std::to_string(arguments), namesM[theNumber]).value =
        theNumber;
    const unsigned locals = cursorM.byte("a function");
    add(DumpKind::header, "local variables", std::to_string(locals));
    variableCountM = arguments + locals;
    const std::uint32_t size = cursorM.multiByte("a function");
    if (size > cursorM.rest()) {
        fail("the function has " + counted(size, "byte") + " of code, the file only " +
             std::to_string(cursorM.rest()) + " more");
    }
    add(DumpKind::header, "code size", counted(size, "byte"));

    const std::uint32_t start = cursorM.position();
    const std::uint32_t end = start + size;
    const std::vector<Instruction> code = decode(end);
    const std::vector<std::uint32_t> labels = findLabels(code, start, end);
    const auto addLabel = [&](std::uint32_t theOffset) {
        if (const std::uint32_t number = labels[theOffset - start]) {
            DumpPiece& piece = add(DumpKind::label, {}, "L" + std::to_string(number));
            piece.offset = theOffset;
            piece.length = 0;
            piece.value = number;
        }
    };
    for (const Instruction& each : code) {
        addLabel(each.offset);
        addInstruction(each, isJump(each.info->operands) ? labels[each.target - start] : 0);
    }
    addLabel(end);
    startM = end;
}

std::vector<DumpByteCodeReader::Instruction> DumpByteCodeReader::decode(std::uint32_t theEnd) {
    // An instruction must not reach into the next function.
    const std::uint32_t fileEnd = cursorM.end();
    cursorM.setEnd(theEnd, "function");
    std::vector<Instruction> code;
    while (!cursorM.isAtEnd()) {
        code.push_back(instruction());
    }
    cursorM.setEnd(fileEnd, "file");
    return code;
}

DumpByteCodeReader::Instruction DumpByteCodeReader::instruction() {
    constexpr const char* what = "an instruction";
    Instruction result;
    startM = result.offset = cursorM.position();
    const std::uint8_t first = cursorM.byte(what);
    result.info = findOpcode(first);
    if (result.info == nullptr) {
        fail("no instruction begins with the byte " + hexByte(first));
    }
    const std::uint32_t inside = first - static_cast<std::uint32_t>(valueOf(result.info->opcode));
    std::uint32_t(&operands)[3] = result.operands;
    switch (result.info->operands) {
        case WscOperands::None:
        case WscOperands::Pseudo:
            break;
        case WscOperands::Short:
        case WscOperands::JumpShort:
            operands[0] = inside;
            break;
        case WscOperands::Byte:
        case WscOperands::JumpByte:
            operands[0] = cursorM.byte(what);
            break;
        case WscOperands::Word:
        case WscOperands::JumpWord:
            operands[0] = cursorM.word(what);
            break;
        case WscOperands::LibraryShort:
            operands[0] = inside;
            operands[1] = cursorM.byte(what);
            break;
        case WscOperands::LibraryByte:
            operands[0] = cursorM.byte(what);
            operands[1] = cursorM.byte(what);
            break;
        case WscOperands::LibraryWord:
            operands[0] = cursorM.byte(what);
            operands[1] = cursorM.word(what);
            break;
        case WscOperands::UrlByte:
            operands[0] = cursorM.byte(what);
            operands[1] = cursorM.byte(what);
            operands[2] = cursorM.byte(what);
            break;
        case WscOperands::UrlWord:
            operands[0] = cursorM.word(what);
            operands[1] = cursorM.word(what);
            operands[2] = cursorM.byte(what);
            break;
    }
    result.end = cursorM.position();
    if (isJump(result.info->operands)) {
        result.target = targetOf(result);
    }
    return result;
}

// Forward from the end of the instruction, backward from its start.
std::uint32_t DumpByteCodeReader::targetOf(const Instruction& theJump) const {
    const std::uint32_t distance = theJump.operands[0];
    if (!isBackwardJump(theJump.info->opcode)) {
        return theJump.end + distance;
    }
    if (distance > theJump.offset) {
        fail("a jump in front of the code");
    }
    return theJump.offset - distance;
}

std::vector<std::uint32_t> DumpByteCodeReader::findLabels(const std::vector<Instruction>& theCode,
                                                          std::uint32_t theStart,
                                                          std::uint32_t theEnd) {
    constexpr std::uint32_t theMark = 1;
    std::vector<bool> isStart(theEnd - theStart + 1);
    for (const Instruction& each : theCode) {
        isStart[each.offset - theStart] = true;
    }
    isStart.back() = true;
    std::vector<std::uint32_t> labels(isStart.size());
    for (const Instruction& each : theCode) {
        if (!isJump(each.info->operands)) {
            continue;
        }
        if (each.target < theStart || each.target > theEnd || !isStart[each.target - theStart]) {
            startM = each.offset;
            fail("a jump to offset " + std::to_string(each.target) +
                 ", where no instruction of the function begins");
        }
        labels[each.target - theStart] = theMark;
    }
    std::uint32_t number = 0;
    for (std::uint32_t& label : labels) {
        label = label == theMark ? ++number : 0;
    }
    return labels;
}

void DumpByteCodeReader::addInstruction(const Instruction& theInstruction, std::uint32_t theLabel) {
    startM = theInstruction.offset;
    std::string text = isJump(theInstruction.info->operands)
                           ? "L" + std::to_string(theLabel)
                           : operandText(theInstruction.info->operands, theInstruction.operands);
    std::string name = meaning(theInstruction);
    DumpPiece& piece = add(DumpKind::instruction, std::string(theInstruction.info->name),
                           std::move(text), std::move(name));
    piece.length = theInstruction.end - theInstruction.offset;
    piece.depth = 1;
    piece.value = theLabel;
}

std::string DumpByteCodeReader::meaning(const Instruction& theInstruction) {
    const std::uint32_t first = theInstruction.operands[0];
    const std::uint32_t second = theInstruction.operands[1];
    switch (theInstruction.info->operands) {
        case WscOperands::LibraryShort:
        case WscOperands::LibraryByte:
        case WscOperands::LibraryWord: {
            const auto names = WscFunctionLibraryTable::findNames(static_cast<std::int32_t>(second),
                                                                  static_cast<std::int32_t>(first));
            return (names.library.empty() ? "library " + std::to_string(second)
                                          : std::string(names.library)) +
                   "." +
                   (names.function.empty() ? "function " + std::to_string(first)
                                           : std::string(names.function));
        }
        case WscOperands::UrlByte:
        case WscOperands::UrlWord:
            return constantText(first) + " " + constantText(second) + ", " +
                   counted(theInstruction.operands[2], "argument");
        case WscOperands::Short:
        case WscOperands::Byte:
        case WscOperands::Word:
            break;
        default:
            return {};
    }
    switch (theInstruction.info->opcode) {
        case WscOpcode::LoadConst:
        case WscOpcode::LoadConstS:
        case WscOpcode::LoadConstW:
            return constantText(first);
        case WscOpcode::Call:
        case WscOpcode::CallS:
            if (first >= namesM.size()) {
                fail("there is no function " + std::to_string(first));
            }
            return namesM[first];
        default:
            if (first >= variableCountM) {
                fail("there is no variable " + std::to_string(first));
            }
            return {};
    }
}

}  // namespace lumnis
