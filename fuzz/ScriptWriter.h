// Turns any bytes into a script that is valid for the most part: every choice that the grammar of
// WMLScript leaves open takes a byte, and where the bytes have ended the shortest choice is taken.
// So small changes of the bytes are small changes of the script, and every script is finite.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace lumnis::fuzz {

class ScriptWriter {
  public:
    explicit ScriptWriter(std::span<const std::uint8_t> theBytes) : bytesM(theBytes) {}

    std::string write();

  private:
    struct Function {
        bool isExtern;
        unsigned parameters;
    };

    // 0 to theCount - 1; 0 when the bytes have ended.
    unsigned choose(unsigned theCount);
    bool isAtEnd() const { return bytesM.empty(); }
    void put(std::string_view theText);
    void putNumber(unsigned theNumber);
    void variable();
    void functionName(unsigned theNumber);

    void pragma();
    void function(unsigned theNumber);
    void block(unsigned theDepth, bool isInLoop);
    void statement(unsigned theDepth, bool isInLoop);
    void declarations(unsigned theDepth);
    void forHead(unsigned theDepth);
    void expression(unsigned theDepth);
    void operand(unsigned theDepth);
    void call(unsigned theDepth);
    void arguments(unsigned theDepth, unsigned theCount);
    void literal();
    void stringLiteral();
    // Any token, wherever it may stand: the share of the invalid.
    void anyToken();

    std::span<const std::uint8_t> bytesM;
    std::string textM;
    std::vector<Function> functionsM;
    unsigned variablesM = 0;  // v0, v1, ... of the function at hand
    unsigned urlsM = 0;       // u0, u1, ...
};

}  // namespace lumnis::fuzz
