/* A host in C: both calls through the shared library, with what they promise about the
 * out-parameters. */
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include "lumnisutil.h"

static int failures = 0;

static void check(int condition, const char* text) {
    if (!condition) {
        fprintf(stderr, "fails: %s\n", text);
        ++failures;
    }
}

#define CHECK(condition) check((condition), #condition)

static void compileGood(void) {
    static const char source[] = "extern function f() { return 1; }";
    /* Header: version, size 13, no constants, UTF-8. No pragmas, one function, one name. */
    static const char expected[] =
        "\x01\x0D\x00\x6A\x00\x01\x01\x00\x01"
        "f\x00\x00\x02\x15\x3A";
    char mark = 'm';
    char* result = NULL;
    char* error = &mark;
    unsigned short length = 0;
    CHECK(WMLSCompile(source, (int)strlen(source), &result, &length, &error) == 0);
    CHECK(length == sizeof expected - 1);
    CHECK(result != NULL && memcmp(result, expected, sizeof expected - 1) == 0);
    CHECK(error == &mark);
    free(result);
}

static void compileBad(void) {
    static const char source[] = "extern function f() {\n\n return }";
    char mark = 'm';
    char* result = &mark;
    char* error = NULL;
    unsigned short length = 4711;
    CHECK(WMLSCompile(source, (int)strlen(source), &result, &length, &error) == 1);
    CHECK(error != NULL &&
          strcmp(error, "\nCompilation error: \nError at line: 3. \r\nparse error\n") == 0);
    CHECK(result == &mark && length == 4711);
    free(error);
}

static void encodeGood(void) {
    static const char source[] = "<wml><card id='c'/></wml>";
    /* Version, unknown identifier, UTF-8, no string table; wml with content, card with
     * attributes, id, STR_I, END of attributes, END of wml. */
    static const char expected[] =
        "\x01\x01\x6A\x00\x7F\xA7\x55\x03"
        "c\x00\x01\x01";
    char mark = 'm';
    char* result = NULL;
    char* error = &mark;
    unsigned short length = 0;
    CHECK(WMLEncode(source, (int)strlen(source), &result, &length, &error) == 0);
    CHECK(length == sizeof expected - 1);
    CHECK(result != NULL && memcmp(result, expected, sizeof expected - 1) == 0);
    CHECK(error == &mark);
    free(result);
}

/* The text of a refused deck is the library's, the block that comes with it the caller's. */
static void encodeBad(void) {
    static const char source[] = "<!DOCTYPE wml [\n<!ELEMENT wml>]>\n<wml/>";
    char mark = 'm';
    char* result = &mark;
    char* error = NULL;
    unsigned short length = 4711;
    CHECK(WMLEncode(source, (int)strlen(source), &result, &length, &error) == 1);
    CHECK(error != NULL && strcmp(error, "parse error  (before or at line: 2)\n") == 0);
    CHECK(result != NULL && result != &mark && length == 4711);
    if (result != &mark) {
        free(result);
    }
}

/* A caller that wants no text gets results and failures all the same. */
static void callsWithoutPlaceForTheText(void) {
    static const char deck[] = "<wml><card id='c'/></wml>";
    static const char script[] = "function f() {}";
    char* result = NULL;
    unsigned short length = 0;
    CHECK(WMLEncode(deck, (int)strlen(deck), &result, &length, NULL) == 0);
    free(result);
    CHECK(WMLSCompile(script, (int)strlen(script), &result, &length, NULL) == 0);
    free(result);
    CHECK(WMLEncode(script, (int)strlen(script), &result, &length, NULL) == 1);
    free(result);
    CHECK(WMLSCompile(deck, (int)strlen(deck), &result, &length, NULL) == 1);
}

/* Registered ahead of the first call, so that it runs behind all that a call could register. */
static void callsAtExit(void) {
    compileGood();
    compileBad();
    encodeGood();
    encodeBad();
    if (failures != 0) {
        _Exit(1);
    }
}

int main(void) {
    CHECK(atexit(callsAtExit) == 0);
    callsWithoutPlaceForTheText();
    compileGood();
    compileBad();
    encodeGood();
    encodeBad();
    return failures == 0 ? 0 : 1;
}
