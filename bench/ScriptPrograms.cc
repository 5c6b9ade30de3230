#include "ScriptPrograms.h"

#include <cstdint>
#include <vector>

namespace lumnis::bench {

namespace {

// The same sequence on every machine and in every dialect.
class Dice {
  public:
    unsigned roll(unsigned theSides) {
        stateM = stateM * 6364136223846793005u + 1442695040888963407u;
        return static_cast<unsigned>(stateM >> 33) % theSides;
    }

  private:
    std::uint64_t stateM = 42;
};

class Program {
  public:
    explicit Program(Dialect theDialect) : dialectM(theDialect) {}

    // One of theStatements statements, which hold others down to theDepth.
    void addFunction(int theStatements, int theDepth) {
        const std::string number = std::to_string(functionsM);
        variablesM = {"first", "second"};
        if (dialectM == Dialect::WmlScript) {
            textM += "extern ";
        }
        line("function step" + number + "(first, second)" + open());
        ++depthM;
        for (const char* name : {"total", "index", "label"}) {
            line((isLua() ? "local " : "var ") + std::string(name) + " = " + value() + end());
            variablesM.push_back(name);
        }
        for (int i = 0; i < theStatements; ++i) {
            addStatement(theDepth);
        }
        line("return " + expression(2) + end());
        --depthM;
        line(close());
        textM += '\n';
        ++functionsM;
    }

    std::string take() { return std::move(textM); }
    std::size_t size() const { return textM.size(); }

  private:
    bool isLua() const { return dialectM == Dialect::Lua; }
    const char* open() const { return isLua() ? "" : " {"; }
    const char* close() const { return isLua() ? "end" : "}"; }
    const char* end() const { return isLua() ? "" : ";"; }

    void line(const std::string& theText) {
        textM.append(4 * static_cast<std::size_t>(depthM), ' ');
        textM += theText;
        textM += '\n';
    }

    std::string variable() {
        return variablesM[diceM.roll(static_cast<unsigned>(variablesM.size()))];
    }
    std::string value() {
        switch (diceM.roll(4)) {
            case 0:
                return std::to_string(diceM.roll(1000));
            case 1:
                return "\"text " + std::to_string(diceM.roll(40)) + "\"";
            case 2:
                return std::to_string(diceM.roll(100)) + ".5";
            default:
                return variable();
        }
    }
    std::string expression(int theDepth) {
        if (theDepth == 0) {
            return value();
        }
        switch (diceM.roll(5)) {
            case 0:
                return value();
            case 1:
                return "(" + expression(theDepth - 1) + " - " + value() + ")";
            case 2:
                return call(theDepth);
            default: {
                const char* operators[] = {" + ", " * ", " - ", " / "};
                const std::string left = expression(theDepth - 1);
                return left + operators[diceM.roll(4)] + value();
            }
        }
    }
    // A function of the program or of a library.
    std::string call(int theDepth) {
        const bool isLocal = functionsM != 0 && diceM.roll(2) == 0;
        const std::string name =
            isLocal ? "step" + std::to_string(diceM.roll(functionsM)) : "Lang.max";
        const std::string first = expression(theDepth - 1);
        return name + "(" + first + ", " + value() + ")";
    }
    std::string condition() {
        const char* comparisons[] = {" < ", " == ", " >= "};
        std::string result = variable() + comparisons[diceM.roll(3)] + value();
        if (diceM.roll(3) == 0) {
            result += isLua() ? " and " : " && ";
            result += variable() + (isLua() ? " ~= " : " != ") + value();
        }
        return result;
    }
    void addBlock(int theDepth) {
        ++depthM;
        addStatement(theDepth);
        addStatement(theDepth);
        --depthM;
    }
    void addStatement(int theDepth) {
        const unsigned kind = theDepth == 0 ? diceM.roll(4) : diceM.roll(7);
        const std::string target = variable();
        switch (kind) {
            case 0:
            case 1:
                line(target + " = " + expression(2) + end());
                break;
            case 2:
                line(isLua() ? target + " = " + target + " + " + value()
                             : target + " += " + value() + ";");
                break;
            case 3:
                line(target + " = " + call(1) + end());
                break;
            case 4:
            case 5: {
                const std::string test = condition();
                line(isLua() ? "if " + test + " then" : "if (" + test + ") {");
                addBlock(theDepth - 1);
                line(isLua() ? "else" : "} else {");
                addBlock(theDepth - 1);
                line(close());
                break;
            }
            default: {
                const std::string test = condition();
                line(isLua() ? "while " + test + " do" : "while (" + test + ") {");
                addBlock(theDepth - 1);
                line(close());
                break;
            }
        }
    }

    Dialect dialectM;
    Dice diceM;
    std::string textM;
    std::vector<std::string> variablesM;
    unsigned functionsM = 0;
    int depthM = 0;
};

}  // namespace

std::string makeProgram(Dialect theDialect, std::size_t theSize) {
    // The WMLScript text decides how many functions there are.
    Program measure(Dialect::WmlScript);
    Program program(theDialect);
    const int statements = theSize < 1000 ? 3 : 8;
    const int depth = theSize < 1000 ? 0 : 2;
    do {
        measure.addFunction(statements, depth);
        program.addFunction(statements, depth);
    } while (measure.size() < theSize);
    return program.take();
}

std::string makeLongFunction(std::size_t theCount) {
    std::string text = "function f(a, b) {\n";
    // A load, a constant, an operation, a store; the load and the POP behind it fall away.
    for (std::size_t i = 0; i < theCount / 4; ++i) {
        text += "a = b * " + std::to_string(i % 100 + 2) + ";\n";
    }
    return text + "}\n";
}

std::string makeJumpingFunction(std::size_t theCount) {
    std::string text = "function f(a) {\n";
    // Each if has two jumps; the nested ones lie near the limit of the short forms.
    for (std::size_t i = 0; i < theCount / 4; ++i) {
        text += "if (a) { a = a * 2; if (a > 3) { a = a div 7; } else { a = a - 5; } a = a + 9; ";
        text.append(i % 7, ' ');
        for (std::size_t j = 0; j < i % 7; ++j) {
            text += "a = a * a; ";
        }
        text += "} else { a = 4; }\n";
    }
    return text + "}\n";
}

}  // namespace lumnis::bench
