// Global tokens of WBXML (WBXML 1.3, 7.1), as far as they are written here, and numbers that are no
// document type's own.
#pragma once

namespace lumnis {

struct XaWbxmlToken {
    using Type = unsigned char;

    static constexpr Type SWITCH_PAGE = 0x00;  // and the page in one byte
    static constexpr Type END = 0x01;          // of attributes, of content, of an instruction
    static constexpr Type STR_I = 0x03;        // and a string with its terminator
    static constexpr Type LITERAL = 0x04;      // and the offset of a name, as the next three
    static constexpr Type PI = 0x43;
    static constexpr Type LITERAL_C = 0x44;
    static constexpr Type EXT_T_0 = 0x80;  // and an offset; in WML a variable, escaped
    static constexpr Type EXT_T_1 = 0x81;  // the same, unescaped
    static constexpr Type EXT_T_2 = 0x82;  // the same, as it is
    static constexpr Type STR_T = 0x83;    // and an offset
    static constexpr Type LITERAL_A = 0x84;
    static constexpr Type LITERAL_AC = 0xC4;

    // Bits of the token of an element.
    static constexpr Type HAS_CONTENT = 0x40;
    static constexpr Type HAS_ATTRIBUTES = 0x80;
};

// Numbers of public identifiers (WBXML 1.3, 7.2): of those of WML, and of the two that name no
// document type.
struct XaWbxmlPublicId {
    static constexpr unsigned char IN_STRING_TABLE = 0;  // and the offset of the identifier
    static constexpr unsigned char UNKNOWN = 1;          // or none
    static constexpr unsigned char WML_1_1 = 4;
    static constexpr unsigned char WML_1_2 = 9;
    static constexpr unsigned char WML_1_3 = 10;
    static constexpr unsigned char WTA_WML_1_2 = 12;
};

}  // namespace lumnis
