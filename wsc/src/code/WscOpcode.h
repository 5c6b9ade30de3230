// The instruction set of the byte code: WMLScript standard, chapter "WMLScript Instruction Set".
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace lumnis {

// A short form is named by its base value: the operand fills the low bits of the byte.
enum class WscOpcode : std::uint8_t {
    JumpFw = 0x01,
    JumpFwW = 0x02,
    JumpBw = 0x03,
    JumpBwW = 0x04,
    TjumpFw = 0x05,
    TjumpFwW = 0x06,
    TjumpBw = 0x07,
    TjumpBwW = 0x08,
    Call = 0x09,
    CallLib = 0x0A,
    CallLibW = 0x0B,
    CallUrl = 0x0C,
    CallUrlW = 0x0D,
    LoadVar = 0x0E,
    StoreVar = 0x0F,
    IncrVar = 0x10,
    DecrVar = 0x11,
    LoadConst = 0x12,
    LoadConstW = 0x13,
    Const0 = 0x14,
    Const1 = 0x15,
    ConstM1 = 0x16,
    ConstEs = 0x17,
    ConstInvalid = 0x18,
    ConstTrue = 0x19,
    ConstFalse = 0x1A,
    Incr = 0x1B,
    Decr = 0x1C,
    AddAsg = 0x1D,
    SubAsg = 0x1E,
    Uminus = 0x1F,
    Add = 0x20,
    Sub = 0x21,
    Mul = 0x22,
    Div = 0x23,
    Idiv = 0x24,
    Rem = 0x25,
    BAnd = 0x26,
    BOr = 0x27,
    BXor = 0x28,
    BNot = 0x29,
    BLshift = 0x2A,
    BRsshift = 0x2B,
    BRszshift = 0x2C,
    Eq = 0x2D,
    Le = 0x2E,
    Lt = 0x2F,
    Ge = 0x30,
    Gt = 0x31,
    Ne = 0x32,
    Not = 0x33,
    Scand = 0x34,
    Scor = 0x35,
    Tobool = 0x36,
    Pop = 0x37,
    Typeof = 0x38,
    Isvalid = 0x39,
    Return = 0x3A,
    ReturnEs = 0x3B,
    Debug = 0x3C,
    StoreVarS = 0x40,
    LoadConstS = 0x50,
    CallS = 0x60,
    CallLibS = 0x68,
    IncrVarS = 0x70,
    JumpFwS = 0x80,
    JumpBwS = 0xA0,
    TjumpFwS = 0xC0,
    LoadVarS = 0xE0,
    // Inside the compiler alone: jumps whose form is not fixed yet, and their targets.
    PseudoJump = 0xFD,
    PseudoTjump = 0xFE,
    PseudoLabel = 0xFF
};

constexpr std::uint8_t valueOf(WscOpcode theOpcode) noexcept {
    return static_cast<std::uint8_t>(theOpcode);
}

// What follows the opcode, most significant byte first.
enum class WscOperands : std::uint8_t {
    None,
    Short,         // index in the opcode's low bits
    Byte,          // index
    Word,          // index in two bytes
    JumpShort,     // offset in the opcode's low bits
    JumpByte,      // offset
    JumpWord,      // offset in two bytes
    LibraryShort,  // function id in the opcode's low bits, library id
    LibraryByte,   // function id, library id
    LibraryWord,   // function id, library id in two bytes
    UrlByte,       // URL index, function name index, argument count
    UrlWord,       // URL index and function name index in two bytes each, argument count
    Pseudo         // nothing: not in the file
};

struct WscOpcodeInfo {
    WscOpcode opcode;
    std::uint8_t operandLimit;  // the largest operand in the low bits of a short form
    std::uint8_t size;          // in bytes, opcode included
    WscOperands operands;
    std::string_view name;
};

// By value. A static_assert holds size, operands and order together.
// clang-format off
inline constexpr std::array theOpcodeTable = {
    //            opcode                 limit size operands                    name
    WscOpcodeInfo{WscOpcode::JumpFw,       0, 2, WscOperands::JumpByte,     "JUMP_FW"},
    WscOpcodeInfo{WscOpcode::JumpFwW,      0, 3, WscOperands::JumpWord,     "JUMP_FW_W"},
    WscOpcodeInfo{WscOpcode::JumpBw,       0, 2, WscOperands::JumpByte,     "JUMP_BW"},
    WscOpcodeInfo{WscOpcode::JumpBwW,      0, 3, WscOperands::JumpWord,     "JUMP_BW_W"},
    WscOpcodeInfo{WscOpcode::TjumpFw,      0, 2, WscOperands::JumpByte,     "TJUMP_FW"},
    WscOpcodeInfo{WscOpcode::TjumpFwW,     0, 3, WscOperands::JumpWord,     "TJUMP_FW_W"},
    WscOpcodeInfo{WscOpcode::TjumpBw,      0, 2, WscOperands::JumpByte,     "TJUMP_BW"},
    WscOpcodeInfo{WscOpcode::TjumpBwW,     0, 3, WscOperands::JumpWord,     "TJUMP_BW_W"},
    WscOpcodeInfo{WscOpcode::Call,         0, 2, WscOperands::Byte,         "CALL"},
    WscOpcodeInfo{WscOpcode::CallLib,      0, 3, WscOperands::LibraryByte,  "CALL_LIB"},
    WscOpcodeInfo{WscOpcode::CallLibW,     0, 4, WscOperands::LibraryWord,  "CALL_LIB_W"},
    WscOpcodeInfo{WscOpcode::CallUrl,      0, 4, WscOperands::UrlByte,      "CALL_URL"},
    WscOpcodeInfo{WscOpcode::CallUrlW,     0, 6, WscOperands::UrlWord,      "CALL_URL_W"},
    WscOpcodeInfo{WscOpcode::LoadVar,      0, 2, WscOperands::Byte,         "LOAD_VAR"},
    WscOpcodeInfo{WscOpcode::StoreVar,     0, 2, WscOperands::Byte,         "STORE_VAR"},
    WscOpcodeInfo{WscOpcode::IncrVar,      0, 2, WscOperands::Byte,         "INCR_VAR"},
    WscOpcodeInfo{WscOpcode::DecrVar,      0, 2, WscOperands::Byte,         "DECR_VAR"},
    WscOpcodeInfo{WscOpcode::LoadConst,    0, 2, WscOperands::Byte,         "LOAD_CONST"},
    WscOpcodeInfo{WscOpcode::LoadConstW,   0, 3, WscOperands::Word,         "LOAD_CONST_W"},
    WscOpcodeInfo{WscOpcode::Const0,       0, 1, WscOperands::None,         "CONST_0"},
    WscOpcodeInfo{WscOpcode::Const1,       0, 1, WscOperands::None,         "CONST_1"},
    WscOpcodeInfo{WscOpcode::ConstM1,      0, 1, WscOperands::None,         "CONST_M1"},
    WscOpcodeInfo{WscOpcode::ConstEs,      0, 1, WscOperands::None,         "CONST_ES"},
    WscOpcodeInfo{WscOpcode::ConstInvalid, 0, 1, WscOperands::None,         "CONST_INVALID"},
    WscOpcodeInfo{WscOpcode::ConstTrue,    0, 1, WscOperands::None,         "CONST_TRUE"},
    WscOpcodeInfo{WscOpcode::ConstFalse,   0, 1, WscOperands::None,         "CONST_FALSE"},
    WscOpcodeInfo{WscOpcode::Incr,         0, 1, WscOperands::None,         "INCR"},
    WscOpcodeInfo{WscOpcode::Decr,         0, 1, WscOperands::None,         "DECR"},
    WscOpcodeInfo{WscOpcode::AddAsg,       0, 2, WscOperands::Byte,         "ADD_ASG"},
    WscOpcodeInfo{WscOpcode::SubAsg,       0, 2, WscOperands::Byte,         "SUB_ASG"},
    WscOpcodeInfo{WscOpcode::Uminus,       0, 1, WscOperands::None,         "UMINUS"},
    WscOpcodeInfo{WscOpcode::Add,          0, 1, WscOperands::None,         "ADD"},
    WscOpcodeInfo{WscOpcode::Sub,          0, 1, WscOperands::None,         "SUB"},
    WscOpcodeInfo{WscOpcode::Mul,          0, 1, WscOperands::None,         "MUL"},
    WscOpcodeInfo{WscOpcode::Div,          0, 1, WscOperands::None,         "DIV"},
    WscOpcodeInfo{WscOpcode::Idiv,         0, 1, WscOperands::None,         "IDIV"},
    WscOpcodeInfo{WscOpcode::Rem,          0, 1, WscOperands::None,         "REM"},
    WscOpcodeInfo{WscOpcode::BAnd,         0, 1, WscOperands::None,         "B_AND"},
    WscOpcodeInfo{WscOpcode::BOr,          0, 1, WscOperands::None,         "B_OR"},
    WscOpcodeInfo{WscOpcode::BXor,         0, 1, WscOperands::None,         "B_XOR"},
    WscOpcodeInfo{WscOpcode::BNot,         0, 1, WscOperands::None,         "B_NOT"},
    WscOpcodeInfo{WscOpcode::BLshift,      0, 1, WscOperands::None,         "B_LSHIFT"},
    WscOpcodeInfo{WscOpcode::BRsshift,     0, 1, WscOperands::None,         "B_RSSHIFT"},
    WscOpcodeInfo{WscOpcode::BRszshift,    0, 1, WscOperands::None,         "B_RSZSHIFT"},
    WscOpcodeInfo{WscOpcode::Eq,           0, 1, WscOperands::None,         "EQ"},
    WscOpcodeInfo{WscOpcode::Le,           0, 1, WscOperands::None,         "LE"},
    WscOpcodeInfo{WscOpcode::Lt,           0, 1, WscOperands::None,         "LT"},
    WscOpcodeInfo{WscOpcode::Ge,           0, 1, WscOperands::None,         "GE"},
    WscOpcodeInfo{WscOpcode::Gt,           0, 1, WscOperands::None,         "GT"},
    WscOpcodeInfo{WscOpcode::Ne,           0, 1, WscOperands::None,         "NE"},
    WscOpcodeInfo{WscOpcode::Not,          0, 1, WscOperands::None,         "NOT"},
    WscOpcodeInfo{WscOpcode::Scand,        0, 1, WscOperands::None,         "SCAND"},
    WscOpcodeInfo{WscOpcode::Scor,         0, 1, WscOperands::None,         "SCOR"},
    WscOpcodeInfo{WscOpcode::Tobool,       0, 1, WscOperands::None,         "TOBOOL"},
    WscOpcodeInfo{WscOpcode::Pop,          0, 1, WscOperands::None,         "POP"},
    WscOpcodeInfo{WscOpcode::Typeof,       0, 1, WscOperands::None,         "TYPEOF"},
    WscOpcodeInfo{WscOpcode::Isvalid,      0, 1, WscOperands::None,         "ISVALID"},
    WscOpcodeInfo{WscOpcode::Return,       0, 1, WscOperands::None,         "RETURN"},
    WscOpcodeInfo{WscOpcode::ReturnEs,     0, 1, WscOperands::None,         "RETURN_ES"},
    WscOpcodeInfo{WscOpcode::Debug,        0, 1, WscOperands::None,         "DEBUG"},
    WscOpcodeInfo{WscOpcode::StoreVarS,   15, 1, WscOperands::Short,        "STORE_VAR_S"},
    WscOpcodeInfo{WscOpcode::LoadConstS,  15, 1, WscOperands::Short,        "LOAD_CONST_S"},
    WscOpcodeInfo{WscOpcode::CallS,        7, 1, WscOperands::Short,        "CALL_S"},
    WscOpcodeInfo{WscOpcode::CallLibS,     7, 2, WscOperands::LibraryShort, "CALL_LIB_S"},
    WscOpcodeInfo{WscOpcode::IncrVarS,     7, 1, WscOperands::Short,        "INCR_VAR_S"},
    WscOpcodeInfo{WscOpcode::JumpFwS,     31, 1, WscOperands::JumpShort,    "JUMP_FW_S"},
    WscOpcodeInfo{WscOpcode::JumpBwS,     31, 1, WscOperands::JumpShort,    "JUMP_BW_S"},
    WscOpcodeInfo{WscOpcode::TjumpFwS,    31, 1, WscOperands::JumpShort,    "TJUMP_FW_S"},
    WscOpcodeInfo{WscOpcode::LoadVarS,    31, 1, WscOperands::Short,        "LOAD_VAR_S"},
    WscOpcodeInfo{WscOpcode::PseudoJump,   0, 0, WscOperands::Pseudo,       "PSEUDO_JUMP"},
    WscOpcodeInfo{WscOpcode::PseudoTjump,  0, 0, WscOperands::Pseudo,       "PSEUDO_TJUMP"},
    WscOpcodeInfo{WscOpcode::PseudoLabel,  0, 0, WscOperands::Pseudo,       "PSEUDO_LABEL"},
};
// clang-format on

// Size in bytes that the operands and their opcode take.
constexpr std::uint8_t sizeOf(WscOperands theOperands) noexcept {
    switch (theOperands) {
        case WscOperands::None:
        case WscOperands::Short:
        case WscOperands::JumpShort:
            return 1;
        case WscOperands::Byte:
        case WscOperands::JumpByte:
        case WscOperands::LibraryShort:
            return 2;
        case WscOperands::Word:
        case WscOperands::JumpWord:
        case WscOperands::LibraryByte:
            return 3;
        case WscOperands::LibraryWord:
        case WscOperands::UrlByte:
            return 4;
        case WscOperands::UrlWord:
            return 6;
        case WscOperands::Pseudo:
            break;
    }
    return 0;
}

// Rows ascend; each size is that of its operands; no short form reaches into the next opcode of
// the file. (The pseudo instructions lie over the last operands of LOAD_VAR_S.)
constexpr bool isOpcodeTableSound() noexcept {
    for (std::size_t i = 0; i < theOpcodeTable.size(); ++i) {
        const WscOpcodeInfo& row = theOpcodeTable[i];
        const bool isLast =
            i + 1 == theOpcodeTable.size() || theOpcodeTable[i + 1].operands == WscOperands::Pseudo;
        const int next = isLast ? 256 : valueOf(theOpcodeTable[i + 1].opcode);
        if (valueOf(row.opcode) + row.operandLimit >= next || row.size != sizeOf(row.operands) ||
            (valueOf(row.opcode) & row.operandLimit) != 0) {
            return false;
        }
    }
    return true;
}
static_assert(isOpcodeTableSound());

// The row whose opcode is theValue or whose short form covers it; null for a gap. Index by the
// first byte of an instruction, so it serves readers of byte code as well.
constexpr const WscOpcodeInfo* findOpcode(std::uint8_t theValue) noexcept {
    for (const WscOpcodeInfo& row : theOpcodeTable) {
        if (theValue >= valueOf(row.opcode) && theValue <= valueOf(row.opcode) + row.operandLimit) {
            return &row;
        }
    }
    return nullptr;
}

// Whether theOperand has room in the low bits of an instruction, in the opcode of a short form.
template <WscOpcode theShortForm>
constexpr bool fitsShortForm(int theOperand) noexcept {
    constexpr int theLimit = findOpcode(valueOf(theShortForm))->operandLimit;
    static_assert(theLimit != 0);
    return theOperand >= 0 && theOperand <= theLimit;
}

// The operands of each opcode, by its value; none for a gap.
constexpr std::array<WscOperands, 256> makeOperandsByOpcode() noexcept {
    std::array<WscOperands, 256> result{};
    for (const WscOpcodeInfo& row : theOpcodeTable) {
        result[valueOf(row.opcode)] = row.operands;
    }
    return result;
}
inline constexpr std::array<WscOperands, 256> theOperandsByOpcode = makeOperandsByOpcode();

}  // namespace lumnis
