// Reader of compiled scripts (WMLScript standard, chapters "WMLScript Binary Format" and
// "WMLScript Instruction Set").
//
// Every index must name something that is there and every jump the start of an instruction;
// forms longer than need be are accepted. Library functions that are not known are shown by
// number: a handset may have more of them.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "DumpCharset.h"
#include "DumpCursor.h"
#include "DumpListing.h"
#include "WscOpcode.h"

namespace lumnis {

class DumpByteCodeReader {
  public:
    // The pieces and, for a damaged file, the fault. theFile has less than 4 GiB.
    static DumpListing read(std::string_view theFile);

    // Of texts and names of all pieces: code can load a long constant again and again.
    static constexpr std::size_t theTextLimit = std::size_t{16} << 20;

  private:
    struct Constant {
        std::uint8_t type;
        std::string text;
    };
    struct Instruction {
        std::uint32_t offset = 0;
        const WscOpcodeInfo* info = nullptr;
        std::uint32_t operands[3] = {0, 0, 0};
        std::uint32_t target = 0;  // of a jump: an offset in the file
        std::uint32_t end = 0;
    };

    explicit DumpByteCodeReader(std::string_view theFile) : cursorM(theFile) {}

    void run();
    // The fields of the file, in order; the cursor is at the first byte of each.
    void header();
    void constants();
    void constant(std::uint32_t theIndex);
    void pragmas();
    void names();
    void function(unsigned theNumber);
    // The instructions up to theEnd. No piece yet: the labels must be known first.
    std::vector<Instruction> decode(std::uint32_t theEnd);
    Instruction instruction();
    std::uint32_t targetOf(const Instruction& theJump) const;
    // The numbers of the labels: by distance from the first instruction, 0 where there is none.
    std::vector<std::uint32_t> findLabels(const std::vector<Instruction>& theCode,
                                          std::uint32_t theStart, std::uint32_t theEnd);
    // theLabel: that of a jump's target, 0 for other instructions.
    void addInstruction(const Instruction& theInstruction, std::uint32_t theLabel);
    // What an index stands for, or nothing. Fails where it stands for nothing that is there.
    std::string meaning(const Instruction& theInstruction);
    std::string constantText(std::uint32_t theIndex);

    // A piece that begins at startM and ends at the cursor.
    DumpPiece& add(DumpKind theKind, std::string theToken, std::string theText = {},
                   std::string theName = {});
    [[noreturn]] void fail(std::string theMessage) const;  // at startM

    DumpCursor cursorM;
    DumpCharset charsetM{DumpCharset::theUtf8};
    DumpListing listingM;
    std::vector<Constant> constantsM;
    std::vector<std::string> namesM;   // of the functions, by number; empty: not extern
    std::uint32_t startM = 0;          // of the next piece
    std::uint32_t variableCountM = 0;  // of the function at hand, arguments included
    std::size_t textSizeM = 0;
};

}  // namespace lumnis
