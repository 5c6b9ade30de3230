#include "Contenders.h"

#include <cstdio>
#include <cstdlib>

extern "C" {
#include <lua5.4/lauxlib.h>
#include <lua5.4/lua.h>
#include <duktape.h>
#include <mujs.h>
}

#include "CpsString.h"
#include "WscWmlScriptCompiler.h"

namespace lumnis::bench {

namespace {

[[noreturn]] void refused(const char* theName, const char* theMessage) {
    std::fprintf(stderr, "%s refuses the program: %s\n", theName, theMessage);
    std::exit(1);
}

void compileWmlScript(const std::string& theSource) {
    const CpsString source(theSource);
    WscWmlScriptCompiler compiler;
    if (compiler.compile(&source) != 1) {
        CpsString message;
        compiler.getErrorMessage(0, message);
        refused("lumnis", message.c_str());
    }
}

void compileLua(const std::string& theSource) {
    lua_State* state = luaL_newstate();
    if (luaL_loadbuffer(state, theSource.data(), theSource.size(), "program") != LUA_OK) {
        refused("Lua", lua_tostring(state, -1));
    }
    lua_close(state);
}

void compileMuJs(const std::string& theSource) {
    js_State* state = js_newstate(nullptr, nullptr, 0);
    if (js_ploadstring(state, "program", theSource.c_str()) != 0) {
        refused("MuJS", js_tostring(state, -1));
    }
    js_freestate(state);
}

// Compiles alone: the function that comes of it is not called.
void compileDuktape(const std::string& theSource) {
    duk_context* context = duk_create_heap_default();
    if (duk_pcompile_lstring(context, 0, theSource.data(), theSource.size()) != 0) {
        refused("Duktape", duk_safe_to_string(context, -1));
    }
    duk_destroy_heap(context);
}

}  // namespace

const Contender theContenders[4] = {
    {"lumnis", Dialect::WmlScript, compileWmlScript},
    {"Lua 5.4", Dialect::Lua, compileLua},
    {"MuJS", Dialect::JavaScript, compileMuJs},
    {"Duktape", Dialect::JavaScript, compileDuktape},
};

}  // namespace lumnis::bench
