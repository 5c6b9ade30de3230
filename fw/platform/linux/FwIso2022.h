// Bytes of the encodings of ISO 2022 with seven bits, and of their twins that set the top bit.
#pragma once

namespace lumnis {

// SO, SI and ESC, which say what the bytes behind them mean. In a text such a character would be
// taken for a shift of the encoding.
constexpr bool isShiftByte(char theByte) {
    return theByte == '\x0E' || theByte == '\x0F' || theByte == '\x1B';
}

// A byte that means a character of the set shifted to. Blanks and control characters are the same
// in every set.
constexpr bool isGraphicByte(char theByte) {
    return theByte >= '\x21' && theByte <= '\x7E';
}

constexpr bool isAsciiByte(char theByte) {
    return static_cast<unsigned char>(theByte) < 0x80;
}

constexpr char withTopBit(char theByte) {
    return static_cast<char>(static_cast<unsigned char>(theByte) | 0x80);
}

constexpr char withoutTopBit(char theByte) {
    return static_cast<char>(static_cast<unsigned char>(theByte) & 0x7F);
}

}  // namespace lumnis
