/* Loads the library and calls both of its functions: cc embed.c -llumnisutil */
#include <lumnisutil.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

static const char deck[] = "<wml><card id='start'><p>Hello</p></card></wml>";
static const char script[] = "extern function hello() { return \"Hello\"; }";

/* Not every refusal has a text. */
static const char *textOf(const char *error) {
    return error != NULL ? error : "refused\n";
}

static int encode(void) {
    char *result = NULL, *error = NULL;
    unsigned short size = 0;
    const int status = WMLEncode(deck, (int)strlen(deck), &result, &size, &error);
    if (status == 0) {
        printf("deck: %u bytes\n", (unsigned)size);
    } else {
        printf("deck: %s", textOf(error));
    }
    free(result); /* not error: it belongs to the library */
    return status;
}

static int compile(void) {
    char *result = NULL, *error = NULL;
    unsigned short size = 0;
    const int status = WMLSCompile(script, (int)strlen(script), &result, &size, &error);
    if (status == 0) {
        printf("script: %u bytes\n", (unsigned)size);
    } else {
        printf("script: %s", textOf(error));
    }
    free(result);
    free(error);
    return status;
}

int main(void) {
    const int deckStatus = encode();
    const int scriptStatus = compile();
    return deckStatus != 0 || scriptStatus != 0;
}
