/* A host of the library: compiles a script and encodes a deck, and prints how long they are. */
#include <lumnisutil.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

int main(void) {
    const char* script = "extern function f() { return 1; }";
    const char* deck = "<wml><card/></wml>";
    char* code = NULL;
    char* wbxml = NULL;
    char* error = NULL;
    unsigned short codeLength = 0;
    unsigned short wbxmlLength = 0;
    if (WMLSCompile(script, (int)strlen(script), &code, &codeLength, &error) != 0 ||
        WMLEncode(deck, (int)strlen(deck), &wbxml, &wbxmlLength, &error) != 0) {
        fputs(error != NULL ? error : "no result\n", stderr);
        return 1;
    }
    printf("%d %d\n", codeLength, wbxmlLength);
    free(code);
    free(wbxml);
    return 0;
}
