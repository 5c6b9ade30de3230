/* Loads the library and calls both of its functions: cc embed.c -llumnisutil */
#include <lumnisutil.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

static const char deck[] = "<wml><card id='start'><p>Hello</p></card></wml>";
static const char script[] = "extern function hello() { return \"Hello\"; }";

int main(void) {
    char *result = NULL, *error = NULL;
    unsigned short size = 0;
    const int isRefused = WMLEncode(deck, (int)strlen(deck), &result, &size, &error);
    printf("deck: %s\n", isRefused ? error : "encoded");
    free(result);
    if (WMLSCompile(script, (int)strlen(script), &result, &size, &error) != 0) return 1;
    printf("script: %u bytes\n", (unsigned)size);
    free(result);
    return isRefused;
}
